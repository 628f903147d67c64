#pragma once
// The threads of a job's root: they share one list of first moves, from which each takes the next open
// one when it is free. With one thread the caller's own does the work.

#include <condition_variable>
#include <memory>
#include <vector>

#include "engine/jobs/root_scout.h"
#include "engine/jobs/root_search.h"

namespace tarnwick {

class TRootThreads {
  public:
    /// As many threads as the job wants and first moves can occupy. Throws std::bad_alloc
    /// or ChessException when their contexts cannot be had.
    explicit TRootThreads(TRootSearch& search);
    ~TRootThreads();
    TRootThreads(const TRootThreads&) = delete;
    TRootThreads& operator=(const TRootThreads&) = delete;

    /// Runs one pass under the heuristics of the search's root, to its end: all moves tried, a stop rule
    /// met or a stop. bScout: threads scout before they take moves.
    void RunPass(int pass, bool bScout);

  private:
    void RunTogether(int pass, bool bScout);
    void ThreadBody(TThreadContext& thread, TChessboard& root, int pass,
                    TScoutShare share) noexcept;
    TScoutShare ShareOf(bool bScout, int thread, int threads) const;
    void NoteFault(const char* text) noexcept;
    void EndThread() noexcept;
    void WaitForAll();
    void TellWaiting();

    TRootSearch& m_search;
    std::vector<std::unique_ptr<TThreadContext>> m_contexts;  ///< Empty with one thread.
    std::mutex m_lock;
    std::condition_variable m_ended;
    std::size_t m_running = 0;  ///< Threads of this pass that have not ended.
    int m_secondsWaited = 0;
};

}  // namespace tarnwick
