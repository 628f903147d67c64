// How the black king is held. The idea behind most of these: lift the king off the board, let everything
// else stand still, and see where it could go.

#include <algorithm>
#include <bit>

#include "chess/attacks.h"
#include "chess/mate_in_one.h"
#include "chess/pins.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/scratch_moves.h"

namespace tarnwick {
namespace {

/// Fields at least two away from every edge.
constexpr TFieldSet InnerFields = 0x00003C3C3C3C0000ULL;
/// More than a walk on this many fields is no hold.
constexpr int MostFieldsOfHeldKing = 6;

TFieldSet KingNeighbours(const TChessboard& board) {
    return KingFields[static_cast<std::size_t>(BlackKingField(board))];
}

/// After White's check: nobody takes the man that moved.
bool IsCheckSafe(const TChessboard& after, TMove move) {
    if (after.m_blackChecker != move.to) {
        return true;  // Discovered or double.
    }
    const TFieldSet pinned = PinnedBlackMen(after);
    const TFieldSet king = FieldBit(BlackKingField(after));
    const TFieldSet takers = BlackAttackersOf(after, move.to) & ~pinned;
    if ((takers & ~king) != 0) {
        return false;
    }
    return takers == 0 || IsAttackedByWhiteOver(after, move.to, OccupiedFields(after));
}

bool HasSafeCheck(const TChessboard& board) {
    for (TFieldSet men = board.m_whiteMen; men != 0;) {
        const bool bChecks =
            AnyWhiteMove(board, PopLowest(men), [](const TChessboard& after, TMove move) {
                return after.m_blackChecker != NoChecker && IsCheckSafe(after, move);
            });
        if (bChecks) {
            return true;
        }
    }
    return false;
}

TFieldSet WhiteFigures(const TChessboard& board) {
    return board.m_whiteMen & ~board.m_pawns & ~FieldBit(WhiteKingField(board));
}

/// Whether one of the white figures may ever give check to a king on the field.
bool MayEverCheck(const TChessboard& board, TFieldSet figures, int kingField) {
    while (figures != 0) {
        const int figure = PopLowest(figures);
        if (TypeOf(board.m_fields[figure]) != TypeBishop ||
            ColourParity(figure) == ColourParity(kingField)) {
            return true;
        }
    }
    return false;
}

}  // namespace

TFieldSet KingRegion(const TChessboard& board, int steps) noexcept {
    const TFieldSet king = FieldBit(BlackKingField(board));
    const TFieldSet occupied = OccupiedFields(board) & ~king;
    TFieldSet region = king;
    for (TFieldSet front = king; steps > 0 && front != 0; --steps) {
        TFieldSet next = 0;
        while (front != 0) {
            next |= KingFields[static_cast<std::size_t>(PopLowest(front))];
        }
        for (next &= ~(region | board.m_blackMen); next != 0;) {
            const int field = PopLowest(next);
            front |= IsAttackedByWhiteOver(board, field, occupied) ? 0 : FieldBit(field);
        }
        region |= front;
    }
    return region & ~king;
}

bool IsBlackKingHeld(const TChessboard& board) noexcept {
    TFieldSet region = KingRegion(board, MostFieldsOfHeldKing);
    if (std::popcount(region) > MostFieldsOfHeldKing) {
        return false;
    }
    const int furthest = std::max(1, BlackKingEdgeDistance(board));
    while (region != 0) {
        if (FieldEdgeDistance(PopLowest(region)) > furthest) {
            return false;
        }
    }
    return true;
}

bool HasKingField(const TChessboard& board) noexcept {
    return FreeFields(board) != 0;
}

bool IsBlackNearStalemate(const TChessboard& board) noexcept {
    return MovableBlackMen(board, board.m_blackMen & ~FieldBit(BlackKingField(board))) == 0;
}

bool IsMatingNet(const TChessboard& board) noexcept {
    if (CountFreeFields(board) > 1) {
        return false;
    }
    return (!IsWhiteToMove(board) && board.m_blackChecker != NoChecker) || HasSafeCheck(board);
}

int CountCornerMoves(const TChessboard& board) noexcept {
    if (!IsKingInCorner(board)) {
        return 0;
    }
    const TFieldSet occupied = OccupiedFields(board) & ~FieldBit(BlackKingField(board));
    int moves = std::popcount(FreeFields(board));
    for (TFieldSet men = KingNeighbours(board) & board.m_blackMen; men != 0;) {
        const int field = PopLowest(men);
        moves +=
            !IsAttackedByWhiteOver(board, field, occupied) && CanBlackManMove(board, field) ? 1 : 0;
    }
    return moves;
}

bool CanHoldWithinExtendedEdge(const TChessboard& board) noexcept {
    return (KingRegion(board, 2) & InnerFields) == 0;
}

int CountBlackMenNearKing(const TChessboard& board) noexcept {
    return std::popcount(KingNeighbours(board) & board.m_blackMen);
}

bool IsKingCoveredByMen(const TChessboard& board) noexcept {
    return !HasKingField(board) && CountBlackMenNearKing(board) > 0;
}

bool AreCoveringMenBlocked(const TChessboard& board) noexcept {
    const TFieldSet men = KingNeighbours(board) & board.m_blackMen;
    return men != 0 && MovableBlackMen(board, men) == 0;
}

bool DoFiguresHoldKingArea(const TChessboard& board) noexcept {
    const TFieldSet figures = WhiteFigures(board);
    for (TFieldSet near = KingNeighbours(board); near != 0;) {
        if ((WhiteAttackersOf(board, PopLowest(near)) & figures) != 0) {
            return true;
        }
    }
    return false;
}

bool IsKeyFigureNeededInCorner(const TChessboard& board, int keyField) noexcept {
    if (!IsKingInCorner(board)) {
        return false;
    }
    const TFieldSet key = keyField < FieldCount ? FieldBit(keyField) : 0;
    const TFieldSet others = WhiteFigures(board) & ~key;
    return !MayEverCheck(board, others, BlackKingField(board)) ||
           MovableWhiteMen(board, others) == 0;
}

bool IsZugzwangPosition(const TChessboard& board) noexcept {
    TChessboard passed = ScratchOf(board);
    if (!IsWhiteToMove(board) || !PassWhite(passed)) {
        return false;
    }
    bool bCanMove = false;
    for (TFieldSet men = passed.m_blackMen; men != 0;) {
        const bool bEscapes = AnyBlackMove(passed, PopLowest(men), [&](TChessboard& after, TMove) {
            bCanMove = true;
            return !IsMateInOne(after);
        });
        if (bEscapes) {
            return false;
        }
    }
    return bCanMove;
}

}  // namespace tarnwick
