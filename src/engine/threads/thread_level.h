#pragma once
// TThreadLevel: the moves of one white node that take turns. Each is answered in a thread of its own
// (a slot); one slot of a level runs at a time, the others are paused until their turn. So a node that
// would be busy with its first move for hours comes to look at the others too, and the number of busy
// threads stays that of the multithreading levels.
//
// A level lives in one call of the white node, on that node's thread, and so do all calls of it. Threads
// of slots have levels of their own deeper down: whoever pauses or stops a slot does so for the whole
// tree below it, under the job's m_levelsLock. No other lock is taken under that one.
//
// A slot's thread bears the number of the thread that made it: a stop for that number, or a question for
// the line in hand, means all of them. A level ends, with all its threads, before its node does.

#include <array>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "chess/chessboard.h"
#include "chess/move_list.h"
#include "engine/search/node_result.h"
#include "engine/search/thread_context.h"
#include "engine/threads/level_quantum.h"

namespace tarnwick {

/// The moves of this node may take turns: it is long enough and lies in the range of the scheduler, or
/// hints name several moves for it (nearBest, as SortWhiteMoves reports it) and the custom scheduler is on.
bool MayTakeTurns(const TChessboard& board, int nearBest) noexcept;

/// What became of a move.
struct TSlotAnswer {
    int slot = 0;  ///< The number that the move was offered under.
    TNodeResult result = ResultNoMate;
    /// Highest plies of an earlier position that the line came back to; 0 none.
    std::uint16_t repetitionLimit = 0;
};

class TThreadLevel {
  public:
    /// For a white node of a search thread, which must outlive the level. Null when there is no memory
    /// or the thread has as many levels as it may: the node then searches its moves one by one.
    static std::unique_ptr<TThreadLevel> Create(TChessboard& board, int moveCount,
                                                int nearBest) noexcept;
    /// Stops what still runs and waits for its end.
    ~TThreadLevel();
    TThreadLevel(const TThreadLevel&) = delete;
    TThreadLevel& operator=(const TThreadLevel&) = delete;

    /// Starts the next move; child is the board after it, and slot its place in the list, offered in
    /// ascending order. False when no thread can be had or the node has to leave. Copies the board.
    bool Offer(int slot, const TChessboard& child) noexcept;
    /// Gives turns until a move has its answer. Nothing when it is time to offer the next move or, with
    /// bMayStartNew false, when all have their answers; and when the node has to leave.
    std::optional<TSlotAnswer> NextAnswer(bool bMayStartNew) noexcept;

    /// Some offered move has no answer yet.
    bool AnyLeft() const noexcept { return !m_turns.empty(); }
    bool MustStop() const noexcept;

    /// 1 or 2 in the m_pauseFlag of a thread and of all threads below it. The job's m_levelsLock is held.
    static void PauseTree(TThreadContext& thread, bool bPause) noexcept;
    static void StopTree(TThreadContext& thread) noexcept;

  private:
    struct TSlot {
        std::unique_ptr<TThreadContext> m_pContext;
        std::thread m_hThread;
        // Under the job's m_levelsLock:
        bool m_bStarted = false;
        bool m_bEnded = false;
        bool m_bPaused = false;  ///< Waits for its turn in this level.
        TNodeResult m_result = ResultPending;
        std::uint16_t m_repetitionLimit = 0;

        bool IsLive() const { return m_bStarted && !m_bEnded; }
    };
    enum class TStart : std::uint8_t {
        Done,
        NoRoom,    ///< As many threads as there may be.
        NoMemory,  ///< It may help to make room in the register.
        Stopped
    };

    TThreadLevel(TChessboard& board, int moveCount, int nearBest);

    TStart StartSlot(int slot, const TChessboard& child) noexcept;
    TStart RunThread(TSlot& slot, TThreadPriority priority) noexcept;
    std::unique_ptr<TThreadContext> ContextFor(const TChessboard& child);
    void ThreadProc(TSlot& slot, TThreadPriority priority) noexcept;
    bool WaitSlot(int slot) noexcept;
    void WaitForQuantum(std::unique_lock<std::mutex>& guard, const TSlot& slot,
                        std::uint32_t units) noexcept;
    void PauseSlot(TSlot& slot, bool bPause) noexcept;
    TSlotAnswer TakeAnswer(int slot) noexcept;
    void Free(TSlot& slot) noexcept;
    TThreadPriority PriorityOf(int slot) const noexcept;
    bool HasLiveLaterSlot() const noexcept;

    TChessboard& m_board;
    TThreadContext& m_thread;  ///< The node's.
    TSolveTask& m_task;
    TThreadLevel* m_pParent;  ///< The level in whose tree this one stands; null: none.
    TLevelPlan m_plan;
    std::vector<TSlot> m_slots;
    std::vector<TSlotTime> m_turns;  ///< Offered and not yet answered, ascending. Room for all.
    int m_offered = -1;              ///< Waits for its first turn.
    bool m_bRoundOver = false;       ///< The offered move was answered in its first turn.
    std::condition_variable m_ended;
};

}  // namespace tarnwick
