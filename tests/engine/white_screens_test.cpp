// Which white moves the screens of a pass with heuristics reject.

#include "engine/heuristics/white_screens.h"

#include <gtest/gtest.h>

#include "engine/heuristics/kings_room.h"
#include "engine/heuristics/tracked_men.h"
#include "heuristic_line.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

// ---- The sweeping rook

struct TSweepCase {
    const char* name;
    const char* fen;
    const char* move;
    bool bRejected;
    int nesting = 0;
};

class SweepingRook : public testing::TestWithParam<TSweepCase> {};

TEST_P(SweepingRook, Screens) {
    CHeuristicLine line(GetParam().fen, SH_SWEEPINGWHITEROOK);
    line.SearchThread().m_quickerMateNesting = GetParam().nesting;
    EXPECT_EQ(IsScreenedOut(line.Play({GetParam().move}).Board()), GetParam().bRejected);
}

INSTANTIATE_TEST_SUITE_P(
    Case, SweepingRook,
    testing::Values(
        TSweepCase{"OnTheFirstRank", "6bk/7p/8/8/p6p/8/8/R5K1", "Ra1-d1", false},
        TSweepCase{"BelowThePawns", "6bk/7p/8/8/p6p/8/8/R5K1", "Ra1-a3", false},
        TSweepCase{"BesideAPawn", "6bk/7p/8/8/p6p/8/8/3R2K1", "Rd1-d5", true},
        TSweepCase{"InAShortSearchFromElsewhere", "6bk/7p/8/8/p6p/8/8/3R2K1", "Rd1-d5", false, 1},
        TSweepCase{"TakesAPawn", "6bk/7p/8/8/p6p/8/8/R5K1", "Ra1xa4", false},
        TSweepCase{"TakesAPawnWhileAnotherRuns", "6bk/7p/8/8/p6p/8/1p6/R5K1", "Ra1xa4", true},
        TSweepCase{"TakesAPawnWithAMateThreat", "7k/6pp/8/8/p7/8/1p5n/R5K1", "Ra1xa4", false},
        TSweepCase{"GivesCheck", "7k/5b1p/8/8/p6p/8/8/3R2K1", "Rd1-d8", false},
        TSweepCase{"NoCheck", "7k/5b1p/8/8/p6p/8/8/3R2K1", "Rd1-d7", true},
        TSweepCase{"IntoACapture", "7k/7p/8/8/p3b2p/8/8/3R2K1", "Rd1-d3", true},
        TSweepCase{"BesideTheCapture", "7k/7p/8/8/p3b2p/8/8/3R2K1", "Rd1-d2", false},
        TSweepCase{"UncoveredBesideTheKing", "8/7p/8/p6p/7b/4k3/8/3R2K1", "Rd1-d2", true},
        TSweepCase{"CoveredBesideTheKing", "8/7p/8/p6p/7b/4k3/8/2KR4", "Rd1-d2", false},
        TSweepCase{"BearsOnAPinnedMan", "4k3/8/4n3/8/8/7p/8/R3R1K1", "Ra1-a6", false},
        TSweepCase{"BearsOnAFreeMan", "4k3/8/4n3/8/8/7p/8/R2R2K1", "Ra1-a6", true},
        TSweepCase{"BlackHasNoFigures", "7k/7p/8/8/p6p/8/8/3R2K1", "Rd1-d5", false}),
    CaseName);

TEST(SweepingRookEnd, WinningAFigureSafelyEndsTheSweepBelow) {
    CHeuristicLine line("b6k/7p/8/8/p2n3p/8/8/3R2K1", SH_SWEEPINGWHITEROOK);
    const std::uint32_t key = line.Root().m_heuristicKey;
    EXPECT_FALSE(IsScreenedOut(line.Play({"Rd1xd4"}).Board()));
    EXPECT_FALSE(line.Has(SH_SWEEPINGWHITEROOK));
    EXPECT_EQ(line.Board().m_heuristicKey, key);

    CHeuristicLine guarded("7k/6bp/8/8/p2n3p/8/8/3R2K1", SH_SWEEPINGWHITEROOK);
    EXPECT_TRUE(IsScreenedOut(guarded.Play({"Rd1xd4"}).Board()));
    EXPECT_TRUE(guarded.Has(SH_SWEEPINGWHITEROOK));
}

// ---- The king's room

struct TRoomCase {
    const char* name;
    const char* fen;
    const char* move;
    bool bRejected;
    std::uint32_t otherHeuristics = 0;
    bool bStrict = false;
    bool bSimpleCount = false;
};

class KingsRoom : public testing::TestWithParam<TRoomCase> {};

TEST_P(KingsRoom, Screens) {
    const TRoomCase& c = GetParam();
    CHeuristicLine line(c.fen, SH_ASSERTBLACKKINGSURROUNDED | c.otherHeuristics);
    line.Parameters().bSurroundedStrict = c.bStrict;
    line.Root().m_searchFlags.Clear(TSearchFlag::LongLightSort);
    if (c.bSimpleCount) {
        line.Root().m_searchFlags.Set(TSearchFlag::LongLightSort);
    }
    EXPECT_EQ(IsScreenedOut(line.Play({c.move}).Board()), c.bRejected);
}

INSTANTIATE_TEST_SUITE_P(
    Case, KingsRoom,
    testing::Values(
        TRoomCase{"OpenKing", "8/8/p7/4k3/8/8/8/K4BN1", "Ka1-b1", true},
        TRoomCase{"OpenKingGivenLessRoom", "8/8/p7/4k3/8/8/8/K4BN1", "Ng1-e2", false},
        TRoomCase{"CorneredKing", "7k/8/p4K2/8/8/8/8/5BN1", "Ng1-h3", false},
        TRoomCase{"ThreeFields", "8/8/p7/7k/5K2/8/8/N7", "Na1-b3", true},
        TRoomCase{"ThreeFieldsForALoneFigureThatIsKept", "8/8/p7/7k/5K2/8/8/N7", "Na1-b3", false,
                  SH_SAVEQUEENROOK},
        TRoomCase{"ThreeFieldsAndAFigureWon", "8/8/p7/7k/5K2/1n6/8/N7", "Na1xb3", false},
        TRoomCase{"ThreeFieldsWereFour", "8/8/p7/7k/8/5K2/8/N7", "Kf3-f4", false},
        TRoomCase{"TwoStrictlyWithTheEdgeAsOne", "8/8/p7/7k/5K2/8/8/N7", "Na1-b3", false, 0, true},
        TRoomCase{"OpenKingStrictly", "8/8/p7/4k3/8/8/8/K4BN1", "Ng1-e2", true, 0, true},
        TRoomCase{"OpenKingCountedSimply", "8/8/p7/4k3/8/8/8/K4BN1", "Ng1-e2", true, 0, false,
                  true},
        TRoomCase{"CorneredKingCountedSimply", "7k/8/p4K2/8/8/8/8/5BN1", "Ng1-h3", false, 0, false,
                  true},
        TRoomCase{"CheckByARook", "8/8/p7/4k3/8/8/8/KR4N1", "Rb1-e1", true},
        TRoomCase{"CheckByAQueenWithHelp", "8/Q7/7p/4k3/8/8/N7/K1RB4", "Qa7-e3", false},
        TRoomCase{"CheckByAQueenAlmostAlone", "8/Q7/7p/4k3/8/8/N7/K7", "Qa7-e3", true},
        TRoomCase{"DoubleCheck", "8/8/p7/4k3/8/4N3/8/K3R3", "Ne3-g4", false},
        TRoomCase{"QueenWon", "8/3q4/7p/8/4k3/8/3Q4/K7", "Qd2xd7", false},
        TRoomCase{"RookWonOnly", "8/3r4/7p/8/4k3/8/3Q4/K7", "Qd2xd7", true},
        TRoomCase{"RookChecksTheKingToTheEdge", "8/5R2/p7/8/6k1/8/7K/8", "Rf7-f1", false},
        TRoomCase{"RooksFieldIsGuarded", "8/5R2/pb6/8/6k1/8/7K/8", "Rf7-f1", true}),
    CaseName);

TEST(KingsRoomInForcedSearch, IsNotScreenedThere) {
    const std::uint32_t mask = SH_ASSERTBLACKKINGSURROUNDED | SH_FINDFORCEDMATE;
    CHeuristicLine line("8/8/p7/4k3/8/8/8/K4BN1", mask);
    line.Play({"Ka1-b1"});
    EXPECT_TRUE(IsScreenedOut(line.Board()));
    line.SearchThread().m_bInForcedLevel = true;
    EXPECT_FALSE(IsScreenedOut(line.Board()));
}

TEST(KingsRoomQuestions, SafePromotion) {
    EXPECT_TRUE(HasSafePromotion(BoardOf("8/1P6/8/4k3/8/8/8/K7")));
    EXPECT_FALSE(HasSafePromotion(BoardOf("1n6/1P6/8/4k3/8/8/8/K7")));
    EXPECT_FALSE(HasSafePromotion(BoardOf("8/1P6/8/4k3/8/8/8/Kr6")));   // Taken along the file.
    EXPECT_FALSE(HasSafePromotion(BoardOf("8/2kP4/8/8/8/8/8/K7")));     // Beside the king.
    EXPECT_TRUE(HasSafePromotion(BoardOf("1nb5/1P6/8/4k3/8/8/8/K7")));  // By a capture.
}

TEST(KingsRoomQuestions, WinningAManBesideTheKingClosesItsRoom) {
    CHeuristicLine helped("7k/7n/8/8/8/3B4/8/K6Q", 0, BlackLinePlies);
    EXPECT_EQ(CountFreeFieldsAfterCapture(helped.Board(), 2, TRoomMode::Usual), 0);
    CHeuristicLine alone("7k/7n/8/8/8/8/8/K6Q", 0, BlackLinePlies);
    EXPECT_EQ(CountFreeFieldsAfterCapture(alone.Board(), 2, TRoomMode::Usual), 8);
}

TEST(KingsRoomQuestions, ShapesThatOneMoveClosesCountForLess) {
    // Free: c7, d7, e7 in a row, and c5. One move of a rook closes three of them.
    const TChessboard rook = BoardOf("8/8/2pkp3/3pp3/8/8/8/K6R");
    EXPECT_EQ(CountFreeFields(rook, 4, TRoomMode::Usual), 4);
    EXPECT_EQ(CountFreeFields(rook, 3, TRoomMode::Usual), 3);
    const TChessboard bishop = BoardOf("8/8/2pkp3/3pp3/8/8/8/K6B");
    EXPECT_EQ(CountFreeFields(bishop, 3, TRoomMode::Usual), 4);
    // Fields of the edge are one for two heavy men.
    const TChessboard edge = BoardOf("8/8/p7/7k/8/5K2/8/N7");
    EXPECT_EQ(CountFreeFields(edge, 2, TRoomMode::Usual), 4);
    EXPECT_EQ(CountFreeFields(edge, 2, TRoomMode::TwoHeavyMen), 3);
}

// ---- The bishop on the king's diagonal

TEST(MainDiagonal, BishopMayNotLeaveIt) {
    const std::uint32_t mask = SH_DONTLEAVEMAINDIAGONAL | SH_KEEPKINGONTHEEDGE;
    CHeuristicLine line("7k/5Kpp/8/8/8/2B5/8/8", mask);
    line.Parameters().bKingStrict = true;
    EXPECT_TRUE(IsScreenedOut(line.Play({"Bc3-d2"}).Board()));
    EXPECT_FALSE(IsScreenedOut(line.Restart().Play({"Bc3-e5"}).Board()));
    EXPECT_FALSE(IsScreenedOut(line.Restart().Play({"Kf7-e7"}).Board()));
    line.Parameters().bKingStrict = false;
    EXPECT_FALSE(IsScreenedOut(line.Restart().Play({"Bc3-d2"}).Board()));
}

// ---- Promoted men and lost figures

constexpr const char* PromotionNextToRook = "2k5/7R/8/8/8/8/p7/4K3";

/// Black promotes; the new queen moves to where the rook can take her; White answers.
bool IsAnswerToPromotedQueenScreened(std::uint32_t mask, bool bStrict, const std::string& answer) {
    CHeuristicLine line(PromotionNextToRook, mask);
    line.Parameters().bPromotedStrict = bStrict;
    line.Play({"Ke1-f2", "a2-a1Q", "Kf2-g2", "Qa1-a7"});
    NoteBlackMove(line.Board());
    return IsScreenedOut(line.Play({answer}).Board());
}

TEST(PromotedMen, WhiteMustTakeTheQueenThatMoved) {
    const std::uint32_t queens = SH_DONTLETPROMOTEDQUEENMOVE;
    EXPECT_TRUE(IsAnswerToPromotedQueenScreened(queens, true, "Kg2-h3"));
    EXPECT_FALSE(IsAnswerToPromotedQueenScreened(queens, true, "Rh7:a7"));
    EXPECT_FALSE(IsAnswerToPromotedQueenScreened(queens, false, "Kg2-h3"));
    // The heuristic of all figures does not wait for the strict form.
    EXPECT_TRUE(IsAnswerToPromotedQueenScreened(SH_DONTLETPROMOTEDFIGUREMOVE, false, "Kg2-h3"));
    EXPECT_FALSE(IsAnswerToPromotedQueenScreened(SH_DONTLETPROMOTEDFIGUREMOVE, false, "Rh7:a7"));
}

TEST(PromotedMen, OriginalQueenAndThePromotionItselfAreFree) {
    for (const std::uint32_t mask : {SH_DONTLETPROMOTEDQUEENMOVE, SH_DONTLETPROMOTEDFIGUREMOVE}) {
        CHeuristicLine original("2k5/7R/8/8/8/8/p6p/q3K3", mask);
        original.Parameters().bPromotedStrict = true;
        original.Play({"Ke1-e2", "h2-h1N", "Ke2-f3", "Qa1-a3"});
        NoteBlackMove(original.Board());
        EXPECT_FALSE(IsScreenedOut(original.Play({"Kf3-f4"}).Board()));

        CHeuristicLine promotion(PromotionNextToRook, mask);
        promotion.Parameters().bPromotedStrict = true;
        promotion.Play({"Ke1-f2", "a2-a1Q"});
        NoteBlackMove(promotion.Board());
        EXPECT_FALSE(IsScreenedOut(promotion.Play({"Kf2-g2"}).Board()));
    }
}

TEST(FollowedMenStrictly, MustStandAtHome) {
    for (const bool bStrict : {true, false}) {
        CHeuristicLine line("7r/8/8/8/8/8/k7/2K4B", SH_DONTLETFIGUREUNBLOCK);
        line.Parameters().bPromotedStrict = bStrict;
        line.Parameters().UnblockFieldCount = 1;
        line.Parameters().UnblockFields[0] = line.Parameters().UnblockInitialFields[0] = H8;
        StartFollowing(line.Root(), line.Parameters());
        line.Play({"Kc1-d1", "Ka2-b2"});
        NoteBlackMove(line.Board());
        EXPECT_FALSE(IsScreenedOut(line.Play({"Kd1-e1"}).Board()));
        line.Play({"Rh8-h7"});
        NoteBlackMove(line.Board());
        EXPECT_EQ(IsScreenedOut(line.Play({"Ke1-e2"}).Board()), bStrict);
    }
}

TEST(LostFigures, AreMarkedOnWhitesAnswer) {
    CHeuristicLine line("7k/7p/8/8/1b6/2N5/1P6/6K1", SH_DONTLOSEANYFIGURES);
    line.Play({"Kg1-g2", "Kh8-g8"});
    NoteBlackMove(line.Board());
    EXPECT_FALSE(IsScreenedOut(line.Play({"Kg2-g1"}).Board()));
    EXPECT_FALSE(line.Board().m_stateBits.Has(TStateBit::FigureLost));
    line.Play({"Bb4:c3"});
    NoteBlackMove(line.Board());
    EXPECT_FALSE(IsScreenedOut(line.Play({"Kg1-g2"}).Board()));
    EXPECT_TRUE(line.Board().m_stateBits.Has(TStateBit::FigureLost));
}

}  // namespace
}  // namespace tarnwick
