#include "app/view/move_drag.h"

#include <algorithm>

#include "chess/legal_moves.h"

namespace tarnwick {

TDragStep CMoveDrag::SetBoard(const TChessboard& board, bool bMovesAllowed) {
    const TLooks before = Looks();
    Deselect();
    m_board = board;
    m_bMovesAllowed = bMovesAllowed;
    return StepSince(before);
}

TDragStep CMoveDrag::Press(int field) {
    const TLooks before = Looks();
    if (m_bPromotionAsked) {
        Deselect();
    }
    m_bSelectedBefore = field == m_selectedField;
    if (IsOwnMan(field) && !m_bSelectedBefore) {
        Select(field);
    }
    m_bButtonHeld = m_selectedField != NoFieldUnderMouse;
    SetHover(field);
    return StepSince(before);
}

TDragStep CMoveDrag::Hover(int field) {
    if (m_selectedField == NoFieldUnderMouse || m_bPromotionAsked || field == m_hoverField) {
        return {};
    }
    const TLooks before = Looks();
    SetHover(field);
    return StepSince(before);
}

TDragStep CMoveDrag::Release(int field) {
    if (!m_bButtonHeld) {
        return {};
    }
    const TLooks before = Looks();
    m_bButtonHeld = false;
    TDragStep step;
    if (field == m_selectedField) {
        if (m_bSelectedBefore) {
            Deselect();
        }
    } else if (field == NoFieldUnderMouse) {
        Deselect();
    } else {
        Finish(field, step);
    }
    step.changed = StepSince(before).changed;
    return step;
}

TDragStep CMoveDrag::MoveCursor(const TBoardGeometry& geometry, TBoardDirection direction) {
    if (m_cursorField != NoFieldUnderMouse) {
        return PutCursor(geometry.Neighbour(m_cursorField, direction));
    }
    // Where the user looks already: at the last move, or at the king that he plays for.
    const TFigureCode king = IsWhiteToMove(m_board) ? WhiteKing : BlackKing;
    const auto kingField = std::ranges::find(m_board.m_fields, king) - std::begin(m_board.m_fields);
    const bool bHasLast = m_board.m_pPrevious != nullptr && !m_board.m_lastMove.IsPass();
    const int start = bHasLast ? m_board.m_lastMove.to : static_cast<int>(kingField);
    return PutCursor(start < FieldCount ? start : A1);
}

TDragStep CMoveDrag::PutCursor(int field) {
    const TLooks before = Looks();
    m_cursorField = field;
    if (m_selectedField != NoFieldUnderMouse && !m_bPromotionAsked) {
        SetHover(field);
    }
    return StepSince(before);
}

TDragStep CMoveDrag::HideCursor() {
    return PutCursor(NoFieldUnderMouse);
}

TDragStep CMoveDrag::ActivateCursor() {
    if (m_cursorField == NoFieldUnderMouse) {
        return {};
    }
    const TDragStep pressed = Press(m_cursorField);
    TDragStep released = Release(m_cursorField);
    released.changed |= pressed.changed;
    return released;
}

TDragStep CMoveDrag::Promote(TFigureCode type) {
    if (!m_bPromotionAsked) {
        return {};
    }
    const auto chosen = std::ranges::find_if(m_moves, [&](TMove move) {
        return move.to == m_hoverField && move.PromotionType() == type;
    });
    std::optional<TMove> move;
    if (chosen != m_moves.end()) {
        move = *chosen;
    }
    TDragStep step = Cancel();
    step.move = move;
    return step;
}

TDragStep CMoveDrag::Cancel() {
    const TLooks before = Looks();
    Deselect();
    return StepSince(before);
}

TFieldMark CMoveDrag::MarkOf(int field) const {
    if (m_selectedField == NoFieldUnderMouse) {
        return TFieldMark::None;
    }
    if (field == m_selectedField) {
        return TFieldMark::Selected;
    }
    if (field != m_hoverField) {
        return TFieldMark::None;
    }
    return m_bMoveForbidden ? TFieldMark::ForbiddenTarget : TFieldMark::AllowedTarget;
}

TFigureCode CMoveDrag::ShownOn(int field) const {
    const bool bPreview = MarkOf(field) == TFieldMark::AllowedTarget && !m_bButtonHeld;
    return bPreview ? MovingMan() : m_board.m_fields[field];
}

TFigureCode CMoveDrag::DraggedMan() const {
    return m_bButtonHeld ? MovingMan() : EmptyField;
}

CMoveDrag::TLooks CMoveDrag::Looks() const {
    TLooks looks;
    for (int field = 0; field < FieldCount; ++field) {
        looks[static_cast<std::size_t>(field)] = {MarkOf(field), ShownOn(field),
                                                  (m_targets & FieldBit(field)) != 0,
                                                  field == m_cursorField};
    }
    return looks;
}

TDragStep CMoveDrag::StepSince(const TLooks& before) const {
    const TLooks now = Looks();
    TDragStep step;
    for (int field = 0; field < FieldCount; ++field) {
        const auto i = static_cast<std::size_t>(field);
        if (now[i] != before[i]) {
            step.changed |= FieldBit(field);
        }
    }
    return step;
}

bool CMoveDrag::IsOwnMan(int field) const {
    if (!m_bMovesAllowed || field == NoFieldUnderMouse) {
        return false;
    }
    const TFigureCode own = IsWhiteToMove(m_board) ? WhiteFlag : BlackFlag;
    return ColourOf(m_board.m_fields[field]) == own;
}

void CMoveDrag::Select(int field) {
    Deselect();
    m_selectedField = field;
    m_moves = LegalMovesFrom(m_board, field);
    for (const TMove move : m_moves) {
        m_targets |= FieldBit(move.to);
    }
}

void CMoveDrag::Deselect() {
    m_selectedField = NoFieldUnderMouse;
    m_hoverField = NoFieldUnderMouse;
    m_moves.clear();
    m_targets = 0;
    m_bPromotionPending = false;
    m_bMoveForbidden = false;
    m_bButtonHeld = false;
    m_bPromotionAsked = false;
}

void CMoveDrag::SetHover(int field) {
    const bool bTarget = m_selectedField != NoFieldUnderMouse && field != NoFieldUnderMouse &&
                         field != m_selectedField;
    const bool bAllowed = bTarget && (m_targets & FieldBit(field)) != 0;
    const bool bPawn = bTarget && TypeOf(m_board.m_fields[m_selectedField]) == TypePawn;
    m_hoverField = bTarget ? field : NoFieldUnderMouse;
    m_bMoveForbidden = bTarget && !bAllowed;
    m_bPromotionPending = bAllowed && bPawn && (RankOf(field) == 0 || RankOf(field) == 7);
}

/// The man is put down on another field: a move, a question for the figure, or a refusal.
void CMoveDrag::Finish(int target, TDragStep& step) {
    SetHover(target);
    if (m_bMoveForbidden) {
        step.refused =
            TMove{static_cast<TField>(m_selectedField), static_cast<TField>(target), 0, 0};
        Deselect();
    } else if (m_bPromotionPending) {
        m_bPromotionAsked = true;
        step.bAskPromotion = true;
    } else {
        step.move = *std::ranges::find_if(m_moves, [&](TMove move) { return move.to == target; });
        Deselect();
    }
}

TFigureCode CMoveDrag::MovingMan() const {
    const TFigureCode man = m_board.m_fields[m_selectedField];
    return m_bPromotionPending ? static_cast<TFigureCode>(ColourOf(man) | TypeQueen) : man;
}

}  // namespace tarnwick
