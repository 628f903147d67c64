// How the board looks: fields, coordinates, men, marks, and the man that follows the mouse.

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "app/shell/board_widget.h"
#include "app/shell/colours.h"

namespace tarnwick {
namespace {

constexpr int LastMoveAlpha = 110;
/// A man that is being dragged stays visible on its field, faintly.
constexpr qreal LiftedOpacity = 0.3;

/// A man leaves a narrow margin, so that frames and coordinates show beside it.
QRect RoomForMan(const QRect& square) {
    const int margin = square.width() / 24;
    return square.adjusted(margin, margin, -margin, -margin);
}

bool IsDark(int field) {
    return ColourParity(field) == 0;
}

}  // namespace

void CBoardWidget::paintEvent(QPaintEvent* pEvent) {
    QPainter painter(this);
    const TRectangle board = Geometry().Board();
    const QRegion beside = QRegion(rect()) - QRegion(board.x, board.y, board.width, board.height);
    for (const QRect& part : beside) {
        painter.fillRect(part, ToQColor(m_palette.window));
    }
    for (int field = 0; field < FieldCount; ++field) {
        if (pEvent->region().intersects(SquareOf(field))) {
            PaintField(painter, field);
        }
    }
    PaintDraggedMan(painter);
}

void CBoardWidget::PaintField(QPainter& painter, int field) {
    const QRect square = SquareOf(field);
    painter.fillRect(square, ToQColor(IsDark(field) ? m_palette.darkField : m_palette.lightField));
    if ((LastMoveFields() & FieldBit(field)) != 0) {
        painter.fillRect(square, ToQColor(m_palette.lastMove, LastMoveAlpha));
    }
    PaintCoordinates(painter, field, square);
    PaintMan(painter, field, square);
    PaintMarks(painter, field, square);
}

void CBoardWidget::PaintMan(QPainter& painter, int field, const QRect& square) {
    const TFigureCode code = m_drag.ShownOn(field);
    if (code == EmptyField) {
        return;
    }
    const QRect place = RoomForMan(square);
    const bool bSelected = m_drag.MarkOf(field) == TFieldMark::Selected;
    const bool bLifted =
        m_setup ? m_setup->liftedFrom == field : bSelected && m_drag.DraggedMan() != EmptyField;
    painter.setOpacity(bLifted ? LiftedOpacity : 1);
    painter.drawPixmap(place.topLeft(), m_pieces.Pixmap(code, place.width(), devicePixelRatioF()));
    painter.setOpacity(1);
}

/// The frames and dots of a move that is being made, and the frame of the keyboard.
void CBoardWidget::PaintMarks(QPainter& painter, int field, const QRect& square) {
    const int line = std::max(square.width() / 16, 2);
    const auto frame = [&](TColour colour, int width, int inset) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ToQColor(colour), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        const qreal half = width / 2.0 + inset;
        painter.drawRect(QRectF(square).adjusted(half, half, -half, -half));
    };
    const TFieldMark mark = m_drag.MarkOf(field);
    if (m_setup && (m_setup->faulty & FieldBit(field)) != 0) {
        frame(m_palette.forbiddenMark, line, 0);
    } else if (m_setup && (m_setup->doubtful & FieldBit(field)) != 0) {
        frame(m_palette.doubtfulMark, line, 0);
    }
    if ((m_flashed & FieldBit(field)) != 0) {
        frame(m_palette.allowedMark, line, 0);
    }
    if (mark == TFieldMark::Selected) {
        frame(m_palette.selectedMark, line, 0);
    } else if (mark == TFieldMark::AllowedTarget) {
        frame(m_palette.allowedMark, line, 0);
    } else if (mark == TFieldMark::ForbiddenTarget) {
        frame(m_palette.forbiddenMark, line, 0);
    } else if ((m_drag.Targets() & FieldBit(field)) != 0) {
        // In the middle of an empty field, in a corner of one where a man would be taken.
        const bool bTakes = m_board.m_fields[field] != EmptyField;
        const qreal radius = square.width() / (bTakes ? 12.0 : 9.0);
        const qreal inset = radius + line;
        const QPointF corner(square.right() + 1 - inset, square.top() + inset);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToQColor(m_palette.allowedMark, 200));
        painter.drawEllipse(bTakes ? corner : QRectF(square).center(), radius, radius);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (field == m_drag.CursorField()) {
        frame(m_palette.keyboardCursor, std::max(line * 2 / 3, 2), line);
    }
}

/// Files along the lower edge and ranks along the left one, small in the corners of the fields.
void CBoardWidget::PaintCoordinates(QPainter& painter, int field, const QRect& square) {
    const TBoardGeometry geometry = Geometry();
    QFont small = font();
    small.setPixelSize(std::max(square.width() / 6, 7));
    painter.setFont(small);
    painter.setPen(
        ToQColor(IsDark(field) ? m_palette.coordinateOnDark : m_palette.coordinateOnLight));
    const int margin = std::max(square.width() / 25, 1);
    const QRect inner = square.adjusted(margin, margin / 2, -margin, -margin / 2);
    if (geometry.Neighbour(field, TBoardDirection::Left) == field) {
        painter.drawText(inner, Qt::AlignLeft | Qt::AlignTop, QString(QChar('1' + RankOf(field))));
    }
    if (geometry.Neighbour(field, TBoardDirection::Down) == field) {
        painter.drawText(inner, Qt::AlignRight | Qt::AlignBottom,
                         QString(QChar('a' + FileOf(field))));
    }
}

void CBoardWidget::PaintDraggedMan(QPainter& painter) {
    const TFigureCode code = m_drag.DraggedMan();
    if (code != EmptyField) {
        const QRect place = RoomForMan(DraggedManSquare());
        painter.drawPixmap(place.topLeft(),
                           m_pieces.Pixmap(code, place.width(), devicePixelRatioF()));
    }
}

QRect CBoardWidget::DraggedManSquare() const {
    const int size = Geometry().m_fieldSize;
    return {m_mouse.x() - size / 2, m_mouse.y() - size / 2, size, size};
}

}  // namespace tarnwick
