#include "app/shell/board_widget.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <optional>

#include "app/shell/accessible_board.h"
#include "app/view/field_names.h"
#include "app/view/typed_move.h"

namespace tarnwick {
namespace {

constexpr int SmallestField = 24;
constexpr int DefaultField = 50;

std::optional<TBoardDirection> DirectionOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return TBoardDirection::Left;
        case Qt::Key_Right:
            return TBoardDirection::Right;
        case Qt::Key_Up:
            return TBoardDirection::Up;
        case Qt::Key_Down:
            return TBoardDirection::Down;
        default:
            return std::nullopt;
    }
}

}  // namespace

CBoardWidget::CBoardWidget(QWidget* pParent)
    : QWidget(pParent), m_board(EmptyChessboard()), m_palette(LightPalette) {
    InstallBoardAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CBoardWidget::ShowBoard(const TChessboard& board, bool bMovesAllowed) {
    if (m_setup) {
        m_setup.reset();
        update();
    }
    Show(board, bMovesAllowed);
}

void CBoardWidget::ShowSetup(const TChessboard& board, const TSetupMarks& marks) {
    m_setup = marks;
    Show(board, false);
    update();
}

void CBoardWidget::Show(const TChessboard& board, bool bMovesAllowed) {
    const TFieldSet lastBefore = LastMoveFields();
    m_board = board;
    m_bMovesAllowed = bMovesAllowed;
    SetTyped("");
    TDragStep step = m_drag.SetBoard(board, bMovesAllowed);
    step.changed |= lastBefore ^ LastMoveFields();
    Obey(step);
    TellBoardChanged(*this);
}

void CBoardWidget::SetRotated(bool bRotated) {
    m_bRotated = bRotated;
    update();
    TellBoardChanged(*this);
}

void CBoardWidget::SetPalette(const TPalette& palette) {
    m_palette = palette;
    update();
}

void CBoardWidget::Promote(TFigureCode type) {
    Obey(type == EmptyField ? m_drag.Cancel() : m_drag.Promote(type));
}

void CBoardWidget::ActivateField(int field) {
    Obey(m_drag.PutCursor(field));
    if (m_setup) {
        emit fieldChosen(field);
        return;
    }
    Obey(m_drag.ActivateCursor());
}

void CBoardWidget::FlashFields(TFieldSet fields) {
    m_flashed = fields;
    update();
}

void CBoardWidget::RetellNames() {
    TellBoardChanged(*this);
}

TBoardGeometry CBoardWidget::Geometry() const {
    return FitBoard({0, 0, width(), height()}, m_bRotated);
}

QSize CBoardWidget::minimumSizeHint() const {
    return {8 * SmallestField, 8 * SmallestField};
}

QSize CBoardWidget::sizeHint() const {
    return {8 * DefaultField, 8 * DefaultField};
}

int CBoardWidget::FieldAtGlobal(const QPoint& globalPlace) const {
    return FieldAtPoint(mapFromGlobal(globalPlace));
}

int CBoardWidget::FieldAtPoint(const QPointF& place) const {
    const QPoint point = place.toPoint();
    return Geometry().FieldUnder(point.x(), point.y());
}

QRect CBoardWidget::SquareOf(int field) const {
    const TRectangle square = Geometry().FieldSquare(field);
    return {square.x, square.y, square.width, square.height};
}

TFieldSet CBoardWidget::LastMoveFields() const {
    const TMove last = m_board.m_lastMove;
    const bool bShown = m_board.m_pPrevious != nullptr && !last.IsPass();
    return bShown ? FieldBit(last.from) | FieldBit(last.to) : 0;
}

bool CBoardWidget::event(QEvent* pEvent) {
    if (pEvent->type() != QEvent::ToolTip) {
        return QWidget::event(pEvent);
    }
    const auto* const pHelp = static_cast<QHelpEvent*>(pEvent);
    const int field = FieldAtPoint(pHelp->pos());
    if (field == NoFieldUnderMouse || m_drag.DraggedMan() != EmptyField) {
        QToolTip::hideText();
        pEvent->ignore();
    } else {
        const std::string name = FieldNameForReader(m_board, m_drag, field);
        QToolTip::showText(pHelp->globalPos(), QString::fromStdString(name), this, SquareOf(field));
    }
    return true;
}

// The mouse.

void CBoardWidget::mousePressEvent(QMouseEvent* pEvent) {
    if (m_setup) {
        PressSetup(*pEvent);
        return;
    }
    const int field = FieldAtPoint(pEvent->position());
    if (pEvent->button() == Qt::LeftButton) {
        SetTyped("");
        Obey(m_drag.HideCursor());
        m_mouse = pEvent->position().toPoint();
        Obey(m_drag.Press(field));
        FollowMouse(pEvent->position());
    }
}

void CBoardWidget::PressSetup(const QMouseEvent& event) {
    const int field = FieldAtPoint(event.position());
    if (field != NoFieldUnderMouse) {
        Obey(m_drag.HideCursor());
        emit fieldPressed(field, event.button());
    }
}

void CBoardWidget::mouseMoveEvent(QMouseEvent* pEvent) {
    if (m_setup) {
        m_mouseField = FieldAtPoint(pEvent->position());
        emit mouseDragged(pEvent->globalPosition().toPoint());
        return;
    }
    Obey(m_drag.Hover(FieldAtPoint(pEvent->position())));
    FollowMouse(pEvent->position());
}

void CBoardWidget::mouseReleaseEvent(QMouseEvent* pEvent) {
    if (m_setup) {
        emit mouseReleased(pEvent->globalPosition().toPoint());
        return;
    }
    if (pEvent->button() == Qt::LeftButton) {
        update(DraggedManSquare());
        Obey(m_drag.Release(FieldAtPoint(pEvent->position())));
        FollowMouse(pEvent->position());
    }
}

void CBoardWidget::leaveEvent(QEvent* /*pEvent*/) {
    m_mouseField = NoFieldUnderMouse;
    Obey(m_drag.Hover(NoFieldUnderMouse));
}

void CBoardWidget::contextMenuEvent(QContextMenuEvent* pEvent) {
    const bool bByKey = pEvent->reason() == QContextMenuEvent::Keyboard;
    const int field = bByKey ? m_drag.CursorField() : FieldAtPoint(pEvent->pos());
    if (field == NoFieldUnderMouse || !m_bMovesAllowed) {
        pEvent->ignore();
        return;
    }
    emit fieldContextMenu(field,
                          bByKey ? mapToGlobal(SquareOf(field).center()) : pEvent->globalPos());
}

/// Moves the picture of the dragged man, and shows by the cursor what a click would do.
void CBoardWidget::FollowMouse(const QPointF& place) {
    if (m_drag.DraggedMan() != EmptyField) {
        update(DraggedManSquare());
        m_mouse = place.toPoint();
        update(DraggedManSquare());
    }
    const bool bHand = m_drag.SelectedField() != NoFieldUnderMouse;
    if (bHand != (cursor().shape() == Qt::PointingHandCursor)) {
        setCursor(bHand ? Qt::PointingHandCursor : Qt::ArrowCursor);
    }
}

// The keyboard.

void CBoardWidget::keyPressEvent(QKeyEvent* pEvent) {
    constexpr auto NotForMoves = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if ((pEvent->modifiers() & NotForMoves) != 0) {
        QWidget::keyPressEvent(pEvent);
        return;
    }
    const int key = pEvent->key();
    if (const auto direction = DirectionOf(key)) {
        MoveCursorBy(*direction);
    } else if (m_setup) {
        PressSetupKey(*pEvent);
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        CommitTyped();
    } else if (key == Qt::Key_Escape) {
        SetTyped("");
        Obey(m_drag.Cancel());
        Obey(m_drag.HideCursor());
    } else if (key == Qt::Key_Backspace && !m_typed.empty()) {
        SetTyped(m_typed.substr(0, m_typed.size() - 1));
    } else if (m_bMovesAllowed && pEvent->text().size() == 1 &&
               IsMoveCharacter(pEvent->text()[0].unicode())) {
        Type(pEvent->text());
    } else {
        QWidget::keyPressEvent(pEvent);
    }
}

/// What the window does not take as a key of setting up is a key of the window.
void CBoardWidget::PressSetupKey(QKeyEvent& event) {
    const int key = event.key();
    const int cursor = m_drag.CursorField();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        if (cursor != NoFieldUnderMouse) {
            emit fieldChosen(cursor);
        }
    } else if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        QWidget::keyPressEvent(&event);
    } else {
        emit setupKeyPressed(cursor != NoFieldUnderMouse ? cursor : m_mouseField, key,
                             event.text());
    }
}

void CBoardWidget::focusOutEvent(QFocusEvent* pEvent) {
    if (pEvent->reason() != Qt::PopupFocusReason) {
        SetTyped("");
        Obey(m_drag.HideCursor());
    }
    QWidget::focusOutEvent(pEvent);
}

void CBoardWidget::MoveCursorBy(TBoardDirection direction) {
    Obey(m_drag.MoveCursor(Geometry(), direction));
}

/// Enter plays the typed move, or picks up and puts down at the cursor when nothing was typed.
void CBoardWidget::CommitTyped() {
    if (m_typed.empty()) {
        Obey(m_drag.ActivateCursor());
        return;
    }
    const std::string typed = m_typed;
    const TTypedMoves read = ReadTypedMove(m_board, typed);
    SetTyped("");
    if (read.exact.size() == 1) {
        emit moveWanted(read.exact.front());
    } else {
        emit typedTextRefused(QString::fromStdString(typed));
    }
}

/// Takes the character if some legal move goes on like that, and plays a move that is complete.
void CBoardWidget::Type(const QString& text) {
    const std::string typed = m_typed + text.toStdString();
    const TTypedMoves read = ReadTypedMove(m_board, typed);
    if (read.IsDecided()) {
        SetTyped("");
        Obey(m_drag.Cancel());
        emit moveWanted(read.exact.front());
    } else if (!read.IsHopeless()) {
        SetTyped(typed);
    }
}

void CBoardWidget::SetTyped(const std::string& text) {
    if (text != m_typed) {
        m_typed = text;
        emit typedTextChanged(QString::fromStdString(text));
    }
}

/// Repaints and tells what changed, then passes on what the step asks for. The signals come last: the
/// window may show another board in answer to them.
void CBoardWidget::Obey(const TDragStep& step) {
    for (int field = 0; field < FieldCount; ++field) {
        if ((step.changed & FieldBit(field)) != 0) {
            update(SquareOf(field));
        }
    }
    TellFieldsChanged(*this, step.changed);
    if (m_drag.CursorField() != m_toldCursor) {
        m_toldCursor = m_drag.CursorField();
        TellCursorMoved(*this, m_toldCursor);
    }
    if (step.move) {
        emit moveWanted(*step.move);
    } else if (step.refused) {
        emit moveRefused(*step.refused);
    } else if (step.bAskPromotion) {
        const QRect square = SquareOf(m_drag.HoverField());
        emit promotionWanted(mapToGlobal(square.center()), IsWhiteToMove(m_board));
    }
}

}  // namespace tarnwick
