// Threads: who gets which moves and which number, that their number changes no answer, and that jobs can
// be paused and stopped at any moment.

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <numeric>
#include <random>
#include <set>
#include <thread>

#include "engine/jobs/root_search.h"
#include "engine/search/engine_state.h"
#include "engine/threads/multithreading_level.h"
#include "solve_support.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/shared_problems.h"

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

TEngineOptions WithThreads(int threads, int levels, bool bAll) {
    TEngineOptions options;
    options.bAllSolutions = bAll;
    options.threads = static_cast<std::uint16_t>(threads);
    options.multithreadingLevels = static_cast<std::uint8_t>(levels);
    options.positionMemoryMiB = 1;
    options.bScout = false;  // it would leave nothing for the threads to do
    return options;
}

// ---- Dealing and numbers

TEST(DealtMoves, EachThreadBeginsWithOneOfTheBest) {
    std::vector<TMove> moves(11);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        moves[i].from = static_cast<TField>(i);
    }
    std::vector<TMove> slices(16);
    int sizes[4];
    DealMoves(moves.data(), 11, 4, slices.data(), sizes);
    EXPECT_EQ(SliceSize(11, 4), 3);
    const std::vector<std::vector<int>> want = {{0, 4, 8}, {1, 5, 9}, {2, 6, 10}, {3, 7}};
    for (std::size_t k = 0; k < want.size(); ++k) {
        std::vector<int> got;
        for (int i = 0; i < sizes[k]; ++i) {
            got.push_back(slices[3 * k + static_cast<std::size_t>(i)].from);
        }
        EXPECT_EQ(got, want[k]) << "thread " << k;
    }
}

/// Numbers of all threads down to a level, the root's first.
std::vector<std::uint32_t> AllNumbers(int width, int levels) {
    std::vector<std::uint32_t> all(static_cast<std::size_t>(width));
    std::iota(all.begin(), all.end(), 0u);
    std::vector<std::uint32_t> parents = all;
    for (int level = 1; level < levels; ++level) {
        std::vector<std::uint32_t> children;
        for (const std::uint32_t parent : parents) {
            const std::uint32_t first =
                FirstThreadNumber(static_cast<int>(parent), width, width, level);
            for (int k = 0; k < width; ++k) {
                children.push_back(first + static_cast<std::uint32_t>(k));
            }
        }
        all.insert(all.end(), children.begin(), children.end());
        parents = children;
    }
    return all;
}

TEST(ThreadNumbers, AreUniqueOverAllLevels) {
    for (int width = 2; width <= 8; ++width) {
        std::vector<std::uint32_t> numbers = AllNumbers(width, width < 5 ? 5 : 3);
        const std::set<std::uint32_t> distinct(numbers.begin(), numbers.end());
        EXPECT_EQ(distinct.size(), numbers.size()) << width;
    }
    EXPECT_GE(FirstThreadNumber(65534, 64, 64, 9), 65535u) << "too many to be numbered";
}

// ---- Answers

/// A mate in six with plies enough for a second level: lone queen against pawns.
constexpr const char* LongFen = "6-8.19";

TEST(ThreadsAndAnswers, TheNumberOfThreadsChangesNoKey) {
    SKIP_IF_MISSING(LongFen);
    const TChessboard board = BoardOf(LongFen);
    const auto want = KeyTexts(board, Solve(board, 8, WithThreads(1, 1, true)).keys);
    ASSERT_FALSE(want.empty());
    for (const auto& [threads, levels] : {std::pair{2, 1}, {2, 3}, {4, 2}, {16, 2}}) {
        const TSolveResult result = Solve(board, 8, WithThreads(threads, levels, true));
        EXPECT_TRUE(result.bComplete);
        EXPECT_EQ(KeyTexts(board, result.keys), want) << threads << "^" << levels;
    }
}

/// Every problem of the shared set up to a length, with so many threads.
void CheckSharedProblems(int longest, int threads, int levels, bool bRegisterAlways) {
    const std::vector<TSharedProblem> problems = ReadSharedProblems();
    if (problems.empty()) {
        GTEST_SKIP() << "short.cp is not there: set TARNWICK_SHARED_DATA_DIR to its folder";
    }
    for (const TSharedProblem& problem : problems) {
        if (problem.moves > longest) {
            continue;
        }
        TEngineOptions options = WithThreads(threads, levels, true);
        options.bRegisterAlways = bRegisterAlways;
        const TChessboard board = BoardOf(problem.fen);
        const TSolveResult result = Solve(board, problem.moves, options);
        EXPECT_EQ(KeyTexts(board, result.keys), problem.keys)
            << problem.name << ", #" << problem.moves << " " << threads << "^" << levels;
    }
}

TEST(ThreadsAndAnswers, ShortProblemsHaveTheirKeys) {
    CheckSharedProblems(3, 16, 1, true);
    CheckSharedProblems(4, 4, 1, true);
    CheckSharedProblems(4, 2, 1, false);
}

class SlowThreadsAndAnswers : public testing::TestWithParam<int> {};

TEST_P(SlowThreadsAndAnswers, ShortProblemsHaveTheirKeys) {
    CheckSharedProblems(5, GetParam(), 1, GetParam() % 4 == 0);
}

INSTANTIATE_TEST_SUITE_P(Count, SlowThreadsAndAnswers, testing::Values(1, 2, 4, 16));

TEST(OneThread, TwoRunsAreTheSame) {
    SKIP_IF_MISSING(LongFen);
    const TSolveResult first = Solve(LongFen, 8, WithThreads(1, 1, true));
    const TSolveResult second = Solve(LongFen, 8, WithThreads(1, 1, true));
    EXPECT_EQ(first.nodes, second.nodes);
    EXPECT_EQ(first.workNodes, second.workNodes);
    EXPECT_EQ(first.registerElements, second.registerElements);
    EXPECT_GT(first.registerElements, 0u);
}

// ---- Actions at random moments

struct TActedProblem {
    std::string fen;
    int moves;
    std::vector<std::string> keys;  ///< Empty: not known, and no end either.
};

/// Problems that last from no time to for ever, with few and many first moves: thirty where the shared
/// ones are at hand.
std::vector<TActedProblem> ActedProblems() {
    std::vector<TActedProblem> problems;
    for (const auto& [fen, moves] : {std::pair{"6-8.19", 8},
                                     {"6-8.04", 6},
                                     {"6-8.05", 6},
                                     {"6-8.20", 8},
                                     {"6-8.21", 8},
                                     {"7k/8/6K1/8/8/8/8/R7", 1},
                                     {"7k/8/8/8/8/8/8/KQ6", 7}}) {
        if (SharedPosition(fen).empty()) {
            continue;
        }
        const TChessboard board = BoardOf(fen);
        TEngineOptions options = WithThreads(1, 1, true);
        options.positionMemoryMiB = 16;
        problems.push_back({fen, moves, KeyTexts(board, Solve(board, moves, options).keys)});
    }
    problems.push_back({"7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5", 60, {}});
    if (const std::string fen = SharedPosition("6-8.25"); !fen.empty()) {
        problems.push_back({fen, 8, {}});
    }
    for (const TSharedProblem& shared : ReadSharedProblems()) {
        if (shared.moves >= 4 && problems.size() < 30) {
            problems.push_back({shared.fen, shared.moves, shared.keys});
        }
    }
    return problems;
}

/// A job on a thread of its own, treated badly.
class CMistreatedJob {
  public:
    CMistreatedJob(const TActedProblem& problem, std::mt19937_64& dice) : m_dice(dice) {
        const int threads = static_cast<int>(1 + Below(16));
        m_task.m_options =
            WithThreads(threads, threads > 4 ? 1 : static_cast<int>(1 + Below(3)), Below(2) == 0);
        m_task.m_options.bRegisterAlways = true;
        m_task.m_options.bQuickMode = Below(4) == 0;
        m_task.m_options.memoryMiB = 64;
        m_task.m_options.bScout = Below(2) == 0;
        m_board = BoardOf(problem.fen);
        m_moves = problem.moves;
        m_result = std::async(std::launch::async,
                              [this] { return StartSolving(m_task, m_board, m_moves); });
    }

    void DoSomething() {
        switch (Below(6)) {
            case 0:
                m_task.Pause();
                break;
            case 1:
                m_task.m_line.Ask(static_cast<std::uint16_t>(Below(20)));
                break;
            case 2: {
                const auto numbers = m_task.m_running.Numbers();
                if (!numbers.empty()) {
                    m_task.StopThread(numbers[Below(numbers.size())]);
                }
                break;
            }
            default:
                m_task.Resume();
                break;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(Below(3000)));
    }

    /// Milliseconds until the job has ended.
    std::int64_t StopAndWait() {
        const auto start = std::chrono::steady_clock::now();
        m_task.Stop();
        m_result.wait();
        return std::chrono::duration_cast<std::chrono::milliseconds>(
                   std::chrono::steady_clock::now() - start)
            .count();
    }
    TSolveResult Result() { return m_result.get(); }
    std::uint64_t Below(std::uint64_t limit) { return m_dice() % limit; }

  private:
    std::mt19937_64& m_dice;
    TSolveTask m_task;
    TChessboard m_board{};
    int m_moves = 0;
    std::future<TSolveResult> m_result;
};

constexpr std::int64_t StopWithinMs = 100;

/// Starts, pauses, resumes and stops until the actions or the time are used up. Returns how many stops
/// took too long.
int Mistreat(std::uint64_t seed, int actions, std::chrono::seconds atMost) {
    std::mt19937_64 dice(seed);
    const std::vector<TActedProblem> problems = ActedProblems();
    const auto end = std::chrono::steady_clock::now() + atMost;
    int slowStops = 0;
    while (actions > 0 && std::chrono::steady_clock::now() < end) {
        const TActedProblem& problem = problems[dice() % problems.size()];
        CMistreatedJob job(problem, dice);
        for (std::uint64_t i = job.Below(8); i > 0; --i, --actions) {
            job.DoSomething();
        }
        actions -= 2;
        slowStops += job.StopAndWait() > StopWithinMs ? 1 : 0;
        const TSolveResult result = job.Result();
        EXPECT_NE(result.status, TSolveStatus::Refused) << result.message;
        const std::vector<std::string>& want = problem.keys;
        if (want.empty()) {
            continue;
        }
        for (const std::string& key : KeyTexts(BoardOf(problem.fen), result.keys)) {
            EXPECT_NE(std::find(want.begin(), want.end(), key), want.end())
                << problem.fen << " #" << problem.moves << " " << key;
        }
        EXPECT_FALSE(result.status == TSolveStatus::NoMate && result.bSafeMode) << problem.fen;
    }
    return slowStops;
}

TEST(ThreadsUnderActions, KeepTheirHeads) {
    Mistreat(slow::TestSeed(), 100000, 60s);
}

TEST(SlowThreadsUnderActions, KeepTheirHeads) {
    Mistreat(slow::TestSeed() + 1, 2000, 1500s);
}

/// How long a stop takes is a matter of the machine's load, so only the worst is a fault here.
TEST(SlowThreadsUnderActions, AStopIsAnsweredAtOnce) {
    std::mt19937_64 dice(slow::TestSeed());
    constexpr int Stops = 1000;
    int slow = 0;
    for (int i = 0; i < Stops; ++i) {
        TSolveTask task;
        task.m_options = WithThreads(16, 1, true);
        const TChessboard board = BoardOf("7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5");
        auto result = std::async(std::launch::async, [&] { return StartSolving(task, board, 60); });
        std::this_thread::sleep_for(std::chrono::microseconds(dice() % 60000));
        const auto start = std::chrono::steady_clock::now();
        task.Stop();
        result.wait();
        slow += std::chrono::steady_clock::now() - start > 100ms ? 1 : 0;
    }
    RecordProperty("SlowStops", slow);
    EXPECT_LE(slow, Stops / 1000) << "of " << Stops;
}

TEST(ThreadsAndJobs, MoreThanTheLimitAreRefused) {
    const TChessboard board = BoardOf("7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5");
    std::vector<std::unique_ptr<TSolveTask>> tasks;
    std::vector<std::future<TSolveResult>> results;
    for (int i = 0; i < TasksLimit; ++i) {
        tasks.push_back(std::make_unique<TSolveTask>());
        tasks.back()->m_options.memoryMiB = 1;
        results.push_back(std::async(std::launch::async, [&task = *tasks.back(), &board] {
            return StartSolving(task, board, 60);
        }));
    }
    for (const auto& task : tasks) {
        for (int i = 0; i < 20000 && task->m_running.Numbers().empty(); ++i) {
            std::this_thread::sleep_for(1ms);
        }
    }
    const TSolveResult refused = Solve(board, 8, TEngineOptions());
    for (const auto& task : tasks) {
        task->Stop();
    }
    EXPECT_EQ(refused.status, TSolveStatus::Refused);
    EXPECT_EQ(refused.message, "Too many problems being solved at the same time.");
    for (auto& result : results) {
        EXPECT_EQ(result.get().status, TSolveStatus::Stopped);
    }
    EXPECT_EQ(Solve(board, 1, TEngineOptions()).status, TSolveStatus::NoMate);
}

TEST(ThreadsUnderActions, AStopForOneThreadWakesNoOtherFromAPause) {
    CSearchLine line("7k/8/8/8/8/8/8/K7", 3);
    line.SearchThread().m_shThreadNumber = 5;
    TEngineControl& control = line.Task().m_control;
    control.Pause();
    ASSERT_TRUE(control.TryStopThread(4));
    EXPECT_FALSE(control.IsRunning());
    EXPECT_TRUE(control.IsPaused());
    auto left = std::async(std::launch::async, [&] { return WaitOrLeave(line.SearchThread()); });
    EXPECT_EQ(left.wait_for(50ms), std::future_status::timeout);
    control.EndThreadStop();
    EXPECT_EQ(left.wait_for(50ms), std::future_status::timeout);
    control.Resume();
    EXPECT_FALSE(left.get()) << "it goes on";
}

/// There is no mate, but the move that the thread was searching has not been shown to fail.
TEST(ThreadsUnderActions, OneStoppedThreadLeavesNoFalseNoMate) {
    SKIP_IF_MISSING(LongFen);
    TSolveTask task;
    task.m_options = WithThreads(1, 1, true);
    bool bStopped = false;
    task.m_callbacks.onFirstMove = [&](TMove, int, int, int pass) {
        if (pass == FinalPass && !bStopped) {
            std::thread([&] { bStopped = task.StopThread(0); }).join();
        }
    };
    const TChessboard board = BoardOf(LongFen);
    EXPECT_EQ(StartSolving(task, board, 7).status, TSolveStatus::Stopped);
    EXPECT_TRUE(bStopped);
    EXPECT_TRUE(task.m_running.Numbers().empty());
    EXPECT_FALSE(task.IsStopped()) << "the stop was for one thread";
    EXPECT_EQ(Solve(board, 7, WithThreads(1, 1, true)).status, TSolveStatus::NoMate);
}

}  // namespace
}  // namespace tarnwick
