#include "engine/heuristics/key_white_figure.h"

#include "chess/attacks.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/line_moves.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

int KeyField(const TChessboard& board) {
    return Thread(board).m_heuristics.KeyWhiteFigureField;
}

bool IsOnDiagonalOf(int field, int other) {
    return (DiagonalRays[static_cast<std::size_t>(other)] & FieldBit(field)) != 0;
}

/// The last move is the first one of the black king in the line.
bool HasKingMovedFirstTime(const TChessboard& afterBlack) {
    if (LastMover(afterBlack) != BlackKing || afterBlack.m_lastMove.IsPass()) {
        return false;
    }
    for (const TChessboard* b = afterBlack.m_pPrevious; b != nullptr; b = b->m_pPrevious) {
        if (LastMover(*b) == BlackKing && !b->m_lastMove.IsPass()) {
            return false;
        }
    }
    return true;
}

/// The man taken is guarded, and worth less than the man that takes.
bool IsCaptureUnsafe(const TChessboard& board, TMove move) {
    TFieldSet guards = BlackAttackersOf(board, move.to);
    if (HasMoreThanOne(WhiteAttackersOf(board, move.to))) {
        guards &= ~FieldBit(BlackKingField(board));
    }
    return guards != 0 && FigureValues[TypeOf(board.m_fields[move.from])] >
                              FigureValues[TypeOf(board.m_fields[move.to])];
}

}  // namespace

TField PinnedByKeyFigure(const TChessboard& board) noexcept {
    const int key = KeyField(board);
    if (key >= FieldCount || !IsWhite(board.m_fields[key])) {
        return NoField;
    }
    const TFigureCode type = TypeOf(board.m_fields[key]);
    const auto k = static_cast<std::size_t>(key);
    const TFieldSet reach = ((type & TypeBishop) != 0 ? DiagonalRays[k] : 0) |
                            ((type & TypeRook) != 0 ? StraightRays[k] : 0);
    const int king = BlackKingField(board);
    const TFieldSet between = Between(key, king) & OccupiedFields(board);
    const bool bPins = (reach & FieldBit(king)) != 0 && between != 0 && !HasMoreThanOne(between) &&
                       (between & board.m_blackMen) != 0;
    return bPins ? static_cast<TField>(LowestField(between)) : NoField;
}

void UpdateKeyWhiteFigure(TChessboard& afterBlack) noexcept {
    const bool bHolds = PinnedByKeyFigure(afterBlack) != NoField &&
                        (!HasKingMovedFirstTime(afterBlack) ||
                         IsOnDiagonalOf(BlackKingField(afterBlack), KeyField(afterBlack)));
    if (!bHolds) {
        SetHeuristics(afterBlack, afterBlack.m_heuristicFlags.Raw() & ~SH_KEYWHITEFIGURE);
    }
}

bool IsLeftOutByKeyFigure(const TChessboard& board, TMove move) noexcept {
    const TField pinned = PinnedByKeyFigure(board);
    if (pinned == NoField) {
        return false;
    }
    if (move.to == pinned) {
        return IsCaptureUnsafe(board, move);
    }
    return move.from == KeyField(board);
}

}  // namespace tarnwick
