#include "chess/field_transforms.h"

#include <cstring>

#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

TField ShiftedField(int field, int files, int ranks) {
    const int file = FileOf(field) + files;
    const int rank = RankOf(field) + ranks;
    return OnBoard(file, rank) ? FieldAt(file, rank) : NoField;
}

}  // namespace

TField TransformField(TTransform transform, TField field) noexcept {
    const int file = FileOf(field);
    const int rank = RankOf(field);
    switch (transform) {
        case TTransform::SwapColours:
            return FieldAt(file, 7 - rank);
        case TTransform::ShiftLeft:
            return ShiftedField(field, -1, 0);
        case TTransform::ShiftRight:
            return ShiftedField(field, 1, 0);
        case TTransform::ShiftDown:
            return ShiftedField(field, 0, -1);
        case TTransform::ShiftUp:
            return ShiftedField(field, 0, 1);
        case TTransform::Rotate:
            return FieldAt(rank, 7 - file);
        case TTransform::Mirror:
            return FieldAt(7 - file, rank);
    }
    return NoField;
}

bool TransformMove(TTransform transform, TMove& move) noexcept {
    const TField from = TransformField(transform, move.from);
    const TField to = TransformField(transform, move.to);
    if (from == NoField || to == NoField) {
        return false;
    }
    move.from = from;
    move.to = to;
    return true;
}

TFigureCode TransformMan(TTransform transform, TFigureCode code) noexcept {
    if (transform != TTransform::SwapColours || code == EmptyField) {
        return code;
    }
    const TFigureCode colour = IsWhite(code) ? BlackFlag : WhiteFlag;
    return static_cast<TFigureCode>((code & (TypeMask | MarkBit)) | colour);
}

void TransformPosition(TTransform transform, TChessboard& board) {
    TChessboard moved = board;
    std::memset(moved.m_fields, EmptyField, sizeof moved.m_fields);
    for (TField field = 0; field < FieldCount; ++field) {
        const TField target = TransformField(transform, field);
        if (target != NoField) {
            moved.m_fields[target] = TransformMan(transform, board.m_fields[field]);
        }
    }
    PreparePosition(moved, false);
    board = moved;
}

}  // namespace tarnwick
