// The game on one colour of fields, and what the hooks of the make operations refuse.

#include "engine/heuristics/one_colour_play.h"

#include <gtest/gtest.h>

#include <random>

#include "chess/board_tables.h"
#include "chess/prepare_position.h"
#include "engine/heuristics/search_hooks.h"
#include "engine/search/find_mate.h"
#include "engine/search/known_positions.h"
#include "heuristic_line.h"
#include "support/board_line.h"
#include "support/random_positions.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

/// White's men all stand on light fields; Black's bishop is dark, the pawn is blocked.
constexpr const char* Separable = "k7/8/1p6/1P6/2K5/8/8/2b2B2";

TEST(OppositeBishops, AreSeparableWhenTheBlackOneMeetsNobody) {
    EXPECT_TRUE(AreOppositeBishopsSeparable(BoardOf(Separable)));
    EXPECT_FALSE(
        AreOppositeBishopsSeparable(BoardOf("k7/8/1p6/1P6/2K5/8/8/1b3B2")));  // One colour.
    EXPECT_FALSE(AreOppositeBishopsSeparable(BoardOf("k7/8/1p6/1P6/3K4/8/8/2b2B2")));  // Dark king.
    EXPECT_FALSE(AreOppositeBishopsSeparable(BoardOf("k7/8/1p6/8/2K5/8/8/2b2B2")));    // Free pawn.
    EXPECT_FALSE(AreOppositeBishopsSeparable(BoardOf("k7/8/1p6/1P6/2K5/8/8/2b1nB2")));  // A knight.
    EXPECT_FALSE(AreOppositeBishopsSeparable(BoardOf("k7/8/1p6/1P6/2K5/8/8/R1b2B2")));  // A rook.
}

TEST(OppositeBishops, SeparationLeavesAWholePosition) {
    CHeuristicLine line(Separable, SH_ONECOLORPLAYPOSSIBLE, BlackLinePlies);
    const std::uint32_t key = line.Root().m_heuristicKey;
    line.Play({"Ka8-a7"});
    SeparateOppositeBishops(line.Board());
    const TChessboard& board = line.Board();
    EXPECT_EQ(board.m_captureState & OneColourMask, WhiteFieldsOnly);
    EXPECT_NE(board.m_heuristicKey, key);
    TChessboard again = board;
    PreparePosition(again, false);
    EXPECT_EQ(again.m_blackMen, board.m_blackMen);
    EXPECT_EQ(again.m_diagonalSliders, board.m_diagonalSliders);
    EXPECT_EQ(again.m_blackBishops, board.m_blackBishops);
    EXPECT_EQ(again.m_whiteChecker, board.m_whiteChecker);
}

TEST(OppositeBishops, StayWithoutTheHeuristicOrNearTheEnd) {
    CHeuristicLine without(Separable, SH_DONTRECEDEBLACKKING, BlackLinePlies);
    without.Play({"Ka8-a7"});
    SeparateOppositeBishops(without.Board());
    EXPECT_EQ(without.Board().m_blackBishops, 1);
    CHeuristicLine nearEnd(Separable, SH_ONECOLORPLAYPOSSIBLE, 12);
    nearEnd.Play({"Ka8-a7"});
    SeparateOppositeBishops(nearEnd.Board());
    EXPECT_EQ(nearEnd.Board().m_blackBishops, 1);
}

TEST(OneColourMoves, KeepToFieldsThatTheBishopCannotReach) {
    TChessboard board = BoardOf("k7/5P2/1p6/1P6/2K5/8/6P1/5B2");
    const auto may = [&board](int mode, const char* text) {
        board.m_captureState = static_cast<std::uint8_t>(mode);
        TMove move;
        ParseFullMove(move, text, true);
        return MayWhitePlayInOneColour(board, move);
    };
    EXPECT_TRUE(may(WhiteFieldsOnly, "Kc4-d5"));
    EXPECT_FALSE(may(WhiteFieldsOnly, "Kc4-d4"));
    EXPECT_TRUE(may(BlackFieldsOnly, "Kc4-d4"));
    EXPECT_FALSE(may(WhiteFieldsOnly, "g2-g4"));   // Over g3, where the bishop may stand.
    EXPECT_FALSE(may(BlackFieldsOnly, "f7-f8Q"));  // A queen's lines cross the bishop's fields.
    EXPECT_TRUE(may(BlackFieldsOnly, "f7-f8N"));
    EXPECT_TRUE(may(SeparatedBlackBishop, "Kc4-d4"));
    EXPECT_TRUE(may(0, "Kc4-d4"));
}

TEST(OneColourMate, MustKeepToTheColour) {
    CHeuristicLine line("k1K5/p7/8/8/8/8/8/5B2", SH_ONECOLORPLAYPOSSIBLE);
    line.Root().m_captureState |= WhiteFieldsOnly;
    EXPECT_TRUE(IsKnownOneColourMate(line.Root()));
    line.Root().m_captureState ^= WhiteFieldsOnly | BlackFieldsOnly;
    EXPECT_FALSE(IsKnownOneColourMate(line.Root()));
    CHeuristicLine noMate("1k1K4/p7/8/8/8/8/8/5B2", SH_ONECOLORPLAYPOSSIBLE);
    noMate.Root().m_captureState |= WhiteFieldsOnly;
    EXPECT_FALSE(IsKnownOneColourMate(noMate.Root()));
}

TEST(OneColourStores, KnowOnlyThePlainGame) {
    CHeuristicLine line(Separable, SH_ONECOLORPLAYPOSSIBLE);
    const auto isKnowable = [&](std::uint8_t state) {
        line.Root().m_captureState = state;
        return WhatMayBeKnown(line.Root()).bMemory;
    };
    EXPECT_TRUE(isKnowable(0));
    EXPECT_TRUE(isKnowable(SeparatedBlackBishop)) << "all men are on the board, all moves allowed";
    EXPECT_FALSE(isKnowable(WhiteFieldsOnly));
    EXPECT_FALSE(isKnowable(SeparatedBlackBishop | BishopTakenOff));
}

// ---- A mate of the game on one colour is a mate

/// Bishops on opposite colours, blocked pawns and perhaps knights around a black king on the edge; White's
/// men on light fields only.
class CSeparablePositions {
  public:
    /// The next position with White to move and Black not in check.
    TChessboard Next() {
        for (;;) {
            TChessboard board = EmptyChessboard();
            board.m_fields[Pick({A1, 1, B8, A8, G8, H8, H1, 15})] = BlackKing;
            Put(board, WhiteKing, true);
            Put(board, WhiteBishop, true);
            Put(board, BlackBishop, false);
            for (int knights = Below(3); knights > 0; --knights) {
                Put(board, WhiteKnight, true);
            }
            for (int pairs = 1 + Below(3); pairs > 0; --pairs) {
                PutBlockedPawns(board);
            }
            if (PreparePositionNoThrow(board, true) && board.m_blackChecker == NoChecker &&
                board.m_whiteChecker == NoChecker && AreOppositeBishopsSeparable(board) &&
                KingDistance(WhiteKingField(board), BlackKingField(board)) <= 2) {
                return board;
            }
        }
    }

  private:
    int Below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    int Pick(const std::vector<int>& fields) {
        return fields[static_cast<std::size_t>(Below(static_cast<int>(fields.size())))];
    }
    void Put(TChessboard& board, TFigureCode code, bool bLight) {
        const int field = Below(FieldCount);
        if (board.m_fields[field] == EmptyField && (ColourParity(field) != 0) == bLight) {
            board.m_fields[field] = code;
        }
    }
    void PutBlockedPawns(TChessboard& board) {
        const int field = 8 + Below(40);
        if (ColourParity(field) != 0 && board.m_fields[field] == EmptyField &&
            board.m_fields[field + 8] == EmptyField) {
            board.m_fields[field] = WhitePawn;
            board.m_fields[field + 8] = BlackPawn;
        }
    }

    std::mt19937 m_random{slow::TestSeed()};
};

TEST(OneColourGame, ItsMatesAreMatesWithTheBishopOnTheBoard) {
    CSeparablePositions positions;
    int mates = 0;
    for (int i = 0; i < 6000; ++i) {
        const std::string fen = WriteFen(positions.Next(), true);
        CHeuristicLine line(fen, SH_ONECOLORPLAYPOSSIBLE);
        line.SearchThread().m_pHooks = &HeuristicMakeHooks;
        SeparateOppositeBishops(line.Root());
        ASSERT_TRUE(IsBishopTakenOff(line.Root())) << fen;
        const int moves = 1 + i % 3;
        line.Root().m_shPlies = line.Root().m_shRootPlies =
            static_cast<std::uint16_t>(2 * moves - 1);
        if (FindMateWhiteToMove(line.Root(), true) == ResultMate) {
            ++mates;
            EXPECT_TRUE(slow::MateIn(slow::FromFen(fen), moves)) << fen << " #" << moves;
        }
    }
    EXPECT_GT(mates, 20);
}

/// The bishop is buried, so that what looks like a waiting move is none: Black is stalemated. And a pass of
/// a king on a1 is not the empty move.
TEST(OneColourGame, ClaimsNoMateOfABlackThatCannotPass) {
    for (const char* fen : {"b5k1/1p1K3p/1P5P/8/8/8/8/2B5", "b5k1/1p2K2p/1P5P/8/8/8/8/2B5",
                            "4b3/8/8/8/8/Bp6/pP6/k1K5"}) {
        TEngineOptions options;
        options.heuristics = THeuristicsFrom::User;
        options.bScout = false;
        TSolveTask task;
        task.m_options = options;
        task.m_givenHeuristics.mask = SH_ONECOLORPLAYPOSSIBLE;
        EXPECT_EQ(StartSolving(task, BoardOf(fen), 8).status, TSolveStatus::NoMate) << fen;
    }
}

// ---- Hooks

TEST(MakeHooks, ForgetTheKeyFieldWhenItsManFalls) {
    for (const char* keyField : {"b6", "h7"}) {
        CHeuristicLine line("7k/7p/1n6/8/8/8/1R6/K7", SH_KEYFIELD);
        line.Parameters().KeyField = static_cast<std::uint8_t>(FieldOf(keyField));
        line.SearchThread().m_pHooks = &HeuristicMakeHooks;
        line.Play({"Rb2:b6"});
        EXPECT_EQ(line.Has(SH_KEYFIELD), std::string(keyField) == "h7");
    }
}

TEST(MakeHooks, DropTheKingAreaMarkWhenTheKingGetsRoom) {
    CHeuristicLine line("7k/8/5K2/8/8/8/8/R7", 0);
    line.SearchThread().m_pHooks = &HeuristicMakeHooks;
    line.Root().m_searchFlags.Set(TSearchFlag::KingAreaState);
    EXPECT_TRUE(line.Play({"Kf6-f7"}).Board().m_searchFlags.Has(TSearchFlag::KingAreaState));
    CHeuristicLine wide("8/8/5k2/8/5K2/8/8/R7", 0);
    wide.SearchThread().m_pHooks = &HeuristicMakeHooks;
    wide.Root().m_searchFlags.Set(TSearchFlag::KingAreaState);
    EXPECT_FALSE(wide.Play({"Ra1-a2"}).Board().m_searchFlags.Has(TSearchFlag::KingAreaState));
}

}  // namespace
}  // namespace tarnwick
