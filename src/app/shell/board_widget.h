#pragma once
// The board on screen: paints a position with its marks and turns what mouse and keys do on it into
// moves that the rules allow. It changes no position itself: the window makes the move, or explains a
// refusal, and then shows the new board. Only fields that look different are repainted.

#include <QWidget>
#include <string>

#include "app/shell/piece_set.h"
#include "app/view/board_geometry.h"
#include "app/view/move_drag.h"
#include "app/view/palettes.h"

namespace tarnwick {

class CBoardWidget : public QWidget {
    Q_OBJECT

  public:
    explicit CBoardWidget(QWidget* pParent = nullptr);

    /// Shows a position and frees what was selected. The board is copied; the boards before it must live
    /// until the next call. Where no move may be made, as while a position is being set up, the men stay
    /// put and fieldPressed reports what the user clicks.
    void ShowBoard(const TChessboard& board, bool bMovesAllowed = true);
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
    void fieldPressed(int field, Qt::MouseButton button);
    /// The move that is being typed so far, empty when it was made or given up.
    void typedTextChanged(const QString& text);
    /// Enter was pressed on a text that spells no legal move, or two.
    void typedTextRefused(const QString& text);

  protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;

  private:
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
    bool m_bRotated = false;
    bool m_bMovesAllowed = false;
};

}  // namespace tarnwick
