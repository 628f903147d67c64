#pragma once
// The search threads' contexts of one job. A context is large and its memory of positions grows better
// with use, so threads that end hand theirs to the next ones.

#include <memory>
#include <mutex>
#include <vector>

#include "engine/search/thread_context.h"

namespace tarnwick {

class TContextPool {
  public:
    /// memoryMiB: for the position memory of each context.
    TContextPool(TSolveTask& task, std::size_t memoryMiB) : m_task(task), m_memoryMiB(memoryMiB) {}

    /// A context for one thread. Throws ChessException or std::bad_alloc when there is no memory.
    std::unique_ptr<TThreadContext> Take();
    void GiveBack(std::unique_ptr<TThreadContext> context) noexcept;

  private:
    TSolveTask& m_task;
    std::size_t m_memoryMiB;
    std::mutex m_lock;
    std::vector<std::unique_ptr<TThreadContext>> m_free;
};

}  // namespace tarnwick
