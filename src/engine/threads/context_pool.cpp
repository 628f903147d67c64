#include "engine/threads/context_pool.h"

#include <new>

namespace tarnwick {

std::unique_ptr<TThreadContext> TContextPool::Take() {
    {
        const std::lock_guard guard(m_lock);
        if (!m_free.empty()) {
            std::unique_ptr<TThreadContext> context = std::move(m_free.back());
            m_free.pop_back();
            return context;
        }
    }
    return std::make_unique<TThreadContext>(m_task, m_memoryMiB);
}

void TContextPool::GiveBack(std::unique_ptr<TThreadContext> context) noexcept {
    context->GiveTablesBack();
    const std::lock_guard guard(m_lock);
    try {
        m_free.push_back(std::move(context));
    } catch (const std::bad_alloc&) {  // Then the next thread makes its own.
    }
}

}  // namespace tarnwick
