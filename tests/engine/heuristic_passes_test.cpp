// Jobs with passes of heuristics: whatever set is in force, a key found is a key, and once the pass without
// heuristics has run, the keys are all there are.

#include "engine/jobs/heuristic_passes.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_names.h"
#include "engine/jobs/analyze_problem.h"
#include "engine/jobs/prepare_root.h"
#include "solution_tree.h"
#include "solve_support.h"
#include "support/random_positions.h"
#include "support/shared_problems.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

constexpr std::uint32_t AllHeuristics = 0xCFFFFEFF;

THeuristicSet RandomSet(slow::CDice& dice) {
    THeuristicSet set;
    const int count = 1 + dice.Below(5);
    for (int i = 0; i < count; ++i) {
        set.mask |= AllHeuristics & (1U << dice.Below(32));
    }
    if ((set.mask & SH_FINDFORCEDMATE) != 0) {
        set.mask &= ~SH_SEASNAKE;
    }
    TSpecialHeuristics& p = set.parameters;
    p.bKingStrict = dice.Chance(30);
    p.bKingAlmostStrict = dice.Chance(50);
    p.bExtEdgeStrict = dice.Chance(50);
    p.bSurroundedStrict = dice.Chance(30);
    p.bPromotedStrict = dice.Chance(30);
    p.bHeuristicsFallback = dice.Chance(50);
    p.bUnblockDynamic = dice.Chance(50);
    p.CornerDistance = static_cast<std::int8_t>(dice.Below(7) - 3);
    p.LoseFiguresPawnMode = static_cast<std::uint8_t>(dice.Below(3));
    p.KeyField = static_cast<std::uint8_t>(dice.Below(64));
    p.KeyWhiteFigureField = static_cast<std::uint8_t>(dice.Below(64));
    p.KeyLine = static_cast<std::uint8_t>(dice.Below(8));
    p.ForcedLevel = p.ForcedStartLevel = static_cast<TForcedLevel>(dice.Below(8));
    p.ForcedWithOthers = static_cast<TForcedWithOthers>(dice.Below(4));
    p.ForcedRelaxations = static_cast<std::uint8_t>(dice.Below(3));
    set.oneColourMode = (set.mask & SH_ONECOLORPLAYPOSSIBLE) != 0
                            ? static_cast<std::uint8_t>(SeparatedBlackBishop)
                            : std::uint8_t{0};
    return set;
}

struct TRun {
    std::vector<std::string> keys;
    TSolveResult result;
};

TRun RunWith(const std::string& fen, int moves, const THeuristicSet& set, TEngineOptions options) {
    const TChessboard board = BoardOf(fen);
    TSolveTask task;
    options.bAllSolutions = true;
    options.heuristics = THeuristicsFrom::User;
    task.m_options = options;
    task.m_givenHeuristics = set;
    TRun run;
    run.result = StartSolving(task, board, moves);
    run.keys = KeyTexts(board, run.result.keys);
    return run;
}

std::string Story(const std::string& fen, int moves, const THeuristicSet& set) {
    return fen + " #" + std::to_string(moves) + " " +
           HeuristicListText(set.mask, set.parameters, set.oneColourMode);
}

/// With the last pass exactly the keys; without it none that is none.
void CheckRandomSets(std::uint64_t seed, int moves, int maxMen, int count) {
    slow::CRandomPositions positions(seed, {.maxMen = maxMen});
    slow::CDice dice(seed);
    int foundBefore = 0;
    for (int i = 0; i < count; ++i) {
        const std::string fen = positions.Next();
        const THeuristicSet set = RandomSet(dice);
        SCOPED_TRACE(positions.Story() + " " + Story(fen, moves, set));
        const auto want = slow::AllKeys(slow::FromFen(fen), moves);
        TEngineOptions options;
        options.positionMemoryMiB = 1;
        options.memoryMiB = 64;
        options.bRegisterAlways = dice.Chance(50);
        options.threads = dice.Chance(20) ? 3 : 1;
        ASSERT_EQ(RunWith(fen, moves, set, options).keys, want);
        options.bRunPassWithoutHeuristics = false;
        options.bLetRelaxHeuristics = dice.Chance(50);
        const TRun strict = RunWith(fen, moves, set, options);
        ASSERT_TRUE(
            std::includes(want.begin(), want.end(), strict.keys.begin(), strict.keys.end()));
        if (strict.result.status == TSolveStatus::NoMate) {
            ASSERT_TRUE(want.empty());  // The sieve may settle it; the passes behind it never do.
        }
        foundBefore += static_cast<int>(strict.keys.size());
    }
    EXPECT_GT(foundBefore, 0);  // The passes with heuristics did something.
}

TEST(HeuristicPasses, AgreeWithTheSlowSolver) {
    CheckRandomSets(slow::TestSeed(), 2, 10, 300);
    CheckRandomSets(slow::TestSeed() + 1, 3, 6, 60);
}

TEST(SlowHeuristicPasses, AgreeWithTheSlowSolver) {
    for (std::uint64_t seed = 100; seed < 110; ++seed) {
        CheckRandomSets(seed, 2, 12, 500);
        CheckRandomSets(seed, 3, 8, 200);
        CheckRandomSets(seed, 4, 5, 30);
    }
}

TEST(HeuristicPasses, AnalysisLosesNoKey) {
    slow::CRandomPositions positions(slow::TestSeed() + 2, {.maxMen = 9});
    TEngineOptions options = AllKeysWanted();
    options.heuristics = THeuristicsFrom::Analysis;
    options.bAnalyseAlways = true;
    for (int i = 0; i < 100; ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story() + " " + fen);
        const TChessboard board = BoardOf(fen);
        ASSERT_EQ(KeyTexts(board, Solve(board, 2, options).keys),
                  slow::AllKeys(slow::FromFen(fen), 2));
    }
}

TEST(HeuristicPasses, PassesAreReportedInTheirOrder) {
    THeuristicSet set;
    set.mask = SH_KEEPKINGONTHEEDGE | SH_DONTLOSEANYFIGURES;
    const TRun run = RunWith("8/8/8/8/8/3k4/8/R3K3", 5, set, {});
    ASSERT_EQ(run.result.status, TSolveStatus::NoMate);
    ASSERT_GE(run.result.passes.size(), 3u);
    EXPECT_EQ(run.result.passes.front().name, "0");
    EXPECT_EQ(run.result.passes[1].name, "1");
    EXPECT_NE(run.result.passes[1].heuristics.find("SH_KEEPKINGONTHEEDGE"), std::string::npos);
    EXPECT_EQ(run.result.passes.back().name, "2");
    EXPECT_EQ(run.result.passes.back().heuristics, "");
}

TEST(HeuristicPasses, WithoutTheLastPassNothingIsProved) {
    THeuristicSet set;
    set.mask = SH_KEEPKINGONTHEEDGE;
    TEngineOptions options;
    options.bRunPassWithoutHeuristics = false;
    EXPECT_EQ(RunWith("8/8/8/8/8/3k4/8/R3K3", 5, set, options).result.status, TSolveStatus::Open);
    // Keys are found, but nothing shows that the other moves are none.
    options.bLetRelaxHeuristics = false;
    const TRun found = RunWith("4k3/8/8/8/8/8/R7/1R2K3", 5, set, options);
    EXPECT_EQ(found.result.status, TSolveStatus::Mate);
    EXPECT_FALSE(found.keys.empty() || found.result.bComplete);
    EXPECT_EQ(found.result.message, "");
}

TEST(HeuristicPasses, WithoutRelaxationThereIsOnePass) {
    THeuristicSet set;
    set.mask = SH_KEEPKINGONTHEEDGE | SH_DONTLOSEANYFIGURES;
    TEngineOptions options;
    options.bLetRelaxHeuristics = false;
    const TRun run = RunWith("8/8/8/8/8/3k4/8/R3K3", 5, set, options);
    ASSERT_EQ(run.result.passes.size(), 3u);  // sieve, heuristics, without
    EXPECT_EQ(run.result.passes[1].name, "1");
}

class LadderOfAJob : public testing::TestWithParam<const char*> {};

/// What the user is shown is what his job will run, whether the engine or he himself chose the first set.
TEST_P(LadderOfAJob, IsTheOneShownBefore) {
    const TChessboard position = BoardOf(GetParam());
    constexpr int Moves = 9;
    const TProblemAnalysis shown = AnalyzeProblem(position, Moves);
    for (const THeuristicsFrom from : {THeuristicsFrom::Analysis, THeuristicsFrom::User}) {
        TSolveTask task;
        task.m_shPlies = task.m_shRepetitionFrom = 2 * Moves - 1;
        task.m_options.heuristics = from;
        task.m_givenHeuristics = shown.set;
        const auto thread = std::make_unique<TThreadContext>(task, 1);
        TChessboard root = PrepareRoot(task, *thread, position);
        thread->m_pRootBoard = &root;
        ChooseHeuristics(task, *thread, root);
        std::vector<std::string> lists;
        for (const THeuristicRung& rung : HeuristicLadder(root)) {
            lists.push_back(HeuristicListText(rung.mask, rung.parameters, rung.oneColourMode));
        }
        std::vector<std::string> want;
        for (const TAnalyzedPass& pass : shown.passes) {
            want.push_back(pass.heuristics);
        }
        EXPECT_GT(want.size(), 1u);
        EXPECT_EQ(lists, want);
    }
}

INSTANTIATE_TEST_SUITE_P(Position, LadderOfAJob,
                         testing::Values("5k2/8/8/8/8/8/5B2/4K2R", "8/8/8/8/2N5/2BB4/3KN3/5k2",
                                         "5k2/3p1n1p/1P1p4/5K2/6PB/6p1/2p5/Rr6"));

/// Every problem of the shared file under one set: all its keys and no other.
void CheckSharedProblems(const THeuristicSet* pSet) {
    for (const TSharedProblem& problem : ReadSharedProblems()) {
        SCOPED_TRACE(problem.name);
        TEngineOptions options = AllKeysWanted(8);
        if (pSet != nullptr) {
            EXPECT_EQ(RunWith(problem.fen, problem.moves, *pSet, options).keys, problem.keys);
            continue;
        }
        options.heuristics = THeuristicsFrom::Analysis;
        options.bAnalyseAlways = true;
        const TChessboard board = BoardOf(problem.fen);
        EXPECT_EQ(KeyTexts(board, Solve(board, problem.moves, options).keys), problem.keys);
    }
}

TEST(SlowHeuristicPasses, SharedProblemsKeepTheirKeysWithTheAnalysis) {
    CheckSharedProblems(nullptr);
}

class SlowSharedProblemsUnderOneHeuristic : public testing::TestWithParam<std::uint32_t> {};

TEST_P(SlowSharedProblemsUnderOneHeuristic, KeepTheirKeys) {
    THeuristicSet set;
    set.mask = GetParam();
    set.parameters.LoseFiguresPawnMode = 0;
    CheckSharedProblems(&set);
}

std::vector<std::uint32_t> SingleBitsOf(std::uint32_t mask) {
    std::vector<std::uint32_t> bits;
    for (; mask != 0; mask &= mask - 1) {
        bits.push_back(mask & (~mask + 1));
    }
    return bits;
}

INSTANTIATE_TEST_SUITE_P(Bits, SlowSharedProblemsUnderOneHeuristic,
                         testing::ValuesIn(SingleBitsOf(AllHeuristics)));

// ---- Longer mates, which no slow solver can judge: the tree of the solution is walked

struct TLongProblem {
    const char* id;
    int moves;
};

void CheckTree(const TLongProblem& problem, THeuristicsFrom from, const THeuristicSet& set) {
    const TChessboard board = BoardOf(problem.id);
    TSolveTask task;
    task.m_options.heuristics = from;
    task.m_options.memoryMiB = 512;
    task.m_options.timeLimitMs = 30'000;
    task.m_givenHeuristics = set;
    const TSolveResult result = StartSolving(task, board, problem.moves);
    SCOPED_TRACE(Story(problem.id, problem.moves, set) + " by " + result.passFound);
    if (from == THeuristicsFrom::Analysis) {
        ASSERT_EQ(result.status, TSolveStatus::Mate);
    }
    if (result.keys.empty()) {
        return;  // Stopped by the limit, or no set of heuristics finds all mates.
    }
    ASSERT_NE(task.m_pRegister, nullptr);
    CSolutionTree tree(*task.m_pRegister);
    EXPECT_TRUE(tree.Confirms(slow::FromFen(SharedPosition(problem.id)),
                              KeyTexts(board, result.keys)[0], problem.moves));
}

constexpr TLongProblem LongProblems[] = {
    {"9-10.02", 9},
    {"9-10.04", 9},
    {"9-10.09", 9},
    {"9-10.17", 10},
};

TEST(HeuristicPasses, LongMatesAreMates) {
    SKIP_IF_MISSING(LongProblems[0].id);
    for (const TLongProblem& problem : LongProblems) {
        CheckTree(problem, THeuristicsFrom::Analysis, {});
    }
}

TEST(SlowHeuristicPasses, LongMatesAreMatesUnderRandomSets) {
    SKIP_IF_MISSING(LongProblems[0].id);
    slow::CDice dice(slow::TestSeed());
    for (int i = 0; i < 25; ++i) {
        for (const TLongProblem& problem : LongProblems) {
            CheckTree(problem, THeuristicsFrom::User, RandomSet(dice));
        }
    }
}

}  // namespace
}  // namespace tarnwick
