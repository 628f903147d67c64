#include "app/shell/picture_button.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/shell/icon_set.h"
#include "app/shell/panel.h"

namespace tarnwick {
namespace {

constexpr int Margin = 4;
constexpr int MaxPicture = 30;
constexpr int Frames = 8;

}  // namespace

CPictureButton::CPictureButton(const QString& picture, QWidget* pParent)
    : QAbstractButton(pParent), m_picture(picture) {
    setFocusPolicy(Qt::TabFocus);
    // By Space, or the press of somebody who cannot see the button; the mouse has its own way.
    connect(this, &QAbstractButton::clicked, [this] {
        const bool bCtrl = QApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
        emit pressedWith({.button = Qt::LeftButton, .bUpperHalf = true, .bCtrl = bCtrl});
    });
}

void CPictureButton::SetPicture(const QString& picture) {
    if (picture != m_picture) {
        m_picture = picture;
        m_pixmap = {};
        update();
    }
}

void CPictureButton::SetBadge(const QString& badge) {
    if (badge != m_badge) {
        m_badge = badge;
        update();
    }
}

void CPictureButton::SetTexts(const QString& name, const QString& tooltip) {
    setAccessibleName(name);
    m_tooltip = tooltip;
    UpdateTooltip();
}

void CPictureButton::ShowState(const TCommandState& state) {
    m_whyNot = state.pWhyNot == nullptr ? QString() : ShownText(*state.pWhyNot);
    setEnabled(state.bEnabled);
    UpdateTooltip();
}

void CPictureButton::SetRunningFrame(int frame) {
    if (frame != m_frame) {
        m_frame = frame;
        update();
    }
}

QSize CPictureButton::sizeHint() const {
    return {30, 30};
}

void CPictureButton::UpdateTooltip() {
    const QString text = m_whyNot.isEmpty() ? m_tooltip : m_tooltip + "\n" + m_whyNot;
    setToolTip(text);
    setAccessibleDescription(text);
}

// What the user does.

void CPictureButton::mousePressEvent(QMouseEvent* pEvent) {
    if (m_pressedWith == Qt::NoButton) {
        m_pressedWith = pEvent->button();
        setDown(true);
    }
}

void CPictureButton::mouseReleaseEvent(QMouseEvent* pEvent) {
    if (pEvent->button() != m_pressedWith) {
        return;
    }
    m_pressedWith = Qt::NoButton;
    setDown(false);
    const QPoint place = pEvent->position().toPoint();
    if (rect().contains(place)) {
        emit pressedWith({.button = pEvent->button(),
                          .bUpperHalf = place.y() < height() / 2,
                          .bCtrl = pEvent->modifiers().testFlag(Qt::ControlModifier)});
    }
}

void CPictureButton::keyPressEvent(QKeyEvent* pEvent) {
    const int key = pEvent->key();
    if (m_bHalves && (key == Qt::Key_Up || key == Qt::Key_Down)) {
        emit pressedWith({.button = Qt::LeftButton, .bUpperHalf = key == Qt::Key_Up});
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(pEvent);
    }
}

void CPictureButton::contextMenuEvent(QContextMenuEvent* pEvent) {
    if (pEvent->reason() == QContextMenuEvent::Keyboard) {
        emit pressedWith({.button = Qt::RightButton});
    }
}

void CPictureButton::enterEvent(QEnterEvent* /*pEvent*/) {
    update();
}

void CPictureButton::leaveEvent(QEvent* /*pEvent*/) {
    update();
}

void CPictureButton::changeEvent(QEvent* pEvent) {
    if (pEvent->type() == QEvent::PaletteChange || pEvent->type() == QEvent::EnabledChange) {
        m_pixmap = {};
    }
    QAbstractButton::changeEvent(pEvent);
}

// Painting.

void CPictureButton::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintGround(painter);
    if (!m_picture.isEmpty()) {
        const int size = std::min({width(), height(), MaxPicture + 2 * Margin}) - 2 * Margin;
        const qreal ratio = devicePixelRatioF();
        if (m_pixmap.isNull() || m_pixmap.width() != static_cast<int>(size * ratio)) {
            m_pixmap = ButtonPixmap(m_picture, size, ratio, palette().color(QPalette::ButtonText));
        }
        painter.drawPixmap((width() - size) / 2, (height() - size) / 2, m_pixmap);
    }
    PaintArc(painter);
    PaintBadge(painter);
}

void CPictureButton::PaintGround(QPainter& painter) {
    const QRectF frame = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    const QColor text = palette().color(QPalette::ButtonText);
    QColor ground = text;
    ground.setAlphaF(isDown() ? 0.22F : underMouse() ? 0.1F : 0.0F);
    // Where no picture tells that it is a button, a frame does.
    QColor outline = text;
    outline.setAlphaF(0.4F);
    painter.setPen(m_picture.isEmpty() ? QPen(outline) : QPen(Qt::NoPen));
    painter.setBrush(isEnabled() ? QBrush(ground) : QBrush());
    painter.drawRoundedRect(frame, 4, 4);
    painter.setPen(QPen(text, 1));
    if (m_bHalves && isEnabled() && underMouse()) {
        painter.drawLine(QPointF(frame.left() + 3, height() / 2.0),
                         QPointF(frame.right() - 3, height() / 2.0));
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame, 4, 4);
    }
}

/// In the corner of the picture; in the middle of a button that has no picture.
void CPictureButton::PaintBadge(QPainter& painter) {
    if (m_badge.isEmpty()) {
        return;
    }
    QFont small = font();
    small.setBold(true);
    if (!m_picture.isEmpty()) {
        small.setPixelSize(std::max(9, height() / 3));
    }
    painter.setFont(small);
    const QFontMetrics metrics(small);
    QRect room(0, 0, std::max(metrics.horizontalAdvance(m_badge) + 5, metrics.height()),
               metrics.height());
    if (m_picture.isEmpty()) {
        room.moveCenter(rect().center());
    } else {
        room.moveBottomRight(rect().bottomRight() - QPoint(1, 1));
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Button));
        painter.drawRoundedRect(room, 5, 5);
    }
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(room, Qt::AlignCenter, m_badge);
}

void CPictureButton::PaintArc(QPainter& painter) {
    if (m_frame < 0) {
        return;
    }
    constexpr int FullCircle = 360 * 16;
    const int side = std::min(width(), height()) - 4;
    QRectF circle(0, 0, side, side);
    circle.moveCenter(QRectF(rect()).center());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, -m_frame * FullCircle / Frames, FullCircle / 4);
}

}  // namespace tarnwick
