#include "engine/threads/multithreading_level.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <thread>
#include <vector>

#include "chess/board_stack.h"
#include "chess/generate_moves.h"
#include "engine/jobs/moves_logger.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"
#include "engine/threads/context_pool.h"

namespace tarnwick {
namespace {

/// Stops of siblings by all levels of all jobs come one after the other, so that two levels do not fight
/// over the single target of a stop.
std::mutex g_threadStart;

constexpr auto JoinEvery = std::chrono::milliseconds(1);

/// States of a level's thread.
enum class TThreadState : std::uint8_t {
    Ended = 0,
    Running = 1,
    Cancelled = 254,
    Waiting = 255  ///< Made; waits for the go.
};

class TLevel;

/// One thread started by a level.
struct TThreadRecord {
    TChessboard* m_pBoard = nullptr;  ///< In the new context's stack, a copy of the node's board.
    std::unique_ptr<TThreadContext> m_pContext;
    std::thread m_hThread;
    std::atomic<TNodeResult> m_result{ResultNoMate};
    std::atomic<std::uint16_t> m_repetitionLimit{0};
    std::atomic<TThreadState> m_state{TThreadState::Waiting};
    std::uint32_t m_threadNumber = 0;
    TLevelSearch m_search{};
    int m_moveCount = 0;
    const TMove* m_pMoves = nullptr;
    bool m_bSeen = false;  ///< The join loop has taken its result.

    bool HasEnded() const { return m_state.load(std::memory_order_acquire) == TThreadState::Ended; }
    std::uint16_t Number() const { return static_cast<std::uint16_t>(m_threadNumber); }
};

/// The threads of one node, while the node waits for them.
class TLevel {
  public:
    TLevel(TChessboard& board, const TLevelSearch& search)
        : m_board(board), m_thread(Thread(board)), m_task(m_thread.m_task), m_search(search) {}
    ~TLevel() { JoinAndFree(); }
    TLevel(const TLevel&) = delete;
    TLevel& operator=(const TLevel&) = delete;

    /// False when not a single thread could be made.
    bool Create(int moveCount, const TMove* pMoves, int threads, std::uint32_t firstNumber);
    TNodeResult RunAndJoin();
    /// Called by a thread of the level as its last act.
    void TellEnd(TThreadRecord& record);

  private:
    bool Add(int k, std::uint32_t number);
    void Cancel();
    bool AllEnded() const;
    void WaitForAnEnd();
    bool TakeResults();
    TNodeResult StopChildrenOfStopped();
    TNodeResult StopSiblings();
    bool IsStopped() const;
    void StopOne(TThreadRecord& record);
    TNodeResult Finish();
    void WaitForAll();
    void JoinAndFree();

    TChessboard& m_board;
    TThreadContext& m_thread;
    TSolveTask& m_task;
    TLevelSearch m_search;
    std::array<TMove, MaxMovesOfSide + MostThreadsPerLevel> m_slices{};
    std::array<int, MostThreadsPerLevel> m_sizes{};
    int m_sliceSize = 0;
    std::vector<std::unique_ptr<TThreadRecord>> m_records;
    TNodeResult m_lowest = ResultMate;  ///< Smallest result so far.
    std::uint16_t m_limit = 0;          ///< Repetition limit to report; 0: none.
    std::mutex m_lock;
    std::condition_variable m_ended;
};

/// Searches the thread's slice. The last but one act is to publish the result, the last to say so.
void FindMateMultithreadingLevelThreadProc(TLevel& level, TThreadRecord& record) noexcept {
    TThreadContext& thread = *record.m_pContext;
    while (record.m_state.load(std::memory_order_acquire) == TThreadState::Waiting) {
        std::this_thread::yield();
    }
    if (record.m_state.load(std::memory_order_acquire) != TThreadState::Cancelled) {
        thread.m_pPresetMoveList = record.m_pMoves;
        thread.m_presetMoveCount = record.m_moveCount;
        const TNodeResult result = record.m_search.pWhiteNode(*record.m_pBoard);
        TellNodesAndCheckLimits(thread);
        const auto ply = static_cast<std::size_t>(record.m_pBoard->m_shPlies);
        record.m_repetitionLimit.store(thread.m_repetitionLimit[ply], std::memory_order_relaxed);
        record.m_result.store(result, std::memory_order_relaxed);
    }
    level.TellEnd(record);
}

bool TLevel::Create(int moveCount, const TMove* pMoves, int threads, std::uint32_t firstNumber) {
    m_sliceSize = SliceSize(moveCount, threads);
    DealMoves(pMoves, moveCount, threads, m_slices.data(), m_sizes.data());
    try {
        m_records.reserve(static_cast<std::size_t>(threads));
        for (int k = 0; k < threads; ++k) {
            if (!Add(k, firstNumber + static_cast<std::uint32_t>(k))) {
                Cancel();
                return false;
            }
        }
    } catch (...) {  // No memory: the node does not need the threads.
        ++m_task.m_failedThreads;
        if (m_thread.m_pRegister != nullptr) {
            m_thread.m_pRegister->EmptySomeDataWhenRegisterFull(true);
        }
        Cancel();
        return false;
    }
    return !m_records.empty();
}

bool TLevel::Add(int k, std::uint32_t number) {
    auto record = std::make_unique<TThreadRecord>();
    record->m_pContext = m_task.m_pContexts->Take();
    TThreadContext& context = *record->m_pContext;
    context.StartAsChildOf(m_thread, static_cast<std::uint16_t>(number), m_thread.m_forkDepth + 1);
    record->m_pBoard = &context.m_forkBoard;
    *record->m_pBoard = m_board;
    record->m_pBoard->m_pThread = &context;
    record->m_threadNumber = number;
    record->m_search = m_search;
    if (m_search.bLogger) {
        context.m_pLogger = std::make_unique<TMovesLogger>(context, true);
    }
    record->m_moveCount = m_sizes[static_cast<std::size_t>(k)];
    record->m_pMoves = m_slices.data() + k * m_sliceSize;
    m_records.push_back(std::move(record));
    TThreadRecord& kept = *m_records.back();
    try {
        kept.m_hThread =
            std::thread([this, &kept] { FindMateMultithreadingLevelThreadProc(*this, kept); });
    } catch (...) {
        ++m_task.m_failedThreads;
        kept.m_pContext->m_pLogger.reset();
        m_task.m_pContexts->GiveBack(std::move(kept.m_pContext));
        m_records.pop_back();
        return false;
    }
    m_task.m_running.Add(kept.Number(), *kept.m_pContext);
    return true;
}

/// Ends the threads that wait for a go that will not come.
void TLevel::Cancel() {
    for (const auto& record : m_records) {
        record->m_state.store(TThreadState::Cancelled, std::memory_order_release);
    }
    JoinAndFree();
}

void TLevel::TellEnd(TThreadRecord& record) {
    TThreadContext& thread = *record.m_pContext;
    m_task.m_running.Remove(thread);
    const std::lock_guard guard(m_lock);
    record.m_state.store(TThreadState::Ended, std::memory_order_release);
    m_ended.notify_one();
}

bool TLevel::AllEnded() const {
    return std::all_of(m_records.begin(), m_records.end(),
                       [](const auto& record) { return record->HasEnded(); });
}

void TLevel::WaitForAnEnd() {
    std::unique_lock guard(m_lock);
    m_ended.wait_for(guard, JoinEvery, [this] {
        return std::any_of(m_records.begin(), m_records.end(), [](const auto& record) {
            return record->HasEnded() && !record->m_bSeen;
        });
    });
}

/// What has ended since the last look. True when a thread has found mate.
bool TLevel::TakeResults() {
    bool bMate = false;
    for (const auto& record : m_records) {
        if (record->m_bSeen || !record->HasEnded()) {
            continue;
        }
        record->m_bSeen = true;
        const TNodeResult result = record->m_result.load(std::memory_order_relaxed);
        if (result == ResultMate) {
            bMate = true;
            m_thread.m_mateOfSlice = record->m_pContext->m_mateOfSlice;
        }
        m_lowest = std::min(m_lowest, result);
        const std::uint16_t limit = record->m_repetitionLimit.load(std::memory_order_relaxed);
        if (result == ResultRepetition) {
            // What is stored as proved above here must hold for the highest position that any of the
            // threads came back to, not only for the nearest.
            m_limit = std::max(m_limit, limit);
        }
    }
    return bMate;
}

TNodeResult TLevel::RunAndJoin() {
    m_thread.GiveTablesBack();  // This thread only waits from here on.
    for (const auto& record : m_records) {
        record->m_state.store(TThreadState::Running, std::memory_order_release);
    }
    while (true) {
        WaitForAnEnd();
        if (TakeResults()) {
            return StopSiblings();
        }
        if (AllEnded()) {
            return Finish();
        }
        if (IsStopped()) {
            return StopChildrenOfStopped();
        }
    }
}

bool TLevel::IsStopped() const {
    return IsStopRequested(m_thread);
}

/// Stops one child and waits for its end. While this thread is itself being stopped it lends its stop to
/// the child; otherwise it waits until no other thread's stop is in force.
void TLevel::StopOne(TThreadRecord& record) {
    TEngineControl& control = m_task.m_control;
    const std::uint16_t own = m_thread.m_shThreadNumber;
    while (!record.HasEnded() && !control.IsStopForAll()) {
        const bool bLends = control.IsStopFor(own);
        const bool bAsked =
            bLends ? control.PassStopOn(record.Number()) : control.TryStopThread(record.Number());
        if (!bAsked) {
            std::this_thread::yield();
            continue;
        }
        while (!record.HasEnded() && !control.IsStopForAll()) {
            WaitForAnEnd();
            TakeResults();
        }
        if (bLends) {
            control.PassStopOn(own);
        } else {
            control.EndThreadStop();
        }
    }
}

/// This thread has been told to stop: its children go first.
TNodeResult TLevel::StopChildrenOfStopped() {
    for (const auto& record : m_records) {
        StopOne(*record);
    }
    WaitForAll();
    return ResultNoMate;
}

/// A thread has found mate: the others need not go on. The node answers when they have really ended.
TNodeResult TLevel::StopSiblings() {
    std::unique_lock guard(g_threadStart, std::defer_lock);
    while (!guard.try_lock()) {
        // Its holder may be waiting for this very thread.
        if (IsStopped()) {
            return StopChildrenOfStopped();
        }
        WaitForAnEnd();
        TakeResults();
    }
    for (const auto& record : m_records) {
        StopOne(*record);
    }
    WaitForAll();
    return ResultMate;
}

TNodeResult TLevel::Finish() {
    if (m_lowest == ResultRepetition) {
        m_thread.m_repetitionLimit[static_cast<std::size_t>(m_board.m_shPlies - 1)] = m_limit;
    }
    return m_lowest;
}

void TLevel::WaitForAll() {
    while (!AllEnded()) {
        WaitForAnEnd();
        TakeResults();
    }
}

void TLevel::JoinAndFree() {
    for (const auto& record : m_records) {
        record->m_hThread.join();
        m_thread.m_outsideStops += record->m_pContext->m_outsideStops;
        record->m_pContext->m_pLogger.reset();
        m_task.CallObserver();
        m_task.m_pContexts->GiveBack(std::move(record->m_pContext));
    }
    m_records.clear();
}

}  // namespace

std::uint32_t FirstThreadNumber(int threadNumber, int threadsPerLevel, int width, int level) {
    std::uint64_t before = 0;
    std::uint64_t after = static_cast<std::uint64_t>(threadsPerLevel);
    for (int i = 1; i < level && after < AllThreads; ++i) {
        before = after;
        after *= static_cast<std::uint64_t>(width) + 1;
    }
    const std::uint64_t number =
        (static_cast<std::uint64_t>(threadNumber) - before) * static_cast<std::uint64_t>(width) +
        after;
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(number, AllThreads));
}

int SliceSize(int moveCount, int threads) {
    return (moveCount + threads - 1) / threads;
}

void DealMoves(const TMove* pMoves, int moveCount, int threads, TMove* pSlices, int* pSizes) {
    const int size = SliceSize(moveCount, threads);
    std::fill(pSizes, pSizes + threads, 0);
    for (int i = 0; i < moveCount; ++i) {
        const int thread = i % threads;
        pSlices[thread * size + i / threads] = pMoves[i];
        ++pSizes[thread];
    }
}

std::optional<TNodeResult> SearchInThreads(TChessboard& board, int moveCount, const TMove* pMoves,
                                           const TLevelSearch& search) noexcept {
    TThreadContext& thread = Thread(board);
    if (moveCount == 0 || IsStopRequested(thread)) {
        return ResultNoMate;
    }
    const TSolveTask& task = thread.m_task;
    int width = std::min<int>(thread.m_threadsPerLevel, MostThreadsPerLevel);
    if (task.m_forcedThreads > 1) {
        width = std::min<int>(width, task.m_forcedThreads);
    }
    const int threads = std::min(moveCount, width);
    const std::uint32_t first = FirstThreadNumber(thread.m_shThreadNumber, thread.m_threadsPerLevel,
                                                  width, thread.m_forkDepth + 1);
    if (threads < 2 || first + static_cast<std::uint32_t>(threads) >= AllThreads) {
        return std::nullopt;
    }
    TLevel threadLevel(board, search);
    if (!threadLevel.Create(moveCount, pMoves, threads, first)) {
        return std::nullopt;
    }
    return threadLevel.RunAndJoin();
}

std::optional<TNodeResult> NextMultithreadingLevel(TChessboard& board, int moveCount,
                                                   const TMove* pMoves, bool bLogger) noexcept {
    constexpr auto Plain = [](TChessboard& fork) noexcept {
        return FindMateWhiteToMove(fork, true);
    };
    constexpr auto Logged = [](TChessboard& fork) noexcept {
        return FindMateWhiteToMoveLogged(fork, true);
    };
    return SearchInThreads(board, moveCount, pMoves,
                           bLogger ? TLevelSearch{Logged, true} : TLevelSearch{Plain, false});
}

}  // namespace tarnwick
