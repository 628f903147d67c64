// What a job leaves behind besides its keys: texts for the user, the line in hand, move logs, and the
// cache of results.

#include <gtest/gtest.h>

#include <thread>

#include "base/language.h"

#include "engine/jobs/moves_logger.h"
#include "engine/jobs/progress_text.h"
#include "engine/jobs/result_texts.h"
#include "engine/jobs/results_cache.h"
#include "solve_support.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

constexpr const char* QueenEnding = "8/8/8/4k3/8/8/8/1Q2K3";

constexpr const char* QueenFen = "6-8.04";
constexpr const char* LongFen = "6-8.19";

TSolveResult ResultWith(TSolveStatus status, std::size_t keys) {
    TSolveResult result;
    result.status = status;
    result.keys.resize(keys);
    return result;
}

TEST(ResultTexts, NameStopRulesAndNotes) {
    TEngineOptions options;
    options.bAllSolutions = true;
    EXPECT_EQ(ResultText(ResultWith(TSolveStatus::Mate, 1), options, 4, {}), "");
    EXPECT_EQ(ResultText(ResultWith(TSolveStatus::Mate, 4), options, 4, {}),
              "More than one solution found: 4");
    options.bStopOnDual = true;
    EXPECT_EQ(ResultText(ResultWith(TSolveStatus::Mate, 2), options, 4, {}),
              "Search for solutions has been stopped after detection of dual.");
    EXPECT_EQ(ResultText(ResultWith(TSolveStatus::Stopped, 0), options, 4, {}),
              "Analysis stopped by user");
    TSolveResult none = ResultWith(TSolveStatus::NoMate, 0);
    EXPECT_EQ(ResultText(none, options, 17, {}), "Not found any solutions for #17");
    none.bSafeMode = false;
    const std::string noted = ResultText(none, options, 17, {.bRelaxationOff = true});
    EXPECT_NE(noted.find("\n\nNote:\n\t* there was only one pass"), std::string::npos) << noted;
    EXPECT_NE(noted.find("false negatives"), std::string::npos);
    EXPECT_EQ(noted.find("skipped"), std::string::npos);
}

TEST(ProgressTexts, TellTheLine) {
    SKIP_IF_MISSING(QueenFen);
    CSearchLine line(QueenFen, 11);
    EXPECT_EQ(ProgressText(line.Board()), "SH:0h");
    line.Play({"Qf6-f8", "Rd7-d8", "Qf8-f5"});
    EXPECT_EQ(ProgressText(line.Board()), "1. Qf6-f8, Rd7-d8, 2. Qf8-f5 SH:0h");
}

TEST(ThreadsLineInHand, IsToldWhileTheJobRuns) {
    TSolveTask task;
    task.m_line.Ask(0);
    task.m_options.timeLimitMs = 20000;
    const TChessboard board = BoardOf("7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5");
    std::thread solver([&] { StartSolving(task, board, 60); });
    std::string text;
    for (int i = 0; i < 10000 && text.empty(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        text = task.m_line.Text();
    }
    task.Stop();
    solver.join();
    EXPECT_EQ(text.substr(0, 3), "1. ") << text;
    EXPECT_NE(text.find("SH:0h"), std::string::npos);
}

/// Whatever a callback throws, on whatever thread, the job ends with what it has and leaves nothing behind.
TEST(ThrowingCallbacks, EndTheJobWithAText) {
    for (const int threads : {1, 2}) {
        for (const bool bStandard : {false, true}) {
            for (const bool bAtPass : {false, true}) {
                TSolveTask task;
                task.m_options.threads = static_cast<std::uint16_t>(threads);
                const auto fail = [bStandard] {
                    if (bStandard) {
                        throw std::runtime_error("no paper");
                    }
                    throw 1;
                };
                task.m_callbacks.onFirstMove = [&](TMove, int, int, int) {
                    bAtPass ? void() : fail();
                };
                task.m_callbacks.onPass = [&](const std::string&, const std::string&) {
                    bAtPass ? fail() : void();
                };
                const TSolveResult result = StartSolving(task, BoardOf(QueenEnding), 5);
                EXPECT_EQ(result.status, TSolveStatus::Stopped);
                EXPECT_NE(result.message.find(bStandard ? "no paper" : "unknown"),
                          std::string::npos)
                    << result.message;
                EXPECT_EQ(task.m_pContexts, nullptr);
            }
        }
    }
}

// ---- Logs

std::string LogOf(const CTempFolder& folder, const char* name, int threads) {
    TSolveTask task;
    task.m_options.bLogMoves = true;
    task.m_options.logFolder = folder.Path();
    task.m_options.threads = static_cast<std::uint16_t>(threads);
    task.m_options.bScout = false;  // its moves are no line of play
    task.m_problemNumber = 7;
    StartSolving(task, BoardOf(QueenFen), 6);
    return ReadBytes(folder / name);
}

TEST(MovesLog, IsTheSameForTheSameRun) {
    SKIP_IF_MISSING(QueenFen);
    const CTempFolder first;
    const CTempFolder second;
    const std::string text = LogOf(first, "MovesLogger_problem7_thread0.log", 1);
    EXPECT_EQ(text, LogOf(second, "MovesLogger_problem7_thread0.log", 1));
    EXPECT_EQ(text.substr(0, 53), "----------------------------------------------------\n");
    EXPECT_NE(text.find("    1. Qf6-f8 Pass 2\n"), std::string::npos);
    EXPECT_NE(text.find("\n      1 ...  Rd7-d8 "), std::string::npos);
    EXPECT_NE(text.find("\n    1 ...mate\n"), std::string::npos) << text.substr(text.size() - 200);
}

TEST(MovesLog, EachThreadHasItsOwn) {
    SKIP_IF_MISSING(QueenFen);
    const CTempFolder folder;
    EXPECT_FALSE(LogOf(folder, "MovesLogger_problem7_thread1.log", 2).empty());
    EXPECT_EQ(folder.Count(), 2u);
}

TEST(MovesLog, LoggingChangesNoNode) {
    SKIP_IF_MISSING(QueenFen);
    const CTempFolder folder;
    TSolveTask task;
    task.m_options.bLogMoves = true;
    task.m_options.logFolder = folder.Path();
    const TSolveResult logged = StartSolving(task, BoardOf(QueenFen), 6);
    EXPECT_EQ(logged.workNodes, Solve(QueenFen, 6, TEngineOptions()).workNodes);
}

TEST(MirroredRun, FindsTheKeysOfTheProblemItself) {
    SKIP_IF_MISSING(LongFen);
    const TChessboard board = BoardOf(LongFen);
    TSolveTask task;
    task.m_options.bAllSolutions = true;
    const TSolveResult mirrored = StartSolvingMirrored(task, board, 8);
    EXPECT_EQ(KeyTexts(board, mirrored.keys), std::vector<std::string>{"Ng3-f1"});
    EXPECT_TRUE(mirrored.bComplete);
}

// ---- Results of earlier runs

std::shared_ptr<TChessboardRegister<bool>> EmptyCache(const TChessboard& board) {
    auto cache = std::make_shared<TChessboardRegister<bool>>();
    cache->bNoFile = true;
    cache->UpdateLimits(ComputeRegisterLimits(std::uint64_t{1} << 30, 100));
    cache->SetRootPosition(board);
    return cache;
}

TSolveResult SolveCached(const std::shared_ptr<TChessboardRegister<bool>>& cache, int moves,
                         bool bAll, bool bQuick = false) {
    TSolveTask task;
    task.m_options.bAllSolutions = bAll;
    task.m_options.bQuickMode = bQuick;
    task.m_resultsCache = cache;
    return StartSolving(task, BoardOf(LongFen), moves);
}

TEST(ResultsCache, AnswersWhatIsAskedAgain) {
    SKIP_IF_MISSING(LongFen);
    const TChessboard board = BoardOf(LongFen);
    const auto cache = EmptyCache(board);
    const TSolveResult one = SolveCached(cache, 8, false);
    EXPECT_FALSE(one.bFromResultsCache);
    EXPECT_TRUE(SolveCached(cache, 8, false).bFromResultsCache);
    EXPECT_TRUE(SolveCached(cache, 9, false).bFromResultsCache) << "a mate in 8 is one in 9";

    const TSolveResult all = SolveCached(cache, 8, true);
    EXPECT_FALSE(all.bFromResultsCache) << "one key is not all";
    const TSolveResult again = SolveCached(cache, 8, true);
    EXPECT_TRUE(again.bFromResultsCache);
    EXPECT_TRUE(again.bComplete);
    EXPECT_EQ(KeyTexts(board, again.keys), KeyTexts(board, all.keys));
    EXPECT_FALSE(SolveCached(cache, 7, true).bFromResultsCache) << "shorter is another question";
}

TEST(ResultsCache, TakesInOnlyProofs) {
    SKIP_IF_MISSING(LongFen);
    const TChessboard board = BoardOf(LongFen);
    const auto cache = EmptyCache(board);
    EXPECT_EQ(SolveCached(cache, 7, false, true).status, TSolveStatus::NoMate);
    EXPECT_TRUE(cache->Answers().empty()) << "quick mode proves nothing";
    EXPECT_EQ(SolveCached(cache, 7, false).status, TSolveStatus::NoMate);
    const TSolveResult again = SolveCached(cache, 7, false);
    EXPECT_TRUE(again.bFromResultsCache);
    EXPECT_EQ(again.status, TSolveStatus::NoMate);
    TSolveTask stopped;
    stopped.m_resultsCache = EmptyCache(board);
    stopped.Stop();
    StartSolving(stopped, board, 8);
    EXPECT_TRUE(stopped.m_resultsCache->Answers().empty());
}

}  // namespace
}  // namespace tarnwick
