#include "engine/jobs/prepare_root.h"

#include <algorithm>
#include <iterator>

#include "chess/start_position.h"
#include "engine/jobs/solve_task.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

std::uint32_t MaterialValue(const TMenCounts& men) {
    return static_cast<std::uint32_t>(9 * men.queens + 5 * men.rooks + 3 * men.bishops +
                                      3 * men.knights + men.pawns);
}

}  // namespace

TChessboard PrepareRoot(TSolveTask& task, TThreadContext& thread, const TChessboard& position) {
    TChessboard root = EmptyChessboard();
    std::copy(std::begin(position.m_fields), std::end(position.m_fields), root.m_fields);
    CheckStartPosition(root, task.m_shPlies, true, nullptr, &task.m_material);
    root.m_pTask = &task;
    root.m_pThread = &thread;
    if (thread.m_pTables != nullptr) {
        root.m_searchFlags.Set(TSearchFlag::GlobalRegisterMayHold);
    }
    task.m_whiteMaterial = MaterialValue(task.m_material.white);
    task.m_blackMaterial = MaterialValue(task.m_material.black);
    return root;
}

}  // namespace tarnwick
