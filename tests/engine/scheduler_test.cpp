// Moves that take turns: how long a turn is and whose is next, that nothing runs out of turn, and that
// no answer depends on any of it.

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <future>
#include <random>
#include <thread>

#include "engine/search/find_mate.h"
#include "engine/threads/context_pool.h"
#include "engine/threads/thread_level.h"
#include "solve_support.h"
#include "support/case_name.h"
#include "support/fake_clock.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

/// While it lives no turn lasts longer than the engine's first look at the clock.
class CHastyClock {
  public:
    CHastyClock() {
        SetClock([]() noexcept {
            static std::atomic<std::int64_t> s_now{0};
            return s_now += 100'000;
        });
    }
    ~CHastyClock() { SetClock(nullptr); }
    CHastyClock(const CHastyClock&) = delete;
    CHastyClock& operator=(const CHastyClock&) = delete;
};

// ---- Length of a turn

std::uint32_t TenthsOf(TLevelPlan plan, int slot, std::vector<int> liveSlots) {
    std::vector<TSlotTime> live;
    for (const int liveSlot : liveSlots) {
        live.push_back({liveSlot, 0});
    }
    return QuantumOf(plan, slot, live);
}

TEST(Turns, TheFirstMoveAtWorkGetsAFullTurnTheOthersAFraction) {
    const TLevelPlan deepest{.schedulerLevels = 3, .number = 3, .forcingSlots = 3};
    const TLevelPlan above{.schedulerLevels = 3, .number = 2, .bestSlots = 2};
    const std::uint32_t full = TenthsOf(deepest, 0, {0, 1});
    EXPECT_EQ(TenthsOf(deepest, 4, {4, 5}), full) << "the earlier ones have been answered";
    EXPECT_LT(TenthsOf(deepest, 2, {0, 2, 3}), full) << "a forcing check";
    EXPECT_LT(TenthsOf(deepest, 3, {0, 3}), TenthsOf(deepest, 2, {0, 2, 3})) << "just a glance";
    EXPECT_GT(TenthsOf(above, 0, {0, 1}), full) << "longer nearer to the root";
}

// ---- Whose turn it is

TEST(Turns, ANewMoveWaitsUntilEachHasHadAFullTurn) {
    const TLevelPlan plan{.schedulerLevels = 2, .number = 1};  // full turn: 5 seconds
    EXPECT_EQ(NextSlotToResume(plan, std::vector<TSlotTime>{{0, 15}, {1, 3}}, true), 0);
    EXPECT_EQ(NextSlotToResume(plan, std::vector<TSlotTime>{{0, 50}, {1, 3}}, true), 1);
    EXPECT_EQ(NextSlotToResume(plan, std::vector<TSlotTime>{{0, 250}, {1, 47}}, true), 1);
    EXPECT_EQ(NextSlotToResume(plan, std::vector<TSlotTime>{{0, 250}, {1, 50}}, true), -1);
    EXPECT_EQ(NextSlotToResume(plan, std::vector<TSlotTime>{{0, 250}, {1, 50}}, false), 0);
    EXPECT_EQ(NextSlotToResume(plan, {}, true), -1);
    EXPECT_EQ(NextSlotToResume(plan, {}, false), -1);
    EXPECT_EQ(NextSlotToResume(plan, std::vector<TSlotTime>{{9, 1000}}, false), 9);
}

/// Turns of one unit each: who gets how much in the long run.
std::vector<std::uint32_t> SharesOf(const TLevelPlan& plan, std::vector<TSlotTime> live) {
    for (int i = 0; i < 100000; ++i) {
        const int next = NextSlotToResume(plan, live, false);
        for (TSlotTime& slot : live) {
            slot.timeUsed += slot.slot == next ? 1 : 0;
        }
    }
    std::vector<std::uint32_t> shares;
    for (const TSlotTime& slot : live) {
        shares.push_back(slot.timeUsed);
    }
    return shares;
}

TEST(Turns, AMoveGetsAFractionOfTheOneBeforeItAndNoneStarves) {
    const auto plain = SharesOf({.schedulerLevels = 3, .number = 1}, {{0, 0}, {1, 0}, {2, 0}});
    EXPECT_NEAR(plain[0], 5.0 * plain[1], 10);
    EXPECT_NEAR(plain[1], 5.0 * plain[2], 10);
    const auto favoured =
        SharesOf({.schedulerLevels = 3, .number = 1, .forcingSlots = 3}, {{0, 0}, {1, 0}, {2, 0}});
    EXPECT_NEAR(favoured[0], 3.0 * favoured[1], 10);
    EXPECT_NEAR(favoured[1], 3.0 * favoured[2], 10);
    const auto far = SharesOf({.schedulerLevels = 3, .number = 1}, {{0, 0}, {20, 0}});
    EXPECT_NEAR(far[0], 24.0 * far[1], 30);
}

// ---- A level at work

/// White mates in nine; the key is Nf1, and the search of it takes a while.
constexpr const char* LongFen = "6-8.19";
/// White's bishop may go where it likes for ever.
constexpr const char* EndlessFen = "7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5";

/// A node whose very first move lies in the scheduler's range.
class CNodeInTurns : public CSearchLine {
  public:
    CNodeInTurns(const char* fen, int plies, int levels, int mostThreads)
        : CSearchLine(fen, plies) {
        Task().m_multithreadingLevels = 0;
        Task().m_schedulerLevels = static_cast<std::uint8_t>(levels);
        Task().m_maxRunningThreads = mostThreads;
        Task().m_pContexts = std::make_unique<TContextPool>(Task(), 1);
    }
    const TChessboard& After(const std::string& move) { return Restart().Play({move}).Board(); }
    void Pause(bool bPause) {
        const std::lock_guard guard(Task().m_levelsLock);
        TThreadLevel::PauseTree(SearchThread(), bPause);
    }
    void Stop() {
        const std::lock_guard guard(Task().m_levelsLock);
        TThreadLevel::StopTree(SearchThread());
    }
};

TEST(ThreadsInTurns, AMateIsDeliveredByAMoveThatHadToWait) {
    SKIP_IF_MISSING("9-10.07");
    const CHastyClock clock;
    CNodeInTurns node("9-10.07", 17, 1, 10);
    const auto level = TThreadLevel::Create(node.Root(), 2, 0);
    ASSERT_NE(level, nullptr);
    ASSERT_TRUE(level->Offer(0, node.After("Qc2-c6")));
    EXPECT_EQ(level->NextAnswer(true), std::nullopt) << "its turn has run out";
    ASSERT_TRUE(level->Offer(1, node.After("Qc2-g6")));
    auto answer = level->NextAnswer(false);
    while (answer && answer->slot == 0) {  // it may well be refuted first
        EXPECT_NE(answer->result, ResultMate);
        answer = level->NextAnswer(false);
    }
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->slot, 1);
    EXPECT_EQ(answer->result, ResultMate);
    EXPECT_GE(node.Task().m_turnsRunOut, 2u) << "the mating move was paused, too";
}

/// By the user, or by a level nearer to the root.
class ThreadsInTurnsPaused : public testing::TestWithParam<bool> {};

TEST_P(ThreadsInTurnsPaused, ThePauseIsNoPartOfTheTurn) {
    const bool bByUser = GetParam();
    CFakeClock clock;
    CNodeInTurns node(EndlessFen, 99, 1, 10);
    const auto pause = [&](bool bPause) {
        if (bByUser) {
            bPause ? node.Task().Pause() : node.Task().Resume();
        } else {
            node.Pause(bPause);
        }
    };
    const auto level = TThreadLevel::Create(node.Root(), 1, 0);
    ASSERT_NE(level, nullptr);
    ASSERT_TRUE(level->Offer(0, node.After("Ka1-b1")));
    pause(true);
    auto answer = std::async(std::launch::async, [&] { return level->NextAnswer(true); });
    clock.Advance(3'600'000);
    EXPECT_EQ(answer.wait_for(50ms), std::future_status::timeout);
    EXPECT_EQ(node.Task().m_turnsRunOut, 0u);
    pause(false);
    while (answer.wait_for(1ms) == std::future_status::timeout) {
        clock.Advance(100);
    }
    EXPECT_EQ(answer.get(), std::nullopt);
    EXPECT_EQ(node.Task().m_turnsRunOut, 1u) << "after the pause the turn went on";
}

INSTANTIATE_TEST_SUITE_P(By, ThreadsInTurnsPaused, testing::Bool(), [](const auto& who) {
    return std::string(who.param ? "TheUser" : "ALevelAbove");
});

std::clock_t CpuTimeIn(std::chrono::milliseconds span) {
    const std::clock_t before = std::clock();
    std::this_thread::sleep_for(span);
    return std::clock() - before;
}

/// Levels below levels: at most one thread works, and none while the tree is paused.
TEST(ThreadsInTurns, APauseStillsTheWholeTreeAndAStopEndsIt) {
    const CHastyClock clock;
    CNodeInTurns node(EndlessFen, 99, 4, 100);
    auto search =
        std::async(std::launch::async, [&] { return FindMateWhiteToMove(node.Root(), true); });
    while (node.Task().m_juggledThreads < 20) {
        std::this_thread::yield();
    }
    node.Pause(true);
    CpuTimeIn(30ms);
    const std::clock_t paused = CpuTimeIn(200ms);
    node.Pause(false);
    const std::clock_t running = CpuTimeIn(200ms);
    node.Stop();
    search.wait();
    EXPECT_LT(paused, CLOCKS_PER_SEC / 20);
    EXPECT_GT(running, paused);
    EXPECT_LT(running, CLOCKS_PER_SEC / 4) << "more than one thread at work";
    EXPECT_EQ(node.Task().m_juggledThreads, 0);
}

TEST(ThreadsInTurns, WhereNoThreadCanBeHadTheNodeDoesTheWork) {
    SKIP_IF_MISSING(LongFen);
    const CHastyClock clock;
    for (const int mostThreads : {0, 1, 3}) {
        CNodeInTurns node(LongFen, 17, 3, mostThreads);
        EXPECT_EQ(FindMateWhiteToMove(node.Root(), true), ResultMate) << mostThreads;
        EXPECT_EQ(node.SearchThread().m_mateOfSlice.to, F1) << mostThreads;
        EXPECT_EQ(node.Task().m_movesInTurns > 0, mostThreads > 0);
        EXPECT_EQ(node.Task().m_juggledThreads, 0);
    }
}

// ---- Where there are turns

TEST(MovesInTurns, OnlyFarFromTheLeavesAndBehindTheMultithreadingLevels) {
    SKIP_IF_MISSING(LongFen);
    CSearchLine line(LongFen, 23);
    TSolveTask& task = line.Task();
    TChessboard& second = line.Play({"Kg1-h2", "d7:c6"}).Board();
    TChessboard& fourth = line.Play({"Ng3-h5", "c6-c5", "Nh5-g3", "c5-c4"}).Board();
    EXPECT_FALSE(MayTakeTurns(second, 9)) << "switched off";
    task.m_schedulerLevels = 2;
    EXPECT_FALSE(MayTakeTurns(line.Root(), 9)) << "the root's moves have threads of their own";
    EXPECT_TRUE(MayTakeTurns(second, 0));
    EXPECT_FALSE(MayTakeTurns(fourth, 9)) << "the range ends before it";
    task.m_bCustomScheduler = true;
    EXPECT_FALSE(MayTakeTurns(fourth, 1));
    EXPECT_TRUE(MayTakeTurns(fourth, 2)) << "hints name two moves";
    task.m_multithreadingLevels = 2;
    EXPECT_FALSE(MayTakeTurns(second, 9));
    task.m_multithreadingLevels = 1;
    second.m_shPlies = 15;
    second.m_shRootPlies = 17;
    EXPECT_TRUE(MayTakeTurns(second, 0));
    second.m_searchFlags.Set(TSearchFlag::LongLightSort);
    EXPECT_FALSE(MayTakeTurns(second, 0)) << "too near to the leaves";
    second.m_searchFlags.Clear(TSearchFlag::LongLightSort);
    line.SearchThread().m_quickerMateNesting = 1;
    EXPECT_FALSE(MayTakeTurns(second, 0));
}

TEST(ThreadsInTurns, NoneWithoutSchedulerLevelsAndNoneUnderALog) {
    SKIP_IF_MISSING(LongFen);
    const TChessboard board = BoardOf(LongFen);
    for (const bool bLogged : {false, true}) {
        TSolveTask task;
        task.m_options.bScout = false;
        task.m_options.bCustomScheduler = true;
        task.m_options.schedulerLevels = bLogged ? 6 : 0;
        task.m_options.bLogMoves = bLogged;
        task.m_options.logFolder = testing::TempDir();
        task.m_options.timeLimitMs = 200;
        StartSolving(task, board, 9);
        EXPECT_EQ(task.m_movesInTurns, 0u);
        EXPECT_FALSE(task.m_bCustomScheduler);
    }
}

// ---- Answers

struct TTurnProblem {
    const char* fen;  ///< Or the id of a shared problem.
    int moves;
    bool bAllKeys;
};

/// Sound problems, problems with many keys, and mates that take a move more than asked for.
constexpr TTurnProblem TurnProblems[] = {{LongFen, 9, true},
                                         {"6-8.21", 9, true},
                                         {"8/8/8/8/8/8/1p6/k1K4R", 9, true},
                                         {"k7/8/1K6/8/8/8/8/7R", 10, true},
                                         {"8/8/8/8/8/5K2/7p/5B1k", 9, true},
                                         {"8/8/8/8/p7/P7/k1K5/4N3", 9, true},
                                         {"6-8.20", 9, true},
                                         {"7k/8/8/8/8/8/8/KQ6", 9, true},
                                         {"8/8/8/8/8/2k5/8/1K1Q4", 10, true},
                                         {"8/8/8/8/8/p1K5/k7/4N3", 9, true},
                                         {"8/8/8/8/8/3k4/8/Q3K3", 9, true},
                                         {"8/8/8/8/8/4k3/8/R3K3", 9, true},
                                         {"9-10.17", 9, true},
                                         {"9-10.09", 9, true},
                                         {"9-10.17", 10, false},
                                         {"8/8/8/8/8/4k3/8/R3K3", 12, false},
                                         {"9-10.07", 9, false},
                                         {"9-10.04", 9, false},
                                         {"11-15.01", 11, false},
                                         {"11-15.05", 11, false}};
constexpr int QuickOnes = 6;

TEngineOptions WithTurns(int levels, int threads, bool bAllKeys) {
    TEngineOptions options;
    options.bAllSolutions = bAllKeys;
    options.bScout = false;
    options.memoryMiB = 256;
    options.threads = static_cast<std::uint16_t>(threads);
    options.schedulerLevels = static_cast<std::uint8_t>(levels);
    return options;
}

/// The answer without the scheduler, then with it. Returns the turns that ran out.
std::uint64_t CompareAnswers(const TTurnProblem& problem, int mostLevels) {
    const TChessboard board = BoardOf(problem.fen);
    const TSolveResult want = Solve(board, problem.moves, WithTurns(0, 1, problem.bAllKeys));
    EXPECT_TRUE(want.status == TSolveStatus::Mate || want.status == TSolveStatus::NoMate);
    std::uint64_t turns = 0;
    for (int levels = 1; levels <= mostLevels; ++levels) {
        for (const int threads : {1, 2}) {
            TSolveTask task;
            task.m_options = WithTurns(levels, threads, problem.bAllKeys);
            const TSolveResult got = StartSolving(task, board, problem.moves);
            EXPECT_EQ(got.status, want.status) << problem.fen << " " << levels << "^" << threads;
            EXPECT_EQ(KeyTexts(board, got.keys), KeyTexts(board, want.keys))
                << problem.fen << " #" << problem.moves << " " << levels << "^" << threads;
            EXPECT_EQ(task.m_juggledThreads, 0);
            turns += task.m_turnsRunOut;
        }
    }
    return turns;
}

TEST(ThreadsInTurns, ChangeNoAnswer) {
    SKIP_IF_MISSING(LongFen);
    const CHastyClock clock;
    std::uint64_t turns = 0;
    for (int i = 0; i < QuickOnes; ++i) {
        turns += CompareAnswers(TurnProblems[i], 2);
    }
    EXPECT_GT(turns, 100u) << "hardly anything was paused";
}

class SlowThreadsInTurns : public testing::TestWithParam<TTurnProblem> {};

TEST_P(SlowThreadsInTurns, ChangeNoAnswer) {
    SKIP_IF_MISSING(GetParam().fen);
    const CHastyClock clock;
    CompareAnswers(GetParam(), 3);
}

INSTANTIATE_TEST_SUITE_P(Problem, SlowThreadsInTurns, testing::ValuesIn(TurnProblems),
                         [](const auto& problem) {
                             return "Number" + std::to_string(problem.index + 1);
                         });

/// Any moment may be the one at which a level is made, a turn begins or a thread ends.
TEST(ThreadsInTurns, AreStoppedAtOnceAtAnyMoment) {
    SKIP_IF_MISSING(LongFen);
    const CHastyClock clock;
    std::mt19937_64 dice(slow::TestSeed());
    const TChessboard board = BoardOf(LongFen);
    std::vector<std::chrono::steady_clock::duration> stops;
    for (int i = 0; i < 24; ++i) {
        TSolveTask task;
        task.m_options = WithTurns(3, 2, true);
        auto solve = std::async(std::launch::async, [&] { return StartSolving(task, board, 12); });
        for (std::uint64_t action = dice() % 6; action > 0; --action) {
            action % 2 == 0 ? task.Pause() : task.Resume();
            std::this_thread::sleep_for(std::chrono::microseconds(dice() % 30000));
        }
        const bool bOneFirst =
            dice() % 2 == 0 && task.StopThread(static_cast<std::uint16_t>(dice() % 2));
        const auto start = std::chrono::steady_clock::now();
        task.Stop();
        const TSolveResult result = solve.get();
        stops.push_back(std::chrono::steady_clock::now() - start);
        EXPECT_NE(result.status, TSolveStatus::NoMate) << bOneFirst;
        EXPECT_EQ(task.m_juggledThreads, 0);
    }
    std::nth_element(stops.begin(), stops.begin() + 12, stops.end());
    EXPECT_LT(stops[12], 100ms) << "and that is not the worst of them";
}

}  // namespace
}  // namespace tarnwick
