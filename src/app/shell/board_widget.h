#pragma once
// The board on screen: paints a position with its marks and turns what mouse and keys do on it into
// moves that the rules allow. It changes no position itself: the window makes the move, or explains a
// refusal, and then shows the new board. Only fields that look different are repainted.
//
// While a position is being set up it knows no moves and reports what the user does to the fields.

#include <QWidget>
#include <optional>
#include <string>

#include "app/shell/piece_set.h"
#include "app/view/board_geometry.h"
#include "app/view/move_drag.h"
#include "app/view/palettes.h"

namespace tarnwick {

/// The marks of a position that is being set up.
struct TSetupMarks {
    TFieldSet faulty = 0;                ///< Framed in red: why the position was refused.
    TFieldSet doubtful = 0;              ///< Framed in yellow: for the user to check.
    int liftedFrom = NoFieldUnderMouse;  ///< The man on it is being dragged.
};

class CBoardWidget : public QWidget {
    Q_OBJECT

  public:
    explicit CBoardWidget(QWidget* pParent = nullptr);

    /// Shows a position and frees what was selected. The board is copied; the boards before it must live
    /// until the next call. Where no move may be made the men stay put.
    void ShowBoard(const TChessboard& board, bool bMovesAllowed = true);
    /// Shows men that are being set up; the board need not be prepared. From now to the next ShowBoard
    /// the signals of setting up report the mouse and the keys.
    void ShowSetup(const TChessboard& board, const TSetupMarks& marks);
    /// Null unless a position is being set up.
    const TSetupMarks* SetupMarks() const { return m_setup ? &*m_setup : nullptr; }
    /// The field at a place of the screen, NoFieldUnderMouse beside the board.
    int FieldAtGlobal(const QPoint& globalPlace) const;
    void SetRotated(bool bRotated);
    void SetPalette(const TPalette& palette);
    /// Finishes a promotion that promotionWanted asked for; EmptyField withdraws the pawn.
    void Promote(TFigureCode type);
    /// Enter on the field of the keyboard, for those who reach it by a screen reader.
    void ActivateField(int field);
    /// Frames these fields until the next call, as the flash of a solution does; 0 frames none.
    void FlashFields(TFieldSet fields);
    /// After a change of language: the names of board and fields are told anew.
    void RetellNames();

    const TChessboard& Board() const { return m_board; }
    const CMoveDrag& Drag() const { return m_drag; }
    TBoardGeometry Geometry() const;
    bool IsRotated() const { return m_bRotated; }
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  signals:
    void moveWanted(tarnwick::TMove move);
    /// The rules forbid it; the user should hear why.
    void moveRefused(tarnwick::TMove move);
    /// Offer the four figures at this place and call Promote.
    void promotionWanted(const QPoint& globalPlace, bool bWhite);
    void fieldContextMenu(int field, const QPoint& globalPlace);

    // Setting up.

    void fieldPressed(int field, Qt::MouseButton button);
    void mouseDragged(const QPoint& globalPlace);
    void mouseReleased(const QPoint& globalPlace);
    /// Enter, or the action of a screen reader.
    void fieldChosen(int field);
    /// A key that is none of the board's own: at the field of the keyboard, or else under the mouse;
    /// NoFieldUnderMouse for none.
    void setupKeyPressed(int field, int key, const QString& text);

    /// The move that is being typed so far, empty when it was made or given up.
    void typedTextChanged(const QString& text);
    /// Enter was pressed on a text that spells no legal move, or two.
    void typedTextRefused(const QString& text);

  protected:
    /// Tooltips tell of the field under the mouse what a screen reader says.
    bool event(QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;

  private:
    void Show(const TChessboard& board, bool bMovesAllowed);
    void PressSetup(const QMouseEvent& event);
    void PressSetupKey(QKeyEvent& event);
    int FieldAtPoint(const QPointF& place) const;
    QRect SquareOf(int field) const;
    void PaintField(QPainter& painter, int field);
    void PaintMan(QPainter& painter, int field, const QRect& square);
    void PaintMarks(QPainter& painter, int field, const QRect& square);
    void PaintCoordinates(QPainter& painter, int field, const QRect& square);
    void PaintDraggedMan(QPainter& painter);
    QRect DraggedManSquare() const;
    TFieldSet LastMoveFields() const;
    void Obey(const TDragStep& step);
    void FollowMouse(const QPointF& place);
    void MoveCursorBy(TBoardDirection direction);
    void CommitTyped();
    void Type(const QString& text);
    void SetTyped(const std::string& text);

    TChessboard m_board;
    CMoveDrag m_drag;
    CPieceSet m_pieces;
    TPalette m_palette;
    std::string m_typed;
    QPoint m_mouse;
    TFieldSet m_flashed = 0;
    int m_toldCursor = NoFieldUnderMouse;
    std::optional<TSetupMarks> m_setup;
    int m_mouseField = NoFieldUnderMouse;  ///< While a position is being set up.
    bool m_bRotated = false;
    bool m_bMovesAllowed = false;
};

}  // namespace tarnwick
