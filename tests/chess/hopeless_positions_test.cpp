#include "chess/hopeless_positions.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/board_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

bool IsHopeless(CBoardLine& line, std::uint16_t shPlies) {
    TChessboard board = line.Board();
    board.m_shPlies = shPlies;
    UpdateWrongBishopMark(board);
    return IsHopelessForWhite(board);
}

struct TCase {
    const char* name;
    const char* fen;
    int plies;
    bool isHopeless;
};

const TCase Cases[] = {
    {"KingAlone", "qrbnk3/pppp4/8/8/8/8/8/7K", 99, true},
    {"LoneBishopAgainstBareKing", "k7/8/K7/8/8/8/8/6B1", 99, true},
    {"LoneKnightMayMateASmotheredKing", "kn6/p7/K7/8/8/8/8/6N1", 99, false},
    {"TwoKnightsAgainstBareKing", "7k/8/5NK1/8/8/8/8/6N1", 99, true},
    {"TwoKnightsAgainstAPawn", "7k/8/5NK1/8/8/8/p7/6N1", 99, false},
    {"BishopAndKnight", "7k/8/5NK1/8/8/8/8/6B1", 99, false},
    {"BishopsOfOneColour", "7k/8/6K1/8/8/8/8/4B1B1", 99, true},
    {"BishopsOfBothColours", "7k/8/6K1/8/8/8/8/4BB2", 99, false},
    {"RookPawnBlockedByTheKing", "8/k7/8/P7/K7/8/8/8", 99, true},
    {"KnightPawn", "8/1k6/8/1P6/1K6/8/8/8", 99, false},
    {"PawnTooFarFromQueening", "8/8/4k3/8/8/8/1P6/K7", 7, true},
    {"PawnWithTimeToQueen", "8/8/4k3/8/8/8/1P6/K7", 11, false},
    {"RightBishopKingInTheCorner", "k7/8/8/P7/K7/8/8/3B4", 99, false},
    {"WrongBishopKingInTheCorner", "k7/8/8/P7/K7/8/8/4B3", 99, true},
    {"WrongBishopKingAway", "8/8/4k3/P7/K7/8/8/4B3", 99, false},
};

class Hopeless : public ::testing::TestWithParam<TCase> {};

TEST_P(Hopeless, OrNot) {
    CBoardLine line(GetParam().fen);
    EXPECT_EQ(IsHopeless(line, static_cast<std::uint16_t>(GetParam().plies)),
              GetParam().isHopeless);
}

INSTANTIATE_TEST_SUITE_P(Positions, Hopeless, ::testing::ValuesIn(Cases), CaseName);

TEST(HopelessPositions, HaveNoShortMate) {
    slow::CRandomPositions positions(slow::TestSeed(), {.minMen = 3, .maxMen = 6});
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    int hopeless = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::string fen = positions.Next(slow::TSetting::NearlyBare);
        line.Restart(slow::FromFen(fen));
        for (const int moves : {2, 3}) {
            if (IsHopeless(line, static_cast<std::uint16_t>(2 * moves - 1))) {
                ++hopeless;
                EXPECT_FALSE(slow::MateIn(line.Slow(), moves)) << positions.Story() << ": " << fen;
            }
        }
    }
    EXPECT_GT(hopeless, 1000);
}

TEST(HopelessPositions, BlackMoveSaysSoOnlyWithThreePliesLeft) {
    CBoardLine early("7k/8/8/8/8/8/r7/N3K3", false, 4);
    const TMove capture = {static_cast<TField>(FieldOf("a2")), A1, 0, 0};
    EXPECT_EQ(early.Try(capture), MoveMadeHopeless);
    CBoardLine late("7k/8/8/8/8/8/r7/N3K3", false, 2);
    EXPECT_EQ(late.Try(capture), MoveMade);
}

TEST(HopelessPositions, LastBlackManFallsOnlyToForceThatCanMate) {
    const TMove capture = {static_cast<TField>(FieldOf("g2")), static_cast<TField>(FieldOf("d5")),
                           0, 0};
    CBoardLine bishop("7k/8/8/3p4/8/8/6B1/K7");
    EXPECT_EQ(bishop.Try(capture), MoveRefused);
    CBoardLine pair("7k/8/8/3p4/8/8/6B1/K4B2");
    EXPECT_EQ(pair.Try(capture), MoveRefused) << "both on light fields";
    CBoardLine both("7k/8/8/3p4/8/8/6B1/K3B3");
    EXPECT_EQ(both.Try(capture), MoveMade);
    EXPECT_TRUE(both.Tried().m_searchFlags.Has(TSearchFlag::BareBlackKing));
}

TEST(HopelessPositions, TwoKnightsMayOnlyMateAtOnce) {
    CBoardLine line("7k/4N3/6K1/5N2/8/8/8/8", true);
    EXPECT_EQ(line.AcceptedMoves(), slow::AllKeys(line.Slow(), 1));
}

TEST(HopelessPositions, TheWrongBishopStaysMarkedThroughTheLine) {
    const TMove toTheCorner = {B8, A8, 0, 0};
    for (const auto& [fen, result] : {std::pair{"1k6/8/8/P7/K7/8/8/4B3", MoveMadeHopeless},
                                      {"1k6/8/8/P7/K7/8/8/3B4", MoveMade}}) {
        CBoardLine line(fen);
        UpdateWrongBishopMark(line.Board());  // No make operation does it.
        line.Play({"Ka4-b5"});
        EXPECT_EQ(line.Try(toTheCorner), result) << fen;
    }
}

}  // namespace
}  // namespace tarnwick
