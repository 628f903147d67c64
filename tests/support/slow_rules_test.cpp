// The reference is tested against counts and keys that others have published, and by hand where its rules
// are those of problems.

#include "support/slow_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/shared_problems.h"
#include "support/slow_solver.h"

namespace tarnwick::slow {
namespace {

bool IsLegalText(const TSlowPosition& position, const std::string& text) {
    return FindMove(position, text).has_value();
}

struct TPerftCase {
    const char* name;
    const char* fen;
    int plies;
    std::uint64_t count;
};

class ReferencePerft : public testing::TestWithParam<TPerftCase> {};

TEST_P(ReferencePerft, EqualsThePublishedCount) {
    EXPECT_EQ(Perft(FromFen(GetParam().fen), GetParam().plies), GetParam().count);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Published, ReferencePerft, testing::Values(
    TPerftCase{"Initial",   "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -",             4, 197281},
    TPerftCase{"Kiwipete",  "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -", 3, 97862},
    TPerftCase{"RookEnd",   "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - -",                            4, 43238},
    TPerftCase{"Middle",    "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w",  3, 89890}),
    CaseName);
// clang-format on

struct TLineCase {
    const char* name;
    const char* fen;
    std::vector<std::string> line;
    const char* move;
    bool isLegal;
};

class ReferenceLine : public testing::TestWithParam<TLineCase> {};

TEST_P(ReferenceLine, AllowsOrForbidsTheNextMove) {
    const TSlowPosition position = PlayLine(FromFen(GetParam().fen), GetParam().line);
    EXPECT_EQ(IsLegalText(position, GetParam().move), GetParam().isLegal);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Castling, ReferenceLine, testing::Values(
    TLineCase{"MenAtHomeAreEnough",  "r3k2r/8/8/8/8/8/8/R3K2R", {"Ra1-a2"}, "0-0-0", true},
    TLineCase{"RookCameBack",        "4k3/7p/8/8/8/8/8/R3K2R", {"Rh1-g1", "h7-h6", "Rg1-h1", "h6-h5"}, "0-0", false},
    TLineCase{"OtherRookStayed",     "4k3/7p/8/8/8/8/8/R3K2R", {"Rh1-g1", "h7-h6", "Rg1-h1", "h6-h5"}, "0-0-0", true},
    TLineCase{"KingCameBack",        "4k3/7p/8/8/8/8/8/R3K2R", {"Ke1-e2", "h7-h6", "Ke2-e1", "h6-h5"}, "0-0-0", false},
    TLineCase{"TakenAndReplaced",    "4k3/8/8/3b4/8/8/8/R3K2R", {"Ra1-b1", "Bd5:h1", "Rb1-c1", "Bh1-d5", "Rc1-b1", "Bd5-a8", "Rb1-b8", "Ke8-d7", "Rb8:a8", "Kd7-d6", "Ra8-h8", "Kd6-d5", "Rh8-h1", "Kd5-d6"}, "0-0", false},
    TLineCase{"CameHomeAfterRoot",   "4k3/7p/8/8/8/8/7R/4K3", {"Rh2-h1", "h7-h6"}, "0-0", false},
    TLineCase{"AttackedRookMay",     "4k3/8/8/3b4/8/8/8/4K2R", {}, "0-0", true},
    TLineCase{"NotThroughAttack",    "4k3/8/8/1b6/8/8/8/4K2R", {}, "0-0", false},
    TLineCase{"NotIntoAttack",       "4k3/8/8/2b5/8/8/8/4K2R", {}, "0-0", false},
    TLineCase{"NotOutOfCheck",       "4k3/8/8/4r3/8/8/8/4K2R", {}, "0-0", false},
    TLineCase{"B1MayBeAttacked",     "1r2k3/8/8/8/8/8/8/R3K3", {}, "0-0-0", true},
    TLineCase{"B1MayNotBeTaken",     "4k3/8/8/8/8/8/8/RN2K3", {}, "0-0-0", false}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(EnPassant, ReferenceLine, testing::Values(
    TLineCase{"NotInTheFirstMove",   "4k3/8/8/3pP3/8/8/8/4K3", {}, "e5:d6", false},
    TLineCase{"AfterTheDoubleStep",  "4k3/3p4/8/4P3/8/8/8/4K3", {"Ke1-e2", "d7-d5"}, "e5:d6", true},
    TLineCase{"NotAMoveLater",       "4k3/3p4/8/4P3/8/8/8/4K3", {"Ke1-e2", "d7-d5", "Ke2-e1", "Ke8-e7"}, "e5:d6", false},
    TLineCase{"NotAfterASingleStep", "4k3/8/3p4/4P3/8/8/8/4K3", {"Ke1-e2", "d6-d5"}, "e5:d6", false},
    TLineCase{"NotAfterARook",       "4k3/3r4/8/4P3/8/8/8/4K3", {"Ke1-e2", "Rd7-d5"}, "e5:d6", false},
    TLineCase{"NotRoundTheBoard",    "4k3/p7/8/7P/8/8/8/4K3", {"Ke1-e2", "a7-a5"}, "h5:a6", false},
    TLineCase{"BlackTakesToo",       "4k3/8/8/8/3p4/8/4P3/4K3", {"e2-e4"}, "d4:e3", true},
    TLineCase{"BlackKingOnTheRank",  "4K3/8/8/8/R2p3k/8/4P3/8", {"e2-e4"}, "d4:e3", false},
    TLineCase{"WhiteKingOnTheRank",  "4k3/3p4/8/K3P2r/8/8/8/8", {"Ka5-b5", "d7-d5"}, "e5:d6", false},
    TLineCase{"TakesTheChecker",     "7k/3p4/8/4P3/2K5/8/8/8", {"Kc4-c3", "Kh8-g8", "Kc3-c4", "d7-d5"}, "e5:d6", true}),
    CaseName);
// clang-format on

TEST(ReferenceRules, MovesAreWrittenInFullNotation) {
    const TSlowPosition promotion = FromFen("1n5k/P7/8/8/8/8/8/R3K3");
    for (const char* text : {"a7-a8Q", "a7:b8N", "Ra1-a6", "0-0-0", "Ke1-d2"}) {
        EXPECT_TRUE(IsLegalText(promotion, text)) << text;
    }
    EXPECT_FALSE(IsLegalText(promotion, "a7-a8"));
    EXPECT_FALSE(IsLegalText(promotion, "a7-a8K"));
}

TEST(ReferenceRules, PlayedMovesLeaveTheMenWhereTheyBelong) {
    const TSlowPosition castled = PlayLine(FromFen("r3k3/8/8/8/8/8/8/4K2R"), {"0-0", "0-0-0"});
    EXPECT_EQ(PlacementText(castled), "2kr4/8/8/8/8/8/8/5RK1");
    const TSlowPosition passed =
        PlayLine(FromFen("4k3/3p4/8/4P3/8/8/6p1/4K3"), {"Ke1-f2", "d7-d5", "e5:d6", "g2-g1N"});
    EXPECT_EQ(PlacementText(passed), "4k3/8/3P4/8/8/8/5K2/6n1");
}

TEST(ReferenceRules, BrokenFenIsRefused) {
    for (const char* fen :
         {"", "8/8/8/8/8/8/8", "8/8/8/8/8/8/8/8/8", "8/8/8/8/8/8/8/7", "9/8/8/8/8/8/8/8",
          "8/8/8/8/8/8/8/4x3", "8/8/8/8/8/8/8/K8", "8/8/8/8/8/8/8/08"}) {
        EXPECT_THROW(FromFen(fen), std::invalid_argument) << fen;
    }
}

struct TKeysCase {
    const char* name;
    const char* fen;
    int moves;
    std::vector<std::string> keys;
};

class ReferenceKeys : public testing::TestWithParam<TKeysCase> {};

TEST_P(ReferenceKeys, AreAllFound) {
    EXPECT_EQ(AllKeys(FromFen(GetParam().fen), GetParam().moves), GetParam().keys);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(ByHand, ReferenceKeys, testing::Values(
    TKeysCase{"StalemateIsNoMate",  "k7/8/1K6/8/8/8/8/2Q5", 1, {"Qc1-c8"}},
    TKeysCase{"ShorterMatesCount",  "k7/p1K5/8/8/8/8/8/3B4", 3, {"Bd1-f3"}},
    TKeysCase{"KnightPromotion",    "6bn/5P1k/5K1p/8/8/8/8/8", 1, {"f7-f8N"}},
    TKeysCase{"CastlingMates",      "8/8/8/8/8/8/3R3b/R3K1k1", 1, {"0-0-0"}},
    TKeysCase{"EnPassantMates",     "k7/4p3/8/2KP4/4Q3/8/7B/8", 2, {"Kc5-b6"}},
    TKeysCase{"BareKingsNever",     "8/8/8/8/8/8/8/K1k5", 3, {}},
    TKeysCase{"NothingInNoMoves",   "7k/8/6K1/8/8/8/8/R7", 0, {}}),
    CaseName);
// clang-format on

TEST(ReferenceSolver, FindsTheKeysOfPublishedProblems) {
    const std::vector<TSharedProblem> problems = ReadSharedProblems();
    if (problems.empty()) {
        GTEST_SKIP() << "The shared problems are not on this machine";
    }
    int solved = 0;
    for (const TSharedProblem& problem : problems) {
        if (problem.moves <= 3) {
            EXPECT_EQ(AllKeys(FromFen(problem.fen), problem.moves), problem.keys) << problem.name;
            ++solved;
        }
    }
    EXPECT_GE(solved, 10);
}

/// A solution that plays the first of the slow solver's keys.
std::string FirstKey(const TSlowPosition& position, int movesLeft) {
    const std::vector<std::string> keys = AllKeys(position, movesLeft);
    return keys.empty() ? "" : keys.front();
}

TEST(FindFlaw, AcceptsASolutionAndNamesTheLineThatFails) {
    SKIP_IF_MISSING("short.8");
    const TSlowPosition position = FromFen(SharedPosition("short.8"));  // mate in 3 by Nc7-e6
    EXPECT_EQ(FindFlaw(position, 3, FirstKey), "");
    EXPECT_NE(FindFlaw(position, 2, FirstKey), "");
    const auto shuffle = [](const TSlowPosition& at, int) { return LegalMoveTexts(at).front(); };
    EXPECT_NE(FindFlaw(position, 3, shuffle), "");
    const auto illegal = [](const TSlowPosition&, int) { return std::string("Nc7-c8"); };
    EXPECT_NE(FindFlaw(position, 3, illegal).find("no legal move"), std::string::npos);
    const auto stalemate = [](const TSlowPosition&, int) { return std::string("Qc1-c7"); };
    EXPECT_NE(FindFlaw(FromFen("k7/8/1K6/8/8/8/8/2Q5"), 2, stalemate).find("stalemate"),
              std::string::npos);
}

TEST(RandomPositions, AreLegalInEverySetting) {
    CRandomPositions positions(TestSeed(), {.minMen = 4, .maxMen = 9});
    for (int i = 0; i < 100 * SettingCount; ++i) {
        const std::string fen = positions.Next(static_cast<TSetting>(i % SettingCount));
        SCOPED_TRACE(positions.Story() + ": " + fen);
        const TSlowPosition position = FromFen(fen);
        const auto& board = position.board;
        const auto men = 64 - std::count(board.begin(), board.end(), '.');
        EXPECT_TRUE(men >= 4 && men <= 9);
        EXPECT_EQ(std::count(board.begin(), board.end(), 'K'), 1);
        EXPECT_EQ(std::count(board.begin(), board.end(), 'k'), 1);
        EXPECT_FALSE(InCheck(FromFen(fen, false)));
        const std::string edgeRanks = fen.substr(0, fen.find('/')) + fen.substr(fen.rfind('/'));
        EXPECT_EQ(edgeRanks.find_first_of("Pp"), std::string::npos);
    }
}

// The laws are worth little if the positions hold no mates, or nothing but mates.
TEST(RandomPositions, MixHoldsMatesOfEachLength) {
    CRandomPositions positions(TestSeed());
    std::map<int, int> counts;
    for (int i = 0; i < 150; ++i) {
        ++counts[ShortestMate(FromFen(positions.Next()), 2)];
    }
    EXPECT_GE(counts[0], 60) << positions.Story();
    EXPECT_GE(counts[1], 5) << positions.Story();
    EXPECT_GE(counts[2], 3) << positions.Story();
}

TEST(RandomGame, MeetsEveryKindOfMove) {
    CRandomPositions positions(TestSeed());
    std::map<std::string, int> kinds;
    for (unsigned i = 0; i < 300; ++i) {
        for (const TGameStep& step : RandomGame(TestSeed() + i, positions.Next(), 20)) {
            ASSERT_FALSE(InCheck(FromFen(PlacementText(step.after), step.before.isWhiteToMove)));
            const std::string side = step.before.isWhiteToMove ? "white " : "black ";
            kinds[side + "castling"] += IsCastling(step.before, step.move);
            kinds[side + "en passant"] += IsEnPassant(step.before, step.move);
            kinds[side + "promotion"] += step.move.promotion != 0;
            kinds[side + "in check"] += InCheck(step.before);
            kinds["mate"] += IsMate(step.after);
        }
    }
    EXPECT_EQ(kinds.size(), 9U);
    for (const auto& [kind, count] : kinds) {
        EXPECT_GE(count, 2) << kind << " in games from seed " << TestSeed();
    }
}

}  // namespace
}  // namespace tarnwick::slow
