// The search with its register against the slow solver: the register is forced on below its usual gate,
// because only there somebody else knows the answer.

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/search/find_mate.h"
#include "engine/search/known_positions.h"
#include "heuristic_line.h"
#include "registers/register_limits.h"
#include "support/random_positions.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

/// One way to run a solve.
struct TSetup {
    int threads;
    bool bQuick;
    bool bRegister;
    std::int64_t memoryMiB;  ///< 0: a register without room.
};

constexpr TSetup Setups[] = {{1, false, true, 64}, {4, false, true, 64}, {1, true, true, 64},
                             {4, true, true, 64},  {1, false, false, 0}, {4, true, false, 0},
                             {1, false, true, 1},  {2, true, true, 1}};

TEngineOptions OptionsOf(const TSetup& setup) {
    TEngineOptions options;
    options.bAllSolutions = true;
    options.threads = static_cast<std::uint16_t>(setup.threads);
    options.bQuickMode = setup.bQuick;
    options.bRegisterAlways = setup.bRegister;
    options.memoryMiB = setup.memoryMiB;
    options.positionMemoryMiB = 0;  // the register alone has to answer
    return options;
}

/// Safe mode: exactly the keys. Quick mode: no key that is none; what it misses is counted.
struct TAgreement {
    int positions = 0;
    int mates = 0;
    int missedByQuickMode = 0;

    void Check(const std::string& fen, int moves, const TSetup& setup) {
        const TChessboard board = BoardOf(fen);
        const auto want = slow::AllKeys(slow::FromFen(fen), moves);
        const auto got = KeyTexts(board, Solve(board, moves, OptionsOf(setup)).keys);
        ++positions;
        mates += want.empty() ? 0 : 1;
        if (!setup.bQuick) {
            ASSERT_EQ(got, want) << fen << " #" << moves << " threads " << setup.threads;
            return;
        }
        ASSERT_TRUE(std::includes(want.begin(), want.end(), got.begin(), got.end()))
            << fen << " #" << moves << " quick, threads " << setup.threads;
        missedByQuickMode += got.size() < want.size() ? 1 : 0;
    }
};

void CheckPositions(std::uint64_t seed, int moves, int count, int maxMen) {
    slow::CRandomPositions positions(seed, {.minMen = 3, .maxMen = maxMen});
    TAgreement agreement;
    for (int i = 0; i < count; ++i) {
        const std::string fen = positions.Next();
        const TSetup& setup = Setups[static_cast<std::size_t>(i) % std::size(Setups)];
        ASSERT_NO_FATAL_FAILURE(agreement.Check(fen, moves, setup)) << positions.Story();
    }
    EXPECT_GT(agreement.mates, count / 50);
    testing::Test::RecordProperty("MissedByQuickMode", agreement.missedByQuickMode);
}

TEST(RegisterInSearch, GivesTheKeysOfTheSlowSolver) {
    CheckPositions(slow::TestSeed() + 20, 2, 400, 12);
    CheckPositions(slow::TestSeed() + 21, 3, 160, 10);
}

TEST(RegisterInSearch, KeepsCastlingAndEnPassantApart) {
    slow::CRandomPositions positions(slow::TestSeed() + 22, {.minMen = 4, .maxMen = 7});
    TAgreement agreement;
    for (int i = 0; i < 160; ++i) {
        const std::string fen =
            positions.Next(i % 2 == 0 ? slow::TSetting::Castling : slow::TSetting::EnPassant);
        ASSERT_NO_FATAL_FAILURE(agreement.Check(fen, 3, Setups[static_cast<std::size_t>(i) % 2]));
    }
}

class SlowRegisterInSearch : public testing::TestWithParam<int> {};

/// One tenth of twenty thousand positions.
TEST_P(SlowRegisterInSearch, GivesTheKeysOfTheSlowSolver) {
    const auto seed = slow::TestSeed() + 3000 + 10 * static_cast<std::uint64_t>(GetParam());
    CheckPositions(seed, 1, 100, 12);
    CheckPositions(seed + 1, 2, 1000, 12);
    CheckPositions(seed + 2, 3, 800, 11);
    CheckPositions(seed + 3, 4, 100, 7);
}

INSTANTIATE_TEST_SUITE_P(Part, SlowRegisterInSearch, testing::Range(0, 10));

/// "Doubtful" belongs to the pass of its heuristics: a pass that proves has to search.
TEST(RegisterInSearch, DoubtfulAnswersCountInThePassWithHeuristicsOnly) {
    for (const int pass : {0, 1, 2}) {
        CHeuristicLine line("7k/8/5K2/8/8/8/8/R7", SH_AREKINGSNEAR, 5);
        TAggregatedTemporaryChessboardRegister known{TRegisterSettings{}};
        known.SetBucketCount(1024, false);
        known.UpdateLimits(ComputeRegisterLimits(std::uint64_t{1} << 30, 16));
        line.SearchThread().m_pRegister = &known;
        TChessboard& root = line.Root();
        StoreKnownDoubtful(root, WhatMayBeKnown(root));
        root.m_pass = static_cast<std::uint8_t>(pass);
        EXPECT_EQ(FindMateWhiteToMove(root, true), pass == 1 ? ResultDoubtful : ResultMate) << pass;
    }
}

/// A register that is full nearly at once throws away all the time; answers stay.
TEST(FullRegister, ChangesNoAnswer) {
    SKIP_IF_MISSING("6-8.13");
    const TChessboard board = BoardOf("6-8.13");
    TEngineOptions roomy;
    roomy.bAllSolutions = true;
    roomy.positionMemoryMiB = 1;
    TEngineOptions tight = roomy;
    tight.memoryMiB = 1;
    const TSolveResult want = Solve(board, 6, roomy);
    const TSolveResult got = Solve(board, 6, tight);
    EXPECT_TRUE(got.bComplete);
    EXPECT_EQ(KeyTexts(board, got.keys), KeyTexts(board, want.keys));
    EXPECT_LE(got.registerElements, (std::uint64_t{1} << 20) * 73 / 100 / 96);
}

TEST(GivenRegister, AnswersARunAgain) {
    SKIP_IF_MISSING("6-8.19");
    const TChessboard board = BoardOf("6-8.19");
    TSolveTask first;
    first.m_options.bAllSolutions = true;
    first.m_options.bScout = false;
    const TSolveResult want = StartSolving(first, board, 8);
    TSolveTask second;
    second.m_options = first.m_options;
    second.m_pRegister = first.m_pRegister;
    const TSolveResult got = StartSolving(second, board, 8);
    EXPECT_EQ(KeyTexts(board, got.keys), KeyTexts(board, want.keys));
    EXPECT_LT(got.workNodes, want.workNodes / 10);
}

}  // namespace
}  // namespace tarnwick
