#include "engine/jobs/root_threads.h"

#include <chrono>
#include <thread>

#include "base/chess_exception.h"

#include "engine/jobs/moves_logger.h"
#include "engine/search/engine_state.h"
#include "engine/threads/context_pool.h"
#include "engine/threads/multithreading_level.h"

namespace tarnwick {
namespace {

constexpr auto WaitAtMost = std::chrono::milliseconds(1000);

}  // namespace

TRootThreads::TRootThreads(TRootSearch& search) : m_search(search) {
    const std::size_t threads = std::min<std::size_t>(
        {search.task.m_threadCount, search.moves.size(), MostThreadsPerLevel});
    if (threads < 2) {
        return;
    }
    try {
        for (std::size_t k = 0; k < threads; ++k) {
            auto context = search.task.m_pContexts->Take();
            context->StartAsChildOf(search.thread, static_cast<std::uint16_t>(k));
            context->m_forkBoard = search.root;
            context->m_forkBoard.m_pThread = context.get();
            context->m_pRootBoard = &context->m_forkBoard;
            if (search.task.m_options.bLogMoves) {
                context->m_pLogger = std::make_unique<TMovesLogger>(*context, false);
            }
            m_contexts.push_back(std::move(context));
        }
    } catch (const std::bad_alloc&) {
        throw ChessException("Out of memory.");
    }
}

TRootThreads::~TRootThreads() {
    for (auto& context : m_contexts) {
        context->m_pLogger.reset();
        m_search.task.m_pContexts->GiveBack(std::move(context));
    }
}

void TRootThreads::RunPass(int pass) {
    if (m_contexts.empty()) {
        RunAlone(pass);
    } else {
        RunTogether(pass);
    }
}

void TRootThreads::RunAlone(int pass) {
    TThreadContext& thread = m_search.thread;
    m_search.task.m_running.Add(thread.m_shThreadNumber, thread);
    tarnwick::RunPass(m_search, thread, m_search.root, pass);
    m_search.task.m_running.Remove(thread);
}

void TRootThreads::ThreadBody(TThreadContext& thread, int pass) noexcept {
    try {
        tarnwick::RunPass(m_search, thread, thread.m_forkBoard, pass);
    } catch (const std::exception& fault) {  // of a callback: the search itself throws nothing
        const std::lock_guard guard(m_search.lock);
        m_search.error = fault.what();
        ++m_search.task.m_failedThreads;
    }
    TellNodesAndCheckLimits(thread);
    m_search.task.m_running.Remove(thread);
    const std::lock_guard guard(m_lock);
    --m_running;
    m_ended.notify_one();
}

void TRootThreads::RunTogether(int pass) {
    std::vector<std::thread> threads;
    threads.reserve(m_contexts.size());
    for (const auto& context : m_contexts) {
        m_search.task.m_running.Add(context->m_shThreadNumber, *context);
        {
            const std::lock_guard guard(m_lock);
            ++m_running;
        }
        try {
            threads.emplace_back([this, &context, pass] { ThreadBody(*context, pass); });
        } catch (const std::system_error&) {  // The others take its moves.
            ThreadBody(*context, pass);
            ++m_search.task.m_failedThreads;
        }
    }
    WaitForAll();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void TRootThreads::WaitForAll() {
    std::unique_lock guard(m_lock);
    while (m_running > 0) {
        if (m_ended.wait_for(guard, WaitAtMost) == std::cv_status::timeout) {
            guard.unlock();
            TellWaiting();
            guard.lock();
        }
        bool bEnough = false;
        {
            const std::lock_guard searchGuard(m_search.lock);
            bEnough = m_search.bStopRuleMet;
        }
        if (bEnough) {
            m_search.task.Stop();
        }
    }
}

void TRootThreads::TellWaiting() {
    ++m_secondsWaited;
    const TSolveTask& task = m_search.task;
    if (task.m_callbacks.onWaiting) {
        task.m_callbacks.onWaiting(std::to_string(task.m_problemNumber) +
                                   (task.m_bMirrored ? "(m)" : "") + "... " +
                                   std::to_string(m_secondsWaited) + " sec(s)...     \r");
    }
}

}  // namespace tarnwick
