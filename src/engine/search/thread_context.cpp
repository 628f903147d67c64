#include "engine/search/thread_context.h"

#include "engine/jobs/moves_logger.h"
#include "tables/register/held_tables.h"

namespace tarnwick {
namespace {

/// Those that the job may ask; null for none.
std::unique_ptr<CHeldTables> TablesOfSearch(const TSolveTask& task) {
    if (task.m_pTables == nullptr || !task.m_pTables->MayServeSearch()) {
        return nullptr;
    }
    return std::make_unique<CHeldTables>(task.m_pTables.get());
}

}  // namespace

TThreadContext::TThreadContext(TSolveTask& task, std::size_t memoryMiB)
    : m_task(task), m_memory(memoryMiB), m_pTables(TablesOfSearch(task)) {}

TThreadContext::~TThreadContext() = default;

void TThreadContext::StartAsChildOf(const TThreadContext& parent, std::uint16_t number,
                                    int forkDepth) {
    m_shThreadNumber = number;
    m_threadsPerLevel = parent.m_threadsPerLevel;
    m_forkDepth = forkDepth;
    m_pOwnLevel = nullptr;
    m_pRegister = parent.m_pRegister;
    m_pRootBoard = parent.m_pRootBoard;
    m_pHooks = parent.m_pHooks;
    m_whiteCaptured = parent.m_whiteCaptured;
    m_blackCaptured = parent.m_blackCaptured;
    m_heuristics = parent.m_heuristics;
    m_shAlternateFrom = NoAlternate;
    m_repetitionLimit.fill(0);
    m_plies = parent.m_plies;
    m_pauseFlag.store(0, std::memory_order_relaxed);
    m_outsideStops = 0;
    m_mateOfSlice = {};
    m_presetMoveCount = 0;
    m_pPresetMoveList = nullptr;
    m_quickerMateNesting = 0;
    m_additionalMoves = 0;
    m_bUsedAdditionalMoves = false;
    m_bMateCapturedPromotion = false;
}

void TThreadContext::GiveTablesBack() noexcept {
    if (m_pTables != nullptr) {
        m_pTables->ReleaseAll();
    }
}

}  // namespace tarnwick
