// Rules that look at who has what.

#include <algorithm>
#include <bit>

#include "chess/lines.h"
#include "engine/heuristics/analysis_rules.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/tracked_men.h"

namespace tarnwick {
namespace {

int WhiteMenCount(const TChessboard& board) {
    return WhiteFigureCount(board) + board.m_whitePawns;
}

/// Dynamic relaxation of the edge: the king may run once so many black figures are gone.
void RelaxOnCaptures(TSpecialHeuristics& parameters, int figures) {
    parameters.RelaxFiguresCaptured = static_cast<std::uint8_t>(figures);
}

bool IsKingInCentre(const TChessboard& board) {
    return board.m_blackKingFile >= 2 && board.m_blackKingFile <= 5 && board.m_blackKingRank >= 2 &&
           board.m_blackKingRank <= 5;
}

/// Fields the black king could walk to along free lines, as a queen would.
int FreeSteps(const TChessboard& board) {
    const int king = BlackKingField(board);
    const TFieldSet occupied = OccupiedFields(board);
    return std::popcount((BishopReach(king, occupied) | RookReach(king, occupied)) & ~occupied);
}

/// Whether a black pawn has the moves to promote: half of the plies left, and one of them saved by the
/// double step.
bool CanBlackPromoteInTime(const TChessboard& board) {
    for (TFieldSet pawns = board.m_pawns & board.m_blackMen; pawns != 0;) {
        const int rank = std::min(RankOf(PopLowest(pawns)), 5);
        if (board.m_shPlies / 2 >= rank + 1) {
            return true;
        }
    }
    return false;
}

/// A black pawn stands on the black king's file, above it.
bool HasPawnAboveKing(const TChessboard& board) {
    const int king = BlackKingField(board);
    for (int field = king + 8; field < FieldCount; field += 8) {
        if (board.m_fields[field] == BlackPawn) {
            return true;
        }
    }
    return false;
}

}  // namespace

void JudgeMaterial(TAnalysis& a) {
    a.losableQueens = CountLosableQueens(a.board);
    a.queens = a.board.m_whiteQueens - a.losableQueens;
    a.whiteFigures = WhiteFigureCount(a.board) - a.losableQueens;
    if (BlackFigureCount(a.board) + a.board.m_blackPawns == 0) {
        a.flags |= Bit(TPositionFlag::BareBlackKing);
    }
    if (IsBlackAhead(a.board)) {
        a.flags |= Bit(TPositionFlag::BlackAhead);
    }
    if (HasFiguresToSpare(a.board)) {
        a.flags |= Bit(TPositionFlag::FiguresToSpare);
    }
}

void CountBlockedMen(TAnalysis& a) {
    if (!a.parameters.bUnblockFixedByUser) {
        a.parameters.UnblockFieldCount =
            static_cast<std::int8_t>(CollectTrackedMen(a.board, a.parameters));
    }
}

void JudgeFewBlackFigures(TAnalysis& a) {
    const TChessboard& board = a.board;
    if (board.m_bWhiteFiguresListed == 0) {
        return;
    }
    const int blackFigures = BlackFigureCount(board);
    if (blackFigures == 0) {
        const bool bNoBishopHelps = !IsKingInCentre(board) && a.queens + board.m_whiteRooks > 0 &&
                                    board.m_whiteBishops == 0;
        if (bNoBishopHelps) {
            a.flags |= Bit(TPositionFlag::FreeKing);
        }
    } else if (blackFigures == 1 && board.m_whiteRooks == 1 && board.m_whitePawns == 0 &&
               a.whiteFigures == 1) {
        RelaxOnCaptures(a.parameters, 1);
        a.set |= board.m_blackKnights == 1 && IsBlackKingHeld(board) ? SH_CAPTUREKNIGHT : 0;
    } else if (board.m_whiteKnights == 1 && WhiteMenCount(board) == 2 && board.m_blackKnights > 0) {
        a.Add(SH_CAPTUREKNIGHT);
        RelaxOnCaptures(a.parameters, 1);
    } else if (board.m_blackRooks == 1 && board.m_blackQueens == 1 && a.whiteFigures == 1) {
        RelaxOnCaptures(a.parameters, std::min(WhiteMenCount(board), 3));
    }
}

void JudgeRoomOnEdge(TAnalysis& a) {
    if (BlackKingEdgeDistance(a.board) == 0 && BlackFigureCount(a.board) < 2 &&
        CountFreeFields(a.board) > 1) {
        a.flags |= Bit(TPositionFlag::FreeKing);
    }
}

void KeepRookWithBishops(TAnalysis& a) {
    const TChessboard& board = a.board;
    const bool bRookAndBishops = a.whiteFigures == 3 && board.m_whiteRooks == 1 &&
                                 board.m_whiteBishops == 2 && board.m_whitePawns == 0;
    if (bRookAndBishops && WhitePoints(board) + 2 < BlackPoints(board) &&
        DistanceOfKings(board) > 4 && !IsMatingNet(board)) {
        a.Add(SH_DONTLOSEANYFIGURES);
    }
}

void PlayOnOneColour(TAnalysis& a) {
    TChessboard& board = a.board;
    if (!AreBishopsOpposite(board)) {
        return;
    }
    a.flags |= Bit(TPositionFlag::OppositeBishops);
    const int steps = FreeSteps(board);
    if (steps >= 3 && steps <= 11 && IsBlackBishopSeparated(board)) {
        a.Add(SH_ONECOLORPLAYPOSSIBLE);
        board.m_captureState |= SeparatedBlackBishop;
    } else if (board.m_whiteRooks == 0 && board.m_blackKnights == 0) {
        a.Add(SH_ONECOLORPLAYPOSSIBLE);
    }
}

void WatchQueenChecks(TAnalysis& a) {
    const TChessboard& board = a.board;
    if (board.m_blackQueens != a.losableQueens && a.queens > 0 && a.whiteFigures >= 2 &&
        board.m_whitePawns + board.m_blackPawns > 0) {
        a.Add(SH_DONTLETBLACKQUEENCHECKTWICE);
    }
}

void SaveQueenFromPawn(TAnalysis& a) {
    const TChessboard& board = a.board;
    if (a.queens != 1 || board.m_whiteRooks > 0 || !a.HasFlag(TPositionFlag::FreeKing) ||
        FindAdvancedBlackPawn(board) == NoField) {
        return;
    }
    // Then the knight is to fork the new queen.
    const bool bKnightHelps =
        board.m_whiteKnights > 0 && board.m_blackKingRank <= 3 && HasPawnAboveKing(board);
    a.set |= bKnightHelps ? 0 : SH_SAVEQUEENROOK;
}

void HoldPromotedMen(TAnalysis& a) {
    const TChessboard& board = a.board;
    if (!CanBlackPromoteInTime(board)) {
        return;
    }
    const bool bAlone = a.whiteFigures <= 1 && a.queens == 0;
    const bool bNoMajors = board.m_whiteRooks + a.queens == 0;
    const bool bMinorsSuffice =
        board.m_whiteKnights + board.m_whiteBishops > 2 || board.m_whitePawns > 0;
    const bool bAnyFigure = a.whiteFigures > 0 || board.m_blackRooks + board.m_blackQueens > 0;
    const bool bAllFigures = (bAlone || (bNoMajors && !bMinorsSuffice)) && bAnyFigure;
    a.Add(bAllFigures ? SH_DONTLETPROMOTEDFIGUREMOVE : SH_DONTLETPROMOTEDQUEENMOVE);
}

void SaveFigures(TAnalysis& a) {
    const TChessboard& board = a.board;
    const bool bRookCounts = board.m_whiteRooks > 0 &&
                             BlackKingEdgeDistance(board) <= board.m_shPlies / 3 &&
                             !HasBishopPair(board) && !IsQueenAtStake(board);
    if (bRookCounts) {
        a.Add(SH_SAVEQUEENROOK);
    } else if (a.whiteFigures > 0 && !a.HasFlag(TPositionFlag::FiguresToSpare)) {
        a.Add(SH_DONTLOSEANYFIGURES);
    }
}

void RelaxSavingOfFigures(TAnalysis& a) {
    const TChessboard& board = a.board;
    if (a.Has(SH_DONTLOSEANYFIGURES) && board.m_whiteRooks > 0 &&
        board.m_blackPawns + BlackFigureCount(board) < 2) {
        a.Replace(SH_DONTLOSEANYFIGURES, SH_SAVEQUEENROOK);
    }
    a.parameters.bSaveIncludesRook = a.Has(SH_SAVEQUEENROOK) && board.m_whiteRooks > 0;
}

void FollowMenAgainstKnights(TAnalysis& a) {
    const TChessboard& board = a.board;
    TSpecialHeuristics& p = a.parameters;
    if (board.m_whiteKnights != 2 || WhiteMenCount(board) != 2 || p.bUnblockFixedByUser) {
        return;
    }
    a.Clear(EdgeHeuristics);
    TFieldSet figures = BlackFigures(board);
    p.UnblockFieldCount = 0;
    while (figures != 0 && p.UnblockFieldCount < MaxTrackedMen) {
        const auto place = static_cast<std::size_t>(p.UnblockFieldCount++);
        p.UnblockFields[place] = p.UnblockInitialFields[place] =
            static_cast<std::uint8_t>(PopLowest(figures));
        p.bUnblockFromFields = board.m_shPlies == board.m_shRootPlies;
        a.Add(SH_DONTLETFIGUREUNBLOCK);
    }
}

void LetPromotedQueenMove(TAnalysis& a) {
    const TChessboard& board = a.board;
    const int strength = 5 * board.m_whiteRooks + 3 * (board.m_whiteBishops + board.m_whiteKnights);
    if (a.Has(EdgeHeuristics) && board.m_whiteQueens > 0 &&
        2 * strength >= 3 * BlackPoints(board)) {
        a.Clear(SH_DONTLETPROMOTEDQUEENMOVE);
    }
    if (a.Has(SH_DONTLETPROMOTEDFIGUREMOVE)) {
        a.Clear(SH_DONTLETPROMOTEDQUEENMOVE);
    }
    a.parameters.bPromotedStrict =
        a.Has(SH_DONTLETPROMOTEDQUEENMOVE) && ArePromotionFieldsGuarded(board);
}

}  // namespace tarnwick
