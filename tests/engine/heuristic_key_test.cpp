#include "engine/heuristics/heuristic_key.h"

#include <gtest/gtest.h>

#include "engine/heuristics/heuristic_bits.h"
#include "solve_support.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

// Black men without pawns, by fields: Nb1 0, Ka8 1, Rb8 2; with pawns: Nb1 0, Pa7 1, Ka8 2, Rb8 3.
constexpr const char* Fen = "kr6/p7/8/8/8/8/3Q4/1n5K";

void Track(TSpecialHeuristics& p, std::initializer_list<std::array<std::uint8_t, 2>> men) {
    for (const auto& [first, now] : men) {
        const auto index = static_cast<std::size_t>(p.UnblockFieldCount++);
        p.UnblockInitialFields[index] = first;
        p.UnblockFields[index] = now;
    }
}

/// A board, the parameters of its thread, and the word worked out by hand.
struct TKeyCase {
    const char* name;
    std::uint32_t mask;
    void (*arrange)(TChessboard& board, TSpecialHeuristics& p);
    std::uint32_t word;
};

class HeuristicKey : public ::testing::TestWithParam<TKeyCase> {};

TEST_P(HeuristicKey, IsTheWordWorkedOutByHand) {
    CSearchLine line(Fen, 21);
    GetParam().arrange(line.Board(), line.SearchThread().m_heuristics);
    SetHeuristics(line.Board(), GetParam().mask);
    EXPECT_EQ(line.Board().m_heuristicFlags.Raw(), GetParam().mask);
    EXPECT_EQ(line.Board().m_heuristicKey, GetParam().word);
}

INSTANTIATE_TEST_SUITE_P(
    Words, HeuristicKey,
    ::testing::Values(
        TKeyCase{"EmptySetWithParameters", 0,
                 [](TChessboard& board, TSpecialHeuristics& p) {
                     board.m_heuristicKey = 77;
                     p.bUnblockDynamic = true;
                     p.CornerDistance = 3;
                 },
                 0},
        TKeyCase{"DynamicFlagAlone", SH_AREKINGSNEAR,
                 [](TChessboard&, TSpecialHeuristics& p) { p.bUnblockDynamic = true; }, 1},
        TKeyCase{"StrictEdgeRelaxedByAPawnWithCorners", SH_KEEPKINGONTHEEDGE,
                 [](TChessboard& board, TSpecialHeuristics& p) {
                     p.bKingStrict = p.bIncludeInnerCorners = true;
                     p.bKingAlmostStrict = false;
                     board.m_stateBits.Set(TStateBit::RelaxedByPawn);
                 },
                 0b1011},
        TKeyCase{"ExtendedEdge", SH_KEEPKINGWITHINEXTEDGE,
                 [](TChessboard& board, TSpecialHeuristics& p) {
                     p.RelaxFiguresCaptured = 2;
                     board.m_stateBits.Set(TStateBit::RelaxedByPawn);
                 },
                 0b1011},
        TKeyCase{"LowerBitsComeFirst", SH_KEEPKINGONTHEEDGE | SH_ASSERTBLACKKINGSURROUNDED,
                 [](TChessboard&, TSpecialHeuristics& p) { p.bSurroundedStrict = true; }, 0b01001},
        TKeyCase{"StrictnessSwitchedOffInThisLine", SH_KEEPKINGONTHEEDGE,
                 [](TChessboard& board, TSpecialHeuristics& p) {
                     p.bKingStrict = true;
                     board.m_stateBits.Set(TStateBit::StrictnessOff);
                 },
                 0b0100},
        TKeyCase{"Triangle", SH_ZUGZWANGTRIANGLES,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     p.TriangleField1 = 9;
                     p.TriangleField2 = 18;
                 },
                 9 * 64 + 18},
        TKeyCase{"TriangleNotFoundWrapsRound", SH_ZUGZWANGTRIANGLES,
                 [](TChessboard&, TSpecialHeuristics&) {}, 0xFFFFFFBF},
        TKeyCase{"FiveSmallParameters",
                 SH_ONECOLORPLAYPOSSIBLE | SH_SAVEQUEENROOK | SH_DONTLOSEANYFIGURES |
                     SH_CAPTUREKNIGHT | SH_SKIPWORSTWHITEMOVES,
                 [](TChessboard& board, TSpecialHeuristics& p) {
                     board.m_captureState = SeparatedBlackBishop;
                     board.m_stateBits.Set(TStateBit::QueenSaved);
                     p.bSaveIncludesRook = p.bCaptureKnightVariant = true;
                     p.LoseFiguresPawnMode = 2;
                 },
                 0b11'11'10'1'1},
        TKeyCase{"CornerInMoves", SH_KEEPKINGNEARCORNER,
                 [](TChessboard&, TSpecialHeuristics& p) { p.CornerDistance = -3; }, 0xFFFFFFFF},
        TKeyCase{"KeyFigureComesBeforeTheOthers", SH_KEYWHITEFIGURE | SH_KEEPKINGNEARCORNER,
                 [](TChessboard&, TSpecialHeuristics& p) { p.KeyWhiteFigureField = 18; },
                 18 * 8 + 1},
        TKeyCase{"SingleQueenComesLast", SH_SINGLEQUEENMATE | SH_KEEPKINGNEARCORNER,
                 [](TChessboard&, TSpecialHeuristics& p) { p.SingleQueenTable = 3; }, 0b0111},
        // 2 for checks only: 2 * 8 = 16; (16 + 2) * 2 - 28 = 8.
        TKeyCase{"ForcedChecks", SH_FINDFORCEDMATE, [](TChessboard&, TSpecialHeuristics&) {}, 8},
        // (16 + 1) * 2 - 28 = 6.
        TKeyCase{"ForcedChecksWithOthers", SH_FINDFORCEDMATE,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     p.ForcedWithOthers = TForcedWithOthers::Yes;
                 },
                 6},
        // 5 + 4 * 8 = 37, 37 * 8 = 296; 296 * 2 - 18 = 574, and 1.
        TKeyCase{"ForcedThreatsOfACustomSetBehindTheEdge", SH_FINDFORCEDMATE | SH_KEEPKINGONTHEEDGE,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     p.ForcedLevel = TForcedLevel::Threat2;
                     p.bForcedCustom = p.bForcedInitialPass = true;
                 },
                 575},

        TKeyCase{"FollowedRookAmongPawns", SH_DONTLETFIGUREUNBLOCK,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     Track(p, {{57, 57}});
                     p.bUnblockWithPawns = true;
                 },
                 0b11000 * 2},
        TKeyCase{"FollowedRookInASetThatShrank", SH_DONTLETFIGUREUNBLOCK,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     Track(p, {{57, 57}});
                     p.bUnblockEffective = true;
                 },
                 0b1101 * 2},
        TKeyCase{"CapturedManHasNoNumber", SH_DONTLETFIGUREUNBLOCK,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     Track(p, {{57, 57}, {1, 255}});
                 },
                 0b1100 * 2},
        TKeyCase{"ByInitialFieldsNoneMoved", SH_DONTLETFIGUREUNBLOCK,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     Track(p, {{57, 57}, {1, 1}});
                     p.bUnblockFromFields = false;
                 },
                 (0b101 * 2 + 1) * 2},
        TKeyCase{"ByInitialFieldsOneMoved", SH_DONTLETFIGUREUNBLOCK,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     Track(p, {{57, 49}, {1, 1}});
                     p.bUnblockFromFields = false;
                 },
                 (0b101 * 128 + 49) * 2},
        // Six fields are 36 bits: the shift by 37 is one by 5, the first field falls out at the top.
        TKeyCase{"SixMovedMenWrapRound", SH_DONTLETFIGUREUNBLOCK,
                 [](TChessboard&, TSpecialHeuristics& p) {
                     Track(p, {{57, 60}, {57, 0}, {57, 0}, {57, 0}, {57, 0}, {57, 1}});
                     p.bUnblockFromFields = false;
                 },
                 (0b100 * 32 + 1) * 2}),
    CaseName);

TEST(HeuristicKeys, FollowedMenKeepTheirNumbersThroughTheSearch) {
    CSearchLine line(Fen, 21);
    Track(line.SearchThread().m_heuristics, {{57, 57}});
    SetHeuristics(line.Board(), SH_DONTLETFIGUREUNBLOCK);
    const std::uint32_t key = line.Board().m_heuristicKey;
    line.Play({"Qd2-d1", "Ka8-b7", "Qd1xb1", "Kb7-c7"});
    UpdateHeurParams(line.Board());
    EXPECT_EQ(line.Board().m_heuristicKey, key) << "the knight before it is gone";
}

TEST(HeuristicKeys, InAnAnalysisOfBlackMovesTheFirstBoardNumbersTheMen) {
    CSearchLine line(Fen, 20);
    Track(line.SearchThread().m_heuristics, {{57, 57}});
    line.Play({"Ka8-b7", "Qd2-d1", "Kb7-c7", "Qd1xb1", "Kc7-d7"});
    // Each reply is solved with a root of its own.
    line.SearchThread().m_pRootBoard = &line.Board();
    SetHeuristics(line.Board(), SH_DONTLETFIGUREUNBLOCK);
    EXPECT_EQ(line.Board().m_heuristicKey, 0b1100U * 2);
}

}  // namespace
}  // namespace tarnwick
