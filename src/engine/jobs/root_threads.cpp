#include "engine/jobs/root_threads.h"

#include <chrono>
#include <thread>

#include "engine/jobs/heuristic_passes.h"
#include "engine/jobs/moves_logger.h"
#include "engine/jobs/root_scout.h"
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
    for (std::size_t k = 0; k < threads; ++k) {
        auto context = search.task.m_pContexts->Take();
        context->StartAsChildOf(search.thread, static_cast<std::uint16_t>(k), 0);
        context->m_forkBoard = search.root;
        context->m_forkBoard.m_pThread = context.get();
        context->m_pRootBoard = &context->m_forkBoard;
        if (search.task.m_options.bLogMoves) {
            context->m_pLogger = std::make_unique<TMovesLogger>(*context, false);
        }
        m_contexts.push_back(std::move(context));
    }
}

TScoutShare TRootThreads::ShareOf(bool bScout, int thread, int threads) const {
    return bScout ? ScoutShareOf(m_search, thread, threads) : TScoutShare{0, 0};
}

TRootThreads::~TRootThreads() {
    for (auto& context : m_contexts) {
        context->m_pLogger.reset();
        m_search.task.m_pContexts->GiveBack(std::move(context));
    }
}

void TRootThreads::RunPass(int pass, bool bScout) {
    m_search.next = 0;
    if (m_contexts.empty()) {
        ThreadBody(m_search.thread, m_search.root, pass, ShareOf(bScout, 0, 1));
    } else {
        RunTogether(pass, bScout);
    }
}

void TRootThreads::ThreadBody(TThreadContext& thread, TChessboard& root, int pass,
                              TScoutShare share) noexcept {
    try {
        m_search.task.m_running.Add(thread.m_shThreadNumber, thread);
        ScoutRoot(m_search, thread, root, share);
        tarnwick::RunPass(m_search, thread, root, pass);
    } catch (const std::exception& fault) {  // of a callback: the search itself throws nothing
        NoteFault(fault.what());
    } catch (...) {
        NoteFault("unknown exception");
    }
    TellNodesAndCheckLimits(thread);
    m_search.task.m_running.Remove(thread);
}

void TRootThreads::NoteFault(const char* text) noexcept {
    ++m_search.task.m_failedThreads;
    const std::lock_guard guard(m_search.lock);
    try {
        m_search.error = text;
    } catch (const std::bad_alloc&) {
        m_search.error = "?";  // Short enough to need no memory.
    }
}

void TRootThreads::EndThread() noexcept {
    const std::lock_guard guard(m_lock);
    --m_running;
    m_ended.notify_one();
}

/// Threads that cannot be made leave their moves to those that can; without any the caller's does it all.
void TRootThreads::RunTogether(int pass, bool bScout) {
    std::vector<std::jthread> threads;
    threads.reserve(m_contexts.size());
    m_running = m_contexts.size();
    const THeuristicRung rung = RungOf(m_search.thread, m_search.root);
    const int count = static_cast<int>(m_contexts.size());
    for (int k = 0; k < count; ++k) {
        TThreadContext& context = *m_contexts[static_cast<std::size_t>(k)];
        TakeRung(rung, context, context.m_forkBoard);
        try {
            threads.emplace_back([this, &context, pass, share = ShareOf(bScout, k, count)] {
                ThreadBody(context, context.m_forkBoard, pass, share);
                EndThread();
            });
        } catch (const std::exception&) {
            ++m_search.task.m_failedThreads;
            EndThread();
        }
    }
    if (threads.empty()) {
        ThreadBody(m_search.thread, m_search.root, pass, ShareOf(bScout, 0, 1));
    }
    WaitForAll();
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
    TSolveTask& task = m_search.task;
    try {
        task.Report(task.m_callbacks.onWaiting,
                    std::to_string(task.m_problemNumber) + (task.m_bMirrored ? "(m)" : "") +
                        "... " + std::to_string(m_secondsWaited) + " sec(s)...     \r");
    } catch (const std::exception& fault) {
        NoteFault(fault.what());
    } catch (...) {
        NoteFault("unknown exception");
    }
}

}  // namespace tarnwick
