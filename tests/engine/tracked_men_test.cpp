// The heuristics that follow men through the line: shut-in men, promoted men, White's force, the key
// figure and the king's triangle.

#include "engine/heuristics/tracked_men.h"

#include <gtest/gtest.h>

#include "chess/mate_in_one.h"
#include "engine/heuristics/exchanges.h"
#include "engine/heuristics/key_white_figure.h"
#include "engine/heuristics/white_screens.h"
#include "heuristic_line.h"
#include "support/board_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

TFieldSet FieldsNamed(const std::vector<std::string>& names) {
    TFieldSet set = 0;
    for (const std::string& name : names) {
        set |= FieldBit(FieldOf(name));
    }
    return set;
}

// ---- Which men are shut in

constexpr const char* ShutInRow = "8/8/8/8/6k1/8/3p1pp1/1Q1Kbrrb";

TEST(BlockedMen, AreThoseThatOnlyStepAside) {
    EXPECT_EQ(BlockedBlackMen(BoardOf(ShutInRow), false), FieldsNamed({"e1", "f1", "g1", "h1"}));
    // With the pawn a field ahead the bishop is free; the rook has but that one field.
    EXPECT_EQ(BlockedBlackMen(BoardOf("8/8/8/8/6k1/6p1/3p1p2/1Q1Kbrrb"), false),
              FieldsNamed({"e1", "f1", "g1"}));
    // A pin holds a knight, but no rook on the pinning line.
    EXPECT_EQ(BlockedBlackMen(BoardOf("k7/1n6/8/8/8/8/6B1/6K1"), false), FieldsNamed({"b7"}));
    EXPECT_EQ(BlockedBlackMen(BoardOf("k7/r7/8/8/8/8/8/R5K1"), false), 0U);
    EXPECT_EQ(BlockedBlackMen(BoardOf("k7/1p6/1P6/8/8/8/8/6K1"), false),
              0U);  // Pawns are not followed.
}

TEST(CollectedMen, NearestToTheKingComeFirstAndAUsersChoiceStays) {
    TSpecialHeuristics parameters;
    TChessboard board = BoardOf(ShutInRow);
    EXPECT_EQ(CollectTrackedMen(board, parameters), 4);
    EXPECT_EQ(board.m_trackedFields[0], E1);
    EXPECT_EQ(board.m_trackedFields[3], H1);
    EXPECT_EQ(board.m_trackedFields[4], NoField);
    EXPECT_EQ(parameters.UnblockFields[3], H1);
    EXPECT_EQ(parameters.UnblockInitialFields[0], E1);

    parameters.bUnblockFixedByUser = true;
    parameters.UnblockFieldCount = 1;
    parameters.UnblockFields[0] = parameters.UnblockInitialFields[0] = H1;
    EXPECT_EQ(CollectTrackedMen(board, parameters), 1);
    EXPECT_EQ(board.m_trackedFields[0], H1);
    EXPECT_EQ(board.m_trackedFields[1], NoField);
}

// ---- What breaks a heuristic after Black's move

struct TBreakCase {
    const char* name;
    const char* fen;
    std::uint32_t mask;
    const char* line;  ///< The last move is the one judged.
    bool bBroken;
    /// Parameters: the followed man's home; LoseFiguresPawnMode; bSaveIncludesRook.
    const char* home = "";
    std::uint8_t pawnMode = 0;
    bool bWithRook = false;
};

class BrokenByBlack : public testing::TestWithParam<TBreakCase> {};

TEST_P(BrokenByBlack, OrNot) {
    const TBreakCase& c = GetParam();
    CHeuristicLine line(c.fen, 0);
    line.Parameters().LoseFiguresPawnMode = c.pawnMode;
    line.Parameters().bSaveIncludesRook = c.bWithRook;
    if (*c.home != 0) {
        line.Parameters().UnblockFieldCount = 1;
        line.Parameters().UnblockFields[0] = static_cast<TField>(FieldOf(c.home));
        line.Parameters().UnblockInitialFields[0] = static_cast<TField>(FieldOf(c.home));
    }
    StartFollowing(line.Root(), line.Parameters());
    line.Set(c.mask);
    bool bBroken = false;
    for (const std::string& move : WordsOf(c.line)) {
        EXPECT_FALSE(bBroken) << "before " << move;
        line.Play({move});
        bBroken = IsWhiteToMove(line.Board()) && BreaksFollowedMen(line.Board());
    }
    EXPECT_EQ(bBroken, c.bBroken);
}

constexpr const char* RookToFollow = "7r/8/8/8/6B1/8/k7/2K5";
constexpr const char* KnightToLose = "7k/7p/8/8/1b6/2N5/8/6K1";
constexpr const char* PawnToLose = "7k/7p/2P5/1b6/8/8/8/6K1";
constexpr const char* QueenToLose = "7k/7p/8/8/8/8/1b6/Q5K1";
constexpr const char* PromotingPawn = "2k5/7R/8/8/8/8/p7/4K3";

// Short names, so that a case fits a line.
constexpr std::uint32_t OnEdge = SH_KEEPKINGONTHEEDGE;
constexpr std::uint32_t ShutIn = SH_DONTLETFIGUREUNBLOCK;
constexpr std::uint32_t Keep = SH_DONTLOSEANYFIGURES;
constexpr std::uint32_t StillQueen = SH_DONTLETPROMOTEDQUEENMOVE;
constexpr std::uint32_t StillFigure = SH_DONTLETPROMOTEDFIGUREMOVE;

const TBreakCase ShutInMenCases[] = {
    {"OneFieldAway", RookToFollow, ShutIn, "Kc1-d1 Rh8-h7", false, "h8"},
    {"FarAway", RookToFollow, ShutIn, "Kc1-d1 Rh8-h7 Kd1-e1 Rh7-b7", true, "h8"},
    {"FarAwayButEnPrise", RookToFollow, ShutIn, "Kc1-d1 Rh8-h5", false, "h8"},
    {"AnotherMan", RookToFollow, ShutIn, "Kc1-d1 Rh8-b8", false, "a2"},
    {"NotInForce", RookToFollow, OnEdge, "Kc1-d1 Rh8-b8", false, "h8"},
};

INSTANTIATE_TEST_SUITE_P(ShutInMen, BrokenByBlack, testing::ValuesIn(ShutInMenCases), CaseName);

const TBreakCase LostFiguresCases[] = {
    {"ForNothing", KnightToLose, Keep, "Kg1-g2 Bb4:c3", true},
    {"CanBeTakenBack", "7k/7p/8/8/1b6/2N5/1P6/6K1", Keep, "Kg1-g2 Bb4:c3", false},
    {"ToAPawnInReturnForLess", "7k/7p/8/8/1p6/2N5/1P6/6K1", Keep, "Kg1-g2 b4:c3", true},
    {"InAnExchange", "7k/7p/p7/1b6/8/2N5/8/6K1", Keep, "Nc3:b5 a6:b5", false},
    {"ButMatesAtOnce", "6k1/5ppp/8/8/1b6/2N5/8/R5K1", Keep, "Kg1-g2 Bb4:c3", false},
    {"APawnOnly", PawnToLose, Keep, "Kg1-h2 Bb5:c6", false},
    {"APawnToo", PawnToLose, Keep, "Kg1-h2 Bb5:c6", true, "", 1},
    {"APawnNearPromotion", PawnToLose, Keep, "Kg1-h2 Bb5:c6", true, "", 2},
    {"APawnFarFromPromotion", "7k/7p/8/1b6/2P5/8/8/6K1", Keep, "Kg1-h2 Bb5:c4", false, "", 2},
};

INSTANTIATE_TEST_SUITE_P(LostFigures, BrokenByBlack, testing::ValuesIn(LostFiguresCases), CaseName);

const TBreakCase SavedHeavyMenCases[] = {
    {"TheLastOneIsGone", QueenToLose, SH_SAVEQUEENROOK, "Kg1-g2 Bb2:a1", true},
    {"APromotionIsComing", "7k/2P4p/8/8/8/8/1b6/Q5K1", SH_SAVEQUEENROOK, "Kg1-g2 Bb2:a1", false},
    {"AFarPawnIsNoHelp", "7k/7p/8/8/8/2P5/1b6/Q5K1", SH_SAVEQUEENROOK, "Kg1-g2 Bb2:a1", true},
    {"ARookIsLeft", "7k/7p/8/8/8/8/1b6/Q4RK1", SH_SAVEQUEENROOK, "Kg1-g2 Bb2:a1", false},
    {"BothAreToBeKept", "7k/7p/8/8/8/8/1b6/Q4RK1", SH_SAVEQUEENROOK, "Kg1-g2 Bb2:a1", true, "", 0,
     true},
    {"AKnightDoesNotCount", KnightToLose, SH_SAVEQUEENROOK, "Kg1-g2 Bb4:c3", false},
};

INSTANTIATE_TEST_SUITE_P(SavedHeavyMen, BrokenByBlack, testing::ValuesIn(SavedHeavyMenCases),
                         CaseName);

const TBreakCase PromotedMenCases[] = {
    {"QueenGetsToPlay", PromotingPawn, StillQueen, "Ke1-f2 a2-a1Q Kf2-g2 Qa1-a6", true},
    {"QueenIsEnPrise", PromotingPawn, StillQueen, "Ke1-f2 a2-a1Q Kf2-g2 Qa1-a7", false},
    {"QueenStays", PromotingPawn, StillQueen, "Ke1-f2 a2-a1Q Kf2-g2 Kc8-b8", false},
    {"KnightIsNoQueen", PromotingPawn, StillQueen, "Ke1-f2 a2-a1N Kf2-g2 Na1-c2", false},
    {"AnyFigureCounts", PromotingPawn, StillFigure, "Ke1-f2 a2-a1N Kf2-g2 Na1-c2", true},
};

INSTANTIATE_TEST_SUITE_P(PromotedMen, BrokenByBlack, testing::ValuesIn(PromotedMenCases), CaseName);

TEST(TakenFigures, StandUntilWhiteTakesBack) {
    CHeuristicLine line("7k/7p/8/8/1b6/2N5/1P6/6K1", SH_DONTLOSEANYFIGURES);
    line.Play({"Kg1-g2", "Bb4:c3"});
    EXPECT_FALSE(BreaksFollowedMen(line.Board()));
    TChessboard& afterLoss = line.Board();
    for (const bool bTakesBack : {true, false}) {
        TChessboard* answer = CopyToNextSlot(afterLoss);
        TMove move;
        ParseFullMove(move, bTakesBack ? "b2:c3" : "Kg2-h3", true);
        ASSERT_EQ(MakeWhiteMove(*answer, move), MoveMade);
        answer->m_stateBits.Set(TStateBit::FigureLost);
        TChessboard* next = CopyToNextSlot(*answer);
        ParseFullMove(move, "Kh8-g8", false);
        ASSERT_EQ(MakeBlackMove(*next, move, false), MoveMade);
        EXPECT_EQ(BreaksFollowedMen(*next), !bTakesBack);
        EXPECT_EQ(next->m_stateBits.Has(TStateBit::FigureLost), !bTakesBack);
    }
}

TEST(NotedBlackMoves, AreTheSameTwice) {
    CHeuristicLine line(QueenToLose, SH_SAVEQUEENROOK | SH_DONTLOSEANYFIGURES);
    line.Parameters().bSaveIncludesRook = true;
    line.Set(SH_SAVEQUEENROOK | SH_DONTLOSEANYFIGURES);
    const std::uint32_t before = line.Root().m_heuristicKey;
    line.Play({"Kg1-g2", "Bb2:a1"});
    NoteBlackMove(line.Board());
    EXPECT_TRUE(line.Board().m_stateBits.Has(TStateBit::QueenSaved));
    EXPECT_NE(line.Board().m_heuristicKey, before);
    const TChessboard once = line.Board();
    NoteBlackMove(line.Board());
    EXPECT_EQ(line.Board().m_heuristicKey, once.m_heuristicKey);
    EXPECT_EQ(line.Board().m_lastMove.promotion, once.m_lastMove.promotion);
    EXPECT_EQ(line.Board().m_lastMove.PromotionType(), 0);
}

TEST(AllFollowingHeuristics, JudgeAnyLineAndNeverDoubtAnImmediateMate) {
    constexpr std::uint32_t All =
        SH_SWEEPINGWHITEROOK | SH_ASSERTBLACKKINGSURROUNDED | SH_DONTLETFIGUREUNBLOCK |
        SH_SAVEQUEENROOK | SH_DONTLOSEANYFIGURES | SH_DONTLETPROMOTEDQUEENMOVE |
        SH_DONTLETPROMOTEDFIGUREMOVE | SH_KEYWHITEFIGURE | SH_ZUGZWANGTRIANGLES;
    slow::CRandomPositions positions(slow::TestSeed());
    int broken = 0;
    int screened = 0;
    int fine = 0;
    for (std::uint64_t i = 0; i < 300; ++i) {
        const std::string fen = positions.Next();
        CHeuristicLine line(fen, 0);
        CollectTrackedMen(line.Root(), line.Parameters());
        line.Set(All);
        for (const slow::TGameStep& step : slow::RandomGame(slow::TestSeed() + i, fen, 30)) {
            if (!line.TryPlay(step.text)) {
                break;
            }
            TChessboard& board = line.Board();
            const std::vector<TFigureCode> men(board.m_fields, board.m_fields + FieldCount);
            const bool bBlackMoved = IsWhiteToMove(board);
            const bool bBad = bBlackMoved ? BreaksFollowedMen(board) : IsScreenedOut(board);
            EXPECT_TRUE(std::equal(men.begin(), men.end(), board.m_fields));
            EXPECT_FALSE(bBlackMoved && bBad && IsMateInOne(board));
            ++(!bBad ? fine : bBlackMoved ? broken : screened);
        }
    }
    EXPECT_GT(std::min({broken, screened, fine}), 100);
}

// ---- The key white figure

bool IsKeyFigureKept(const char* fen, const char* key, const std::vector<std::string>& moves) {
    CHeuristicLine line(fen, SH_KEYWHITEFIGURE);
    line.Parameters().KeyWhiteFigureField = static_cast<std::uint8_t>(FieldOf(key));
    for (const std::string& move : moves) {
        if (IsWhiteToMove(line.Play({move}).Board())) {
            NoteBlackMove(line.Board());
        }
    }
    return line.Has(SH_KEYWHITEFIGURE);
}

TEST(KeyWhiteFigure, HoldsWhileThePinDoes) {
    constexpr const char* PinnedQueen = "k6r/1q6/8/3B4/8/8/8/6K1";
    EXPECT_TRUE(IsKeyFigureKept(PinnedQueen, "d5", {"Kg1-f2", "Rh8-g8"}));
    EXPECT_TRUE(IsKeyFigureKept(PinnedQueen, "d5", {"Kg1-f2", "Qb7-c6"}));
    EXPECT_FALSE(IsKeyFigureKept(PinnedQueen, "d5", {"Kg1-f2", "Qb7:d5"}));
    EXPECT_FALSE(IsKeyFigureKept(PinnedQueen, "d5", {"Kg1-f2", "Ka8-a7"}));
    // The king's first move must end on a diagonal of the key field, even if a rook's pin goes on.
    EXPECT_TRUE(IsKeyFigureKept("8/1k6/2n5/8/8/8/8/5K1B", "h1", {"Kf1-f2", "Kb7-a8"}));
    EXPECT_FALSE(IsKeyFigureKept("k7/8/n7/8/8/8/8/R4K2", "a1", {"Kf1-f2", "Ka8-a7"}));
}

bool IsLeftOut(const char* fen, const char* key, const char* text) {
    CHeuristicLine line(fen, SH_KEYWHITEFIGURE);
    line.Parameters().KeyWhiteFigureField = static_cast<std::uint8_t>(FieldOf(key));
    TMove move;
    ParseFullMove(move, text, true);
    return IsLeftOutByKeyFigure(line.Board(), move);
}

TEST(KeyWhiteFigure, ItsMovesAndUnsafeCapturesAreLeftOut) {
    constexpr const char* PinnedQueen = "k7/1q6/8/3B4/8/8/8/6K1";
    EXPECT_TRUE(IsLeftOut(PinnedQueen, "d5", "Bd5-e6"));
    EXPECT_FALSE(IsLeftOut(PinnedQueen, "d5", "Kg1-g2"));
    EXPECT_FALSE(IsLeftOut(PinnedQueen, "d5", "Bd5:b7"));
    EXPECT_TRUE(IsLeftOut("k7/1n6/8/8/8/8/6Q1/6K1", "g2", "Qg2:b7"));
    EXPECT_FALSE(IsLeftOut("k7/1n6/8/8/8/8/6Q1/1R4K1", "g2", "Qg2:b7"));
    EXPECT_FALSE(IsLeftOut("1k6/8/8/3B4/8/8/8/6K1", "d5", "Bd5-e6"));  // Pins nothing.
}

// ---- Exchanges

TEST(Exchanges, StopWhenTheyNoLongerPay) {
    const int e5 = FieldOf("e5");
    EXPECT_EQ(GainByWhiteCapture(BoardOf("7k/8/8/4r3/8/8/8/4R2K"), e5), 5);
    EXPECT_EQ(GainByWhiteCapture(BoardOf("7k/8/3p4/4r3/8/8/8/4R2K"), e5), 0);
    EXPECT_EQ(GainByWhiteCapture(BoardOf("7k/8/3p4/4n3/8/8/4R3/4R2K"), e5), 0);
    EXPECT_EQ(GainByWhiteCapture(BoardOf("7k/8/3p4/4n3/8/3N4/4R3/4R2K"), e5), 1);
    EXPECT_EQ(GainByWhiteCapture(BoardOf("8/8/4k3/4r3/8/8/8/4Q2K"), e5), 0);   // The king guards,
    EXPECT_EQ(GainByWhiteCapture(BoardOf("8/8/4k3/4r3/8/8/7B/4Q2K"), e5), 5);  // and must not.
    EXPECT_EQ(GainByBlackCapture(BoardOf("7k/8/3p4/4Q3/8/8/8/4R2K"), e5), 8);
}

// ---- The king's triangle

TEST(ZugzwangTriangle, LastsWhileTheKingCanWalkIt) {
    const auto isKept = [](const char* fen, const char* move, const char* f1, const char* f2) {
        CHeuristicLine line(fen, SH_ZUGZWANGTRIANGLES, BlackLinePlies);
        line.Parameters().TriangleField1 = static_cast<std::int8_t>(FieldOf(f1));
        line.Parameters().TriangleField2 = static_cast<std::int8_t>(FieldOf(f2));
        NoteBlackMove(line.Play({move}).Board());
        return line.Has(SH_ZUGZWANGTRIANGLES);
    };
    EXPECT_TRUE(isKept("7k/7p/7P/8/8/8/4K3/8", "Kh8-g8", "d2", "d1"));
    EXPECT_TRUE(isKept("7k/7p/7P/8/8/8/3K4/8", "Kh8-g8", "d2", "d1"));
    EXPECT_FALSE(isKept("7k/7p/7P/8/8/8/4K3/8", "Kh8-g8", "d2", "c1"));    // Too far for it.
    EXPECT_FALSE(isKept("3b3k/7p/7P/8/8/8/4K3/8", "Bd8-g5", "d2", "d1"));  // Attacked.
    EXPECT_FALSE(isKept("7k/7p/7P/8/8/8/3PK3/8", "Kh8-g8", "d2", "d1"));   // Own man there.
}

}  // namespace
}  // namespace tarnwick
