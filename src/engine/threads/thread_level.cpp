#include "engine/threads/thread_level.h"

#include <algorithm>
#include <chrono>
#include <new>

#include "platform/clock.h"

#include "chess/escape_check.h"
#include "chess/pins.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/pass_checks.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"
#include "engine/threads/context_pool.h"

namespace tarnwick {
namespace {

/// A turn is measured, and a stop or pause of the job noticed, so often.
constexpr std::chrono::milliseconds PollEvery{10};
constexpr int UnitMs = 100;
/// Tries to start a thread while the register gives away memory for it.
constexpr int Tries = 3;

/// A thread costs about as much as a millisecond's search: a level is worth it where a move takes long.
constexpr int LeastPlies = 15;
constexpr int LeastPliesWithLightSort = 17;

/// 1 for the first white move behind the multithreading levels; 0 and less before it.
int LevelNumber(const TChessboard& board) {
    const int behind =
        board.m_shRootPlies - board.m_shPlies - 2 * Thread(board).m_task.m_multithreadingLevels;
    return (behind + 2) / 2;
}

/// Black is in check and can neither take the checker with a free man nor, in double check, take at all.
bool IsForcing(const TChessboard& child) {
    if (child.m_blackChecker == NoChecker) {
        return false;
    }
    const TFieldSet freeMen =
        child.m_blackMen & ~PinnedBlackMen(child) & ~FieldBit(BlackKingField(child));
    return child.m_blackChecker == DoubleCheck ||
           !CanMenCapture(child, child.m_blackChecker, freeMen, OccupiedFields(child));
}

bool IsPaused(const TThreadContext& thread) {
    return thread.m_task.m_control.IsPaused() ||
           thread.m_pauseFlag.load(std::memory_order_relaxed) == 1;
}

}  // namespace

bool MayTakeTurns(const TChessboard& board, int nearBest) noexcept {
    const TThreadContext& thread = Thread(board);
    const TSolveTask& task = thread.m_task;
    if (task.m_schedulerLevels == 0) {
        return false;
    }
    const int least =
        board.m_searchFlags.Has(TSearchFlag::LongLightSort) ? LeastPliesWithLightSort : LeastPlies;
    if (board.m_shPlies < least || thread.m_quickerMateNesting != 0 ||
        thread.m_shAlternateFrom != NoAlternate ||
        board.m_heuristicFlags.HasAny(SH_FINDFORCEDMATE) ||
        (board.m_heuristicFlags.HasAny(SH_SINGLEQUEENMATE) && !task.m_bSafeMode)) {
        return false;
    }
    const int number = LevelNumber(board);
    return number >= 1 &&
           (number <= task.m_schedulerLevels || (task.m_bCustomScheduler && nearBest > 1));
}

// ---- Making and ending a level

std::unique_ptr<TThreadLevel> TThreadLevel::Create(TChessboard& board, int moveCount,
                                                   int nearBest) noexcept {
    if (Thread(board).m_levelCount == MostLevelsPerThread || MustLeave(Thread(board))) {
        return nullptr;
    }
    try {
        return std::unique_ptr<TThreadLevel>(new TThreadLevel(board, moveCount, nearBest));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

TThreadLevel::TThreadLevel(TChessboard& board, int moveCount, int nearBest)
    : m_board(board),
      m_thread(Thread(board)),
      m_task(m_thread.m_task),
      m_pParent(m_thread.m_levelCount > 0
                    ? m_thread.m_levels[static_cast<std::size_t>(m_thread.m_levelCount - 1)]
                    : m_thread.m_pOwnLevel),
      m_plan{.schedulerLevels = m_task.m_schedulerLevels,
             .number = LevelNumber(board),
             .bestSlots = nearBest},
      m_slots(static_cast<std::size_t>(moveCount)) {
    m_turns.reserve(m_slots.size());
    const std::lock_guard guard(m_task.m_levelsLock);
    m_thread.m_levels[static_cast<std::size_t>(m_thread.m_levelCount++)] = this;
}

TThreadLevel::~TThreadLevel() {
    {
        const std::lock_guard guard(m_task.m_levelsLock);
        for (TSlot& slot : m_slots) {
            if (slot.IsLive()) {
                StopTree(*slot.m_pContext);
            }
        }
    }
    for (TSlot& slot : m_slots) {
        Free(slot);
    }
    const std::lock_guard guard(m_task.m_levelsLock);
    --m_thread.m_levelCount;
}

bool TThreadLevel::MustStop() const noexcept {
    return IsStopRequested(m_thread);
}

// ---- Starting a move

bool TThreadLevel::Offer(int slot, const TChessboard& child) noexcept {
    TStart start = TStart::NoMemory;
    for (int i = 0; i < Tries && start == TStart::NoMemory; ++i) {
        start = StartSlot(slot, child);
        if (start == TStart::NoMemory) {
            ++m_task.m_failedThreads;
            if (m_thread.m_pRegister != nullptr) {
                m_thread.m_pRegister->EmptySomeDataWhenRegisterFull(true);
            }
        }
    }
    if (start != TStart::Done) {
        return false;
    }
    if (slot == m_plan.forcingSlots && IsForcing(child)) {
        ++m_plan.forcingSlots;
    }
    m_turns.push_back({slot, 0});
    ++m_task.m_movesInTurns;
    m_offered = slot;
    m_bRoundOver = false;
    return true;
}

TThreadLevel::TStart TThreadLevel::StartSlot(int slot, const TChessboard& child) noexcept {
    if (MustLeave(m_thread)) {
        return TStart::Stopped;
    }
    if (m_task.m_juggledThreads.fetch_add(1) >= m_task.m_maxRunningThreads) {
        --m_task.m_juggledThreads;
        return TStart::NoRoom;
    }
    TSlot& started = m_slots[static_cast<std::size_t>(slot)];
    try {
        started.m_pContext = ContextFor(child);
    } catch (...) {
        --m_task.m_juggledThreads;
        return TStart::NoMemory;
    }
    const TStart start = RunThread(started, PriorityOf(slot));
    if (start != TStart::Done) {
        Free(started);
    }
    return start;
}

std::unique_ptr<TThreadContext> TThreadLevel::ContextFor(const TChessboard& child) {
    auto context = m_task.m_pContexts->Take();
    context->StartAsChildOf(m_thread, m_thread.m_shThreadNumber, m_thread.m_forkDepth);
    context->m_pOwnLevel = this;
    context->m_forkBoard = child;
    context->m_forkBoard.m_pThread = context.get();
    return context;
}

/// A pause from above that comes in while the thread is made finds the slot and pauses it.
TThreadLevel::TStart TThreadLevel::RunThread(TSlot& slot, TThreadPriority priority) noexcept {
    {
        const std::lock_guard guard(m_task.m_levelsLock);
        if (MustStop()) {
            return TStart::Stopped;
        }
        slot.m_bStarted = true;
        PauseSlot(slot, false);
    }
    try {
        slot.m_hThread = std::thread([this, &slot, priority] { ThreadProc(slot, priority); });
        return TStart::Done;
    } catch (...) {
        const std::lock_guard guard(m_task.m_levelsLock);
        slot.m_bStarted = false;
        return TStart::NoMemory;
    }
}

void TThreadLevel::ThreadProc(TSlot& slot, TThreadPriority priority) noexcept {
    TThreadContext& thread = *slot.m_pContext;
    if (priority != TThreadPriority::Normal) {
        SetPriorityOfThisThread(priority);
    }
    const TNodeResult result =
        MatesByFallback(thread.m_forkBoard) ? ResultMate : FindMateBlackToMove(thread.m_forkBoard);
    TellNodesAndCheckLimits(thread);
    const std::lock_guard guard(m_task.m_levelsLock);
    slot.m_result = result;
    slot.m_repetitionLimit = thread.m_repetitionLimit[thread.m_forkBoard.m_shPlies];
    slot.m_bEnded = true;
    m_ended.notify_one();
}

bool TThreadLevel::HasLiveLaterSlot() const noexcept {
    return m_slots.size() > 1 && std::any_of(m_slots.begin() + 1, m_slots.end(),
                                             [](const TSlot& slot) { return slot.IsLive(); });
}

/// Best moves of best moves go first; the others make way for the threads of other first moves.
TThreadPriority TThreadLevel::PriorityOf(int slot) const noexcept {
    const std::lock_guard guard(m_task.m_levelsLock);
    bool bFirstOfChain = slot == 0;
    for (const TThreadLevel* level = m_pParent; level != nullptr; level = level->m_pParent) {
        bFirstOfChain = bFirstOfChain && !level->HasLiveLaterSlot();
    }
    const TThreadPriority priority = m_task.m_threadPriority;
    return bFirstOfChain ? priority : OneStepLower(OneStepLower(priority));
}

// ---- Turns

std::optional<TSlotAnswer> TThreadLevel::NextAnswer(bool bMayStartNew) noexcept {
    if (m_bRoundOver && bMayStartNew) {
        return std::nullopt;
    }
    const bool bFirstTurn = m_offered >= 0;
    int slot = bFirstTurn ? m_offered : NextSlotToResume(m_plan, m_turns, bMayStartNew);
    while (slot >= 0 && !MustStop()) {
        if (WaitSlot(slot)) {
            m_bRoundOver = bFirstTurn && slot == m_offered;
            m_offered = -1;
            return TakeAnswer(slot);
        }
        m_offered = -1;
        slot = NextSlotToResume(m_plan, m_turns, bMayStartNew);
    }
    return std::nullopt;
}

/// One turn. True when the slot has ended.
bool TThreadLevel::WaitSlot(int slot) noexcept {
    TSlot& waited = m_slots[static_cast<std::size_t>(slot)];
    const std::uint32_t units = QuantumOf(m_plan, slot, m_turns);
    std::unique_lock guard(m_task.m_levelsLock);
    if (!waited.m_bEnded) {
        PauseSlot(waited, false);
        WaitForQuantum(guard, waited, units);
    }
    if (waited.m_bEnded) {
        return true;
    }
    PauseSlot(waited, true);
    ++m_task.m_turnsRunOut;
    for (TSlotTime& turn : m_turns) {
        turn.timeUsed += turn.slot == slot ? units : 0;
    }
    return false;
}

/// The time in which the job or this level was paused is no part of the turn.
void TThreadLevel::WaitForQuantum(std::unique_lock<std::mutex>& guard, const TSlot& slot,
                                  std::uint32_t units) noexcept {
    std::int64_t left = static_cast<std::int64_t>(units) * UnitMs;
    std::int64_t last = NowMs();
    while (!slot.m_bEnded && left > 0 && !MustStop()) {
        if (IsPaused(m_thread)) {
            guard.unlock();
            WaitOrLeave(m_thread);
            guard.lock();
            last = NowMs();
            continue;
        }
        m_ended.wait_for(guard, PollEvery);
        const std::int64_t now = NowMs();
        left -= now - last;
        last = now;
    }
}

TSlotAnswer TThreadLevel::TakeAnswer(int slot) noexcept {
    TSlot& ended = m_slots[static_cast<std::size_t>(slot)];
    m_turns.erase(std::find_if(m_turns.begin(), m_turns.end(),
                               [slot](const TSlotTime& turn) { return turn.slot == slot; }));
    Free(ended);
    return {slot, ended.m_result, ended.m_repetitionLimit};
}

/// The thread has ended, is about to, or was never made.
void TThreadLevel::Free(TSlot& slot) noexcept {
    if (slot.m_hThread.joinable()) {
        slot.m_hThread.join();
        m_task.CallObserver();
    }
    if (slot.m_pContext != nullptr) {
        m_task.m_pContexts->GiveBack(std::move(slot.m_pContext));
        --m_task.m_juggledThreads;
    }
}

// ---- Pauses

void TThreadLevel::PauseSlot(TSlot& slot, bool bPause) noexcept {
    slot.m_bPaused = bPause;
    PauseTree(*slot.m_pContext,
              bPause || m_thread.m_pauseFlag.load(std::memory_order_relaxed) == 1);
}

/// Slots that wait for their turn in a deeper level go on waiting when the tree is resumed.
void TThreadLevel::PauseTree(TThreadContext& thread, bool bPause) noexcept {
    if (thread.m_pauseFlag.load(std::memory_order_relaxed) > 1) {
        return;  // A stop is never taken back.
    }
    SetPauseFlag(thread, bPause ? 1 : 0);
    for (int i = 0; i < thread.m_levelCount; ++i) {
        for (TSlot& slot : thread.m_levels[static_cast<std::size_t>(i)]->m_slots) {
            if (slot.IsLive()) {
                PauseTree(*slot.m_pContext, bPause || slot.m_bPaused);
            }
        }
    }
}

void TThreadLevel::StopTree(TThreadContext& thread) noexcept {
    SetPauseFlag(thread, 2);
    for (int i = 0; i < thread.m_levelCount; ++i) {
        for (TSlot& slot : thread.m_levels[static_cast<std::size_t>(i)]->m_slots) {
            if (slot.IsLive()) {
                StopTree(*slot.m_pContext);
            }
        }
    }
}

}  // namespace tarnwick
