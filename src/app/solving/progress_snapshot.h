#pragma once
// How far a solve is. The engine reports first moves, passes and keys from its threads as they come; the
// window asks four times a second. Between them stands CProgressLog, whose lock is held for
// microseconds on either side.

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "chess/chessboard.h"
#include "chess/move.h"
#include "engine/jobs/solve_task.h"

namespace tarnwick {

struct TPassProgress {
    std::string name;        ///< "0" the sieve, "1", "1b" ..., "2" without heuristics.
    std::string heuristics;  ///< Their list; empty without.
    int keysFound = 0;
    bool bRunning = false;
};

/// All that the progress panel shows.
struct TProgress {
    std::uint32_t problemNumber = 0;
    int moves = 0;  ///< Of the stipulation.
    bool bRunning = false;
    bool bPaused = false;

    std::optional<TMove> moveInHand;  ///< The first move that was taken last.
    int firstMovesDone = 0;           ///< In the pass that runs.
    int firstMoves = 0;               ///< 0 before the first pass.
    std::vector<TPassProgress> passes;
    std::vector<TMove> keys;  ///< In the order in which they were found.
    std::string text;         ///< What the engine does before its passes; empty: nothing special.
    bool bSafeMode = false;

    std::vector<std::uint16_t> threads;  ///< Numbers of those that search now, ascending.
    /// The thread whose line is shown; nothing: all of them in turn.
    std::optional<std::uint16_t> peekedThread;
    std::string line;  ///< What it looks at: "1. Qd1-d8, Ka8-b7 SH:0h".

    std::uint64_t elapsedMs = 0;  ///< Without pauses and questions to the user.
    std::uint64_t nodes = 0;
    std::uint64_t registerElements = 0;
    std::uint64_t registerBytes = 0;
    /// Of the precalculated tables in memory; nothing when there are none.
    std::optional<std::uint64_t> tableBytes;

    /// Of the pass that runs, by first moves.
    double Percent() const { return firstMoves > 0 ? 100.0 * firstMovesDone / firstMoves : 0; }
};

/// Takes down what the job reports. Any thread.
class CProgressLog {
  public:
    /// The job's callbacks for first moves, passes and texts. The log must outlive the run.
    void ListenTo(TSolveTask& task);
    void NoteKey(TMove key);
    /// The last pass is over too.
    void NoteEnd();
    /// Fills the members that came by reports: those from moveInHand to bSafeMode.
    void CopyTo(TProgress& progress) const;

  private:
    void NoteFirstMove(TMove move, int index, int count);
    void NotePass(const std::string& name, const std::string& heuristics, bool bSafeMode);

    mutable std::mutex m_lock;
    TProgress m_noted;          ///< The members named above, under m_lock.
    int m_firstMovesTaken = 0;  ///< In this pass: the highest index and one.
};

}  // namespace tarnwick
