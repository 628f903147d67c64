#pragma once
// A move made on the board by hand: which field is selected, which one is under the mouse, whether the
// man may go there, and what to repaint. Dragging, two clicks and the keyboard go through the same few
// states, so that they cannot come to differ:
//
//   nothing selected --press own man--> selected --release or Enter on another field--> move or refusal
//                                       selected --release on the same field--> selected (for click-click)
//   a pawn on its last rank --> promotion asked --Promote--> move
//
// The window forwards what the user does, repaints TDragStep::changed, and obeys move and refused.
// Window thread only.

#include <array>
#include <optional>
#include <vector>

#include "app/view/board_geometry.h"
#include "chess/chessboard.h"

namespace tarnwick {

/// How a field is framed.
enum class TFieldMark : std::uint8_t {
    None,
    Selected,         ///< The man on it is being moved.
    AllowedTarget,    ///< Under the mouse; the man may go there.
    ForbiddenTarget,  ///< Under the mouse; the man may not go there.
};

/// What one action of the user led to.
struct TDragStep {
    TFieldSet changed = 0;         ///< Fields that look different now.
    std::optional<TMove> move;     ///< A legal move to make.
    std::optional<TMove> refused;  ///< An illegal move, of which the user should hear why not.
    bool bAskPromotion = false;    ///< Offer the four figures, then call Promote or Cancel.
};

class CMoveDrag {
  public:
    /// Shows another position; drops the selection and keeps the keyboard cursor. The board is copied, but
    /// the boards before it must live until the next call: castling and en passant follow from them.
    /// Without moves allowed the men cannot be picked up and the board need not be a prepared position.
    TDragStep SetBoard(const TChessboard& board, bool bMovesAllowed);

    // The mouse. A field is 0 to 63 or NoFieldUnderMouse.
    TDragStep Press(int field);
    TDragStep Hover(int field);
    TDragStep Release(int field);

    // The keyboard. The first arrow key shows the cursor, the next ones move it.
    TDragStep MoveCursor(const TBoardGeometry& geometry, TBoardDirection direction);
    TDragStep PutCursor(int field);
    TDragStep HideCursor();
    /// Enter: a click on the field of the cursor.
    TDragStep ActivateCursor();

    /// Finishes a promotion that was asked for. Type: TypeQueen, TypeRook, TypeBishop or TypeKnight.
    TDragStep Promote(TFigureCode type);
    /// Escape, a lost mouse, a promotion that was not chosen.
    TDragStep Cancel();

    TFieldMark MarkOf(int field) const;
    /// The man to draw on the field: its own, or on an allowed target the man as it would stand there, a
    /// pawn of the last rank as a queen. While a button is held the man follows the mouse instead.
    TFigureCode ShownOn(int field) const;
    /// The man that follows the mouse: the selected one, a queen while it would promote. EmptyField
    /// unless a button is held.
    TFigureCode DraggedMan() const;
    /// Fields that the selected man may go to.
    TFieldSet Targets() const { return m_targets; }
    int SelectedField() const { return m_selectedField; }
    int HoverField() const { return m_hoverField; }
    int CursorField() const { return m_cursorField; }
    /// The selected pawn would promote on the field under the mouse.
    bool IsPromotionPending() const { return m_bPromotionPending; }
    bool IsMoveForbidden() const { return m_bMoveForbidden; }

  private:
    /// Everything of a field that is painted; steps compare it before and after.
    struct TLook {
        TFieldMark mark;
        TFigureCode code;
        bool bTarget;
        bool bCursor;
        bool operator==(const TLook&) const = default;
    };
    using TLooks = std::array<TLook, FieldCount>;

    TLooks Looks() const;
    TDragStep StepSince(const TLooks& before) const;
    bool IsOwnMan(int field) const;
    void Select(int field);
    void Deselect();
    void SetHover(int field);
    void Finish(int target, TDragStep& step);
    TFigureCode MovingMan() const;

    TChessboard m_board = EmptyChessboard();
    bool m_bMovesAllowed = false;
    std::vector<TMove> m_moves;  ///< Legal ones of the selected man.
    TFieldSet m_targets = 0;
    int m_selectedField = NoFieldUnderMouse;
    int m_hoverField = NoFieldUnderMouse;
    int m_cursorField = NoFieldUnderMouse;
    bool m_bPromotionPending = false;
    bool m_bMoveForbidden = false;
    bool m_bButtonHeld = false;
    bool m_bSelectedBefore = false;  ///< The pressed field was selected by an earlier click.
    bool m_bPromotionAsked = false;
};

}  // namespace tarnwick
