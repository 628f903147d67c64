#include "engine/search/thread_context.h"

#include "engine/jobs/moves_logger.h"

namespace tarnwick {

TThreadContext::TThreadContext(TSolveTask& task, std::size_t memoryMiB)
    : m_task(task), m_memory(memoryMiB) {}

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

}  // namespace tarnwick
