#pragma once
// Watches a running solve: shows how far it is, and passes Ctrl-C on to it.
//
// The solve runs on the thread that called it and polls its job, so somebody else must look at the
// clock and at the user. That is a small thread that lives as long as the watcher.

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

#include "cli/console_dialog.h"
#include "engine/jobs/solve_task.h"

namespace tarnwick {

/// What the progress line tells.
struct TSolveProgress {
    std::string label;  ///< "Problem 7, #4".
    std::string move;   ///< The first move in hand; empty before the first.
    int index = 0;      ///< Of that move, from 0.
    int count = 0;      ///< First moves altogether.
    std::uint64_t nodes = 0;
    std::uint64_t elapsedMs = 0;
    std::string pass;  ///< "pass 1b: SH_AREKINGSNEAR", or what the engine does before its passes.
    std::string line;  ///< The line of play in hand.
};

/// "Problem 7, #4  move 3 of 35: Qd1-d8  1,234,567 nodes  2.1 M/s  0.588 s  pass 2"
std::string ProgressText(const TSolveProgress& progress);

class CSolveWatcher {
  public:
    /// Fills the job's callbacks for first moves, passes and texts and starts the thread. Job, board and dialog must
    /// outlive the watcher, and the board may not change meanwhile: moves are told by it.
    CSolveWatcher(TSolveTask& task, const TChessboard& board, CConsoleDialog& dialog,
                  std::string label);
    CSolveWatcher(const CSolveWatcher&) = delete;
    CSolveWatcher& operator=(const CSolveWatcher&) = delete;
    /// Ends the thread and takes the progress line away.
    ~CSolveWatcher();

  private:
    void FillCallbacks();
    void Watch(const std::stop_token& stop);
    void ShowProgress();

    TSolveTask& m_task;
    const TChessboard& m_board;
    CConsoleDialog& m_dialog;
    const std::int64_t m_startMs;
    std::mutex m_lock;
    TSolveProgress m_progress;  ///< Guarded by m_lock.
    std::condition_variable_any m_wake;
    std::jthread m_thread;  ///< Last: the others must stand when it starts and until it ends.
};

}  // namespace tarnwick
