#include "chess/perft.h"

#include <gtest/gtest.h>

#include "support/board_line.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

/// Positions and counts published for chess programs. Chosen so that the castlings granted there are
/// those that the men allow, that no en passant is possible in the first move, and that White keeps the
/// force to mate.
struct TCase {
    const char* name;
    const char* fen;
    bool isWhiteToMove;
    int depth;
    std::uint64_t count;
};

constexpr const char* Start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR";
constexpr const char* ManyCaptures = "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R";
constexpr const char* RookEnding = "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8";
constexpr const char* Promotions = "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1";
constexpr const char* PromotionsMirrored = "r2q1rk1/pP1p2pp/Q4n2/bbp1p3/Np6/1B3NBn/pPPP1PPP/R3K2R";
constexpr const char* PawnNearPromotion = "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R";
constexpr const char* Middlegame = "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1";

std::uint64_t CountAt(const TCase& c) {
    CBoardLine line(c.fen, c.isWhiteToMove);
    return PerftOfPosition(line.Board(), c.depth);
}

const TCase Cases[] = {
    {"Start4", Start, true, 4, 197281},
    {"Start5", Start, true, 5, 4865609},
    {"ManyCaptures4", ManyCaptures, true, 4, 4085603},
    {"RookEnding6", RookEnding, true, 6, 11030083},
    {"Promotions5", Promotions, true, 5, 15833292},
    {"PromotionsMirrored5", PromotionsMirrored, false, 5, 15833292},
    {"PawnNearPromotion4", PawnNearPromotion, true, 4, 2103487},
    {"Middlegame4", Middlegame, true, 4, 3894594},
};

class PerftCounts : public ::testing::TestWithParam<TCase> {};

TEST_P(PerftCounts, EqualThePublishedOnes) {
    EXPECT_EQ(CountAt(GetParam()), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(Perft, PerftCounts, ::testing::ValuesIn(Cases), CaseName);

const TCase SlowCases[] = {
    {"Start6", Start, true, 6, 119060324},
    {"ManyCaptures5", ManyCaptures, true, 5, 193690690},
    {"RookEnding7", RookEnding, true, 7, 178633661},
    {"PawnNearPromotion5", PawnNearPromotion, true, 5, 89941194},
    {"Middlegame5", Middlegame, true, 5, 164075551},
};

class SlowPerftCounts : public ::testing::TestWithParam<TCase> {};

TEST_P(SlowPerftCounts, EqualThePublishedOnes) {
    EXPECT_EQ(CountAt(GetParam()), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(SlowPerft, SlowPerftCounts, ::testing::ValuesIn(SlowCases), CaseName);

// Where the rules of problems part from those of the tournament hall.

TEST(PerftDiffers, CastlingFollowsFromTheMenAlone) {
    // With all rights withheld the published count is 24: rooks 19, king 5.
    constexpr const char* fen = "4k3/8/8/8/8/8/8/R3K2R";
    CBoardLine line(fen);
    EXPECT_EQ(PerftOfPosition(line.Board(), 1), 24 + 2U);
    EXPECT_EQ(PerftOfPosition(line.Board(), 4), slow::Perft(slow::FromFen(fen), 4));
}

TEST(PerftDiffers, NoEnPassantInTheFirstMove) {
    // After d7-d5 in a game, e5:d6 would be the seventh move.
    constexpr const char* fen = "4k3/8/8/3pP3/8/8/8/4K3";
    CBoardLine line(fen);
    EXPECT_EQ(PerftOfPosition(line.Board(), 1), 6U);
    EXPECT_EQ(PerftOfPosition(line.Board(), 4), slow::Perft(slow::FromFen(fen), 4));
}

TEST(PerftDiffers, LastBlackManIsNotTakenWhenOneColouredBishopsRemain) {
    constexpr const char* fen = "8/8/8/3p3k/8/8/6B1/K7";
    CBoardLine line(fen);
    EXPECT_EQ(PerftOfPosition(line.Board(), 1), slow::Perft(slow::FromFen(fen), 1) - 1);
}

}  // namespace
}  // namespace tarnwick
