// The search with forcing moves only: which moves force, what each level finds, and that nothing but a
// mate ever comes out of it.

#include <gtest/gtest.h>

#include "engine/forced/forced_moves.h"
#include "forced_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

constexpr int LevelCount = static_cast<int>(TForcedLevel::Threat5) + 1;

TForcedLevel LevelOf(int i) {
    return static_cast<TForcedLevel>(i);
}

TMove MoveOfText(const std::string& text) {
    TMove move;
    ParseFullMove(move, text, true);
    return move;
}

// ---- Which moves force

/// From this level on the move forces; at none.
constexpr int Never = LevelCount;

struct TForcingCase {
    const char* name;
    const char* fen;
    std::vector<std::string> line;  ///< Played before.
    const char* move;
    int firstLevel;
    bool bCaptures = false;
};

class ForcingMoves : public testing::TestWithParam<TForcingCase> {};

TEST_P(ForcingMoves, ForceFromTheirLevelOn) {
    const TForcingCase& c = GetParam();
    for (int level = 0; level < LevelCount; ++level) {
        CForcedLine line(c.fen, 12, LevelOf(level));
        line.Parameters().bForcedCaptures = c.bCaptures;
        line.Play(c.line);
        EXPECT_EQ(IsForcedMove(line.Board(), MoveOfText(c.move)), level >= c.firstLevel)
            << "level " << level;
        EXPECT_EQ(line.SearchThread().m_quickerMateNesting, 0);
        EXPECT_EQ(line.Parameters().ForcedLevel, LevelOf(level));
    }
}

constexpr const char* RookOnD1 = "k7/1b6/8/3N4/8/8/8/3R1K2";
constexpr const char* KnightBesideKing = "8/8/4k3/5n2/8/8/5R2/K7";

INSTANTIATE_TEST_SUITE_P(
    Case, ForcingMoves,
    testing::Values(
        TForcingCase{"Check", "8/8/4k3/8/8/8/8/K6R", {}, "Rh1-e1", 0},
        TForcingCase{"QuietMove", "8/8/4k3/8/8/8/8/K6R", {}, "Ka1-a2", Never},
        TForcingCase{"AnswerToCheck", "k7/8/8/8/4r3/8/8/4K2R", {}, "Ke1-d2", 0},
        TForcingCase{"Promotion", "8/7P/8/8/8/k7/8/4K3", {}, "h7-h8R", 0},
        TForcingCase{"Recapture", RookOnD1, {"Kf1-g1", "Bb7:d5"}, "Rd1:d5", 0},
        TForcingCase{
            "OtherCapture", "8/1b6/k7/3N4/8/8/8/3R1K2", {"Kf1-g1", "Bb7-c8"}, "Nd5-e7", Never},
        TForcingCase{"LeavesOneReply", "7k/5K2/8/8/8/8/8/1R6", {}, "Rb1-b2", 0},
        TForcingCase{"LeavesTwoReplies", "k7/p1K5/8/3P4/8/8/8/8", {}, "d5-d6", 2},
        TForcingCase{"TakesTheLastField", "k7/p6p/2K5/8/8/8/3P4/8", {}, "Kc6-c7", 2},
        // The king gets the rook for nothing: only a capture beside it can be worth that.
        TForcingCase{"CaptureBesideKing", KnightBesideKing, {}, "Rf2:f5", 3, true},
        TForcingCase{"CaptureNotAskedFor", KnightBesideKing, {}, "Rf2:f5", Never},
        TForcingCase{"ThreatOfOne", "7k/p7/5K2/8/8/8/8/1R6", {}, "Kf6-g6", 1},
        // Two rooks drive the king to the edge; each rank takes a move.
        TForcingCase{"ThreatOfTwo", "8/6k1/8/8/8/8/7K/RR6", {}, "Ra1-a6", 3},
        TForcingCase{"ThreatOfThree", "8/8/6k1/8/8/8/7K/RR6", {}, "Ra1-a5", 5},
        TForcingCase{"ThreatOfFour", "8/8/8/6k1/8/8/7K/RR6", {}, "Ra1-a4", 6}),
    CaseName);

TEST(ForcedMoves, AThreatHasToFitIntoThePliesLeft) {
    const char* ladder = "8/8/6k1/8/8/8/7K/RR6";
    CForcedLine tooShort(ladder, 3, TForcedLevel::Threat3);
    EXPECT_FALSE(IsForcedMove(tooShort.Root(), MoveOfText("Ra1-a5")));
    CForcedLine justEnough(ladder, 4, TForcedLevel::Threat3);
    EXPECT_TRUE(IsForcedMove(justEnough.Root(), MoveOfText("Ra1-a5")));
}

TEST(ForcedMoves, TheListHasLegalMovesOnlyTheMostForcingFirst) {
    CForcedLine line("4r1k1/5pp1/7p/8/8/8/4R3/3QK3", 6, TForcedLevel::Threat1);
    TMove moves[MaxMovesOfSide];
    const int count = ListForcedMoves(line.Root(), moves);
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) {
        texts.push_back(MoveToDisplayText(moves[i], line.Root()));
    }
    // The rook is pinned, but its capture leaves one reply; the queen threatens it as mate.
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.front(), "Re2:e8");
    EXPECT_NE(std::find(texts.begin(), texts.end(), "Qd1-d3"), texts.end());
    EXPECT_EQ(std::find(texts.begin(), texts.end(), "Re2-a2"), texts.end());
}

// ---- What each level finds

struct TLevelCase {
    const char* name;
    const char* fen;
    int moves;
    const char* key;
    int level;
};

class ForcedLevels : public testing::TestWithParam<TLevelCase> {};

TEST_P(ForcedLevels, FindWhatAllWeakerOnesMiss) {
    const TLevelCase& c = GetParam();
    for (int level = 0; level <= c.level; ++level) {
        CForcedLine line(c.fen, c.moves, LevelOf(level));
        const std::uint32_t flags = line.Root().m_heuristicFlags.Raw();
        const std::uint32_t heurParams = line.Root().m_heuristicKey;
        const TForcedPass pass = line.RunPass();
        EXPECT_TRUE(pass.bOnlyDoubtful);
        const auto want =
            level < c.level ? std::vector<std::string>{} : std::vector{std::string(c.key)};
        EXPECT_EQ(pass.keys, want) << "level " << level;
        EXPECT_EQ(line.Root().m_heuristicFlags.Raw(), flags);
        EXPECT_EQ(line.Root().m_heuristicKey, heurParams);
        EXPECT_FALSE(line.SearchThread().m_bInForcedLevel);
        EXPECT_EQ(line.SearchThread().m_quickerMateNesting, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Case, ForcedLevels,
    testing::Values(TLevelCase{"Checks", "8/8/8/8/8/1Q6/5K1r/7k", 4, "Kf2-f1", 0},
                    TLevelCase{"ThreatOfOne", "2kr4/3p1K2/8/8/2B5/8/Q7/8", 4, "Qa2-a7", 1},
                    TLevelCase{"ThreatOfOnePlus", "7k/4Q1pb/8/7K/8/8/8/8", 4, "Qe7-e8", 2},
                    TLevelCase{"ThreatOfTwo", "8/8/N2K2Q1/Nn6/k7/8/8/8", 4, "Kd6-c5", 3},
                    TLevelCase{"ThreatOfTwoPlus", "1k6/6P1/8/1K6/8/5p2/8/8", 4, "Kb5-c6", 4},
                    TLevelCase{"ThreatOfThree", "8/8/3b1NQ1/8/8/7k/8/1K6", 5, "Qg6-g4", 5},
                    TLevelCase{"ThreatOfFour", "8/8/5R2/4n1P1/8/2k1K3/8/3R4", 6, "Rd1-c1", 6}),
    CaseName);

/// A king walled in by its own men, and a queen that comes with threats only.
constexpr const char* ForcedProblem = "6-8.10";

TEST(ForcedPass, NeedsAFractionOfTheOrdinaryWork) {
    SKIP_IF_MISSING(ForcedProblem);
    constexpr int Moves = 7;
    CForcedLine line(ForcedProblem, Moves, TForcedLevel::Threat1);
    EXPECT_EQ(line.RunPass().keys, std::vector<std::string>{"Qa3-g3"});
    TEngineOptions options = AllKeysWanted();
    options.bScout = false;
    options.nodeLimit = 100 * line.WorkNodes();
    EXPECT_TRUE(Solve(ForcedProblem, Moves, options).keys.empty())
        << "the ordinary search needs less than a hundred times the work";
}

TEST(ForcedPass, EndsAtOnceWhereNothingForces) {
    CForcedLine line("8/8/8/p7/P7/8/6k1/4K3", 20, TForcedLevel::Threat5);
    const TForcedPass pass = line.RunPass();
    EXPECT_TRUE(pass.keys.empty());
    EXPECT_TRUE(pass.bOnlyDoubtful);
    EXPECT_LT(line.WorkNodes(), 1000U);
}

// ---- The depth limit of its own

TEST(ForcedDepth, IsToldOnlyWhereItWasInTheWay) {
    const char* fen = "2kr4/3p1K2/8/8/2B5/8/Q7/8";  // A mate in four by a threat of one.
    const auto search = [&](int moves, int limit) {
        CForcedLine line(fen, moves, TForcedLevel::Threat1);
        return FindForcedMateWhite(line.Root(), limit);
    };
    EXPECT_EQ(search(6, NoForcedDepth), ResultMate);
    EXPECT_EQ(search(6, 4), ResultMate);
    EXPECT_EQ(search(6, 3), ResultEndOfFFMDepth);
    EXPECT_EQ(search(6, 1), ResultEndOfFFMDepth);
    EXPECT_EQ(search(3, NoForcedDepth), ResultDoubtful);
    EXPECT_EQ(search(3, 3), ResultDoubtful);
}

// ---- With other heuristics

std::vector<std::string> KeysWithOthers(const char* fen, TForcedLevel level,
                                        TForcedWithOthers others,
                                        std::uint32_t mask = SH_KEEPKINGONTHEEDGE) {
    CForcedLine line(fen, 5, level, mask);
    line.Parameters().ForcedWithOthers = others;
    line.Set(line.Root().m_heuristicFlags.Raw());
    return line.RunPass().keys;
}

TEST(ForcedWithOthers, TheyJudgeTheMovesOnlyIfWanted) {
    const char* offTheEdge = "7k/8/4P1BP/4R3/K7/7r/8/8";
    const std::vector<std::string> key = {"e6-e7"};
    EXPECT_EQ(KeysWithOthers(offTheEdge, TForcedLevel::Threat1, TForcedWithOthers::No), key);
    EXPECT_EQ(KeysWithOthers(offTheEdge, TForcedLevel::Threat1, TForcedWithOthers::Partially), key);
    EXPECT_TRUE(KeysWithOthers(offTheEdge, TForcedLevel::Threat1, TForcedWithOthers::Yes).empty());
}

TEST(ForcedWithOthers, PartiallyTheOrdinarySearchGoesOnWhereForcingEnds) {
    const char* quietEnd = "3N1k2/3R3K/8/2n4B/r7/n7/8/8";
    EXPECT_TRUE(KeysWithOthers(quietEnd, TForcedLevel::CheckOnly, TForcedWithOthers::No).empty());
    const std::vector<std::string> key = {"Rd7-f7"};
    EXPECT_EQ(KeysWithOthers(quietEnd, TForcedLevel::CheckOnly, TForcedWithOthers::Partially), key);
    // With nothing that holds the king there is nothing to go on with.
    const auto keysWith = [&](std::uint32_t mask) {
        return KeysWithOthers(quietEnd, TForcedLevel::CheckOnly, TForcedWithOthers::Partially,
                              mask);
    };
    EXPECT_EQ(keysWith(SH_ASSERTBLACKKINGSURROUNDED), key);
    EXPECT_TRUE(keysWith(SH_AREKINGSNEAR).empty());
}

// ---- Agreement with who tries everything

bool AreAmong(const std::vector<std::string>& found, const std::vector<std::string>& all) {
    return std::includes(all.begin(), all.end(), found.begin(), found.end());
}

struct TAgreement {
    int mates = 0;  ///< Keys that there are.
    int found = 0;  ///< Keys that the forced passes found.

    void Check(const std::string& fen, int moves, int level) {
        const auto want = slow::AllKeys(slow::FromFen(fen), moves);
        CForcedLine line(fen, moves, LevelOf(level), level % 2 == 0 ? 0 : SH_KEEPKINGONTHEEDGE);
        line.Parameters().ForcedWithOthers = static_cast<TForcedWithOthers>(level % 3);
        line.Parameters().bForcedCaptures = level % 4 == 3;
        line.Set(line.Root().m_heuristicFlags.Raw());
        const TForcedPass pass = line.RunPass();
        ASSERT_TRUE(pass.bOnlyDoubtful);
        ASSERT_TRUE(AreAmong(pass.keys, want)) << fen << " #" << moves << " level " << level;
        // A forced pass that stored a "no mate" it had not proved would hide a key from the next one.
        ASSERT_EQ(line.OrdinaryKeys(want), want) << fen << " #" << moves << " level " << level;
        mates += static_cast<int>(want.size());
        found += static_cast<int>(pass.keys.size());
    }
};

void CheckAgainstSlowSolver(std::uint64_t seed, int moves, int count, int maxMen) {
    slow::CRandomPositions positions(seed, {.minMen = 4, .maxMen = maxMen});
    TAgreement agreement;
    for (int i = 0; i < count; ++i) {
        const std::string fen = positions.Next();
        ASSERT_NO_FATAL_FAILURE(agreement.Check(fen, moves, i % LevelCount)) << positions.Story();
    }
    EXPECT_GT(agreement.found, agreement.mates / 4);
    EXPECT_GT(agreement.found, count / 20);
}

TEST(ForcedAgreement, AMateFoundIsAMateAndNothingElseIsSettled) {
    CheckAgainstSlowSolver(slow::TestSeed() + 31, 3, 80, 10);
}

TEST(SlowForcedAgreement, MatesInThreeAndFour) {
    CheckAgainstSlowSolver(slow::TestSeed() + 32, 3, 1200, 12);
    CheckAgainstSlowSolver(slow::TestSeed() + 33, 4, 60, 6);
}

// ---- Stops and threads

TEST(ForcedStop, WhatAStoppedSearchLeavesHidesNothing) {
    const char* fen = "8/8/5R2/4n1P1/8/2k1K3/8/3R4";
    CForcedLine whole(fen, 6, TForcedLevel::Threat4);
    const auto key = whole.RunPass().keys;
    ASSERT_EQ(key.size(), 1U);
    for (std::uint64_t part = 1; part <= 7; ++part) {
        TEngineOptions options = CForcedLine::WithRegister();
        options.nodeLimit = whole.WorkNodes() * part / 8;
        CForcedLine stopped(fen, 6, TForcedLevel::Threat4, 0, options);
        const TForcedPass pass = stopped.RunPass();
        EXPECT_TRUE(stopped.Task().IsStopped());
        EXPECT_TRUE(pass.bOnlyDoubtful);
        EXPECT_TRUE(AreAmong(pass.keys, key));
        EXPECT_EQ(stopped.Parameters().ForcedLevel, TForcedLevel::Threat4);

        CForcedLine next(fen, 6, TForcedLevel::Threat4);
        next.SearchThread().m_pRegister = stopped.Task().m_pRegister.get();
        EXPECT_EQ(next.RunPass().keys, key) << "stopped after " << part << " eighths";
    }
}

TEST(ForcedStop, ComesAtOnce) {
    SKIP_IF_MISSING(ForcedProblem);
    CForcedLine line(ForcedProblem, 7, TForcedLevel::Threat5);
    line.Task().Stop();
    EXPECT_TRUE(line.RunPass().keys.empty());
    EXPECT_EQ(line.WorkNodes(), 0U);
}

TEST(ForcedThreads, FindTheSameKeys) {
    SKIP_IF_MISSING("6-8.19");
    const char* fen = "6-8.19";
    const auto keysWith = [&](int threads, int& joined) {
        TEngineOptions options = CForcedLine::WithRegister();
        options.threads = static_cast<std::uint16_t>(threads);
        CForcedLine line(fen, 8, TForcedLevel::Threat2, 0, options);
        line.Task().m_threadCount = options.threads;
        line.Task().m_multithreadingLevels = static_cast<std::uint8_t>(threads);
        line.SearchThread().m_threadsPerLevel = options.threads;
        line.Task().m_callbacks.onDeepNode = [&joined] { ++joined; };
        const auto keys = line.RunPass().keys;
        EXPECT_FALSE(line.SearchThread().m_bInForcedLevel);
        return keys;
    };
    int alone = 0;
    const auto want = keysWith(1, alone);
    for (const int threads : {2, 4}) {
        int joined = 0;
        EXPECT_EQ(keysWith(threads, joined), want) << threads << " threads";
        EXPECT_GT(joined, alone) << "no thread was ever made";
    }
}

}  // namespace
}  // namespace tarnwick
