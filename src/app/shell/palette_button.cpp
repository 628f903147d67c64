#include "app/shell/palette_button.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/setup/setup_texts.h"
#include "app/shell/panel.h"
#include "app/view/field_names.h"

namespace tarnwick {

CPaletteButton::CPaletteButton(TFigureCode man, CPieceSet& pieces, QWidget* pParent)
    : QAbstractButton(pParent), m_man(man), m_pieces(pieces) {
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    Retranslate();
}

void CPaletteButton::Retranslate() {
    const bool bEraser = m_man == EmptyField;
    const QString name = bEraser ? ShownText(EraserText) : QString::fromStdString(ManName(m_man));
    const QString tooltip = ShownText(bEraser ? EraserTooltip : PaletteManTooltip);
    setAccessibleName(name);
    setAccessibleDescription(tooltip);
    setToolTip(name + ": " + tooltip);
}

void CPaletteButton::mousePressEvent(QMouseEvent* pEvent) {
    if (pEvent->button() == Qt::LeftButton) {
        emit mousePressed();
    }
}

void CPaletteButton::mouseMoveEvent(QMouseEvent* pEvent) {
    if (pEvent->buttons().testFlag(Qt::LeftButton)) {
        emit mouseDragged(pEvent->globalPosition().toPoint());
    }
}

void CPaletteButton::mouseReleaseEvent(QMouseEvent* pEvent) {
    if (pEvent->button() == Qt::LeftButton) {
        emit mouseReleased(pEvent->globalPosition().toPoint());
    }
}

void CPaletteButton::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    // Black men need a light ground also where the window is dark.
    painter.setPen(
        QPen(palette().color(isChecked() || hasFocus() ? QPalette::Highlight : QPalette::Mid),
             isChecked() || hasFocus() ? 2.5 : 1));
    painter.setBrush(QColor(isChecked() ? 0xE4E0FF : 0xF0ECD8));
    painter.drawRoundedRect(frame, 4, 4);
    if (m_man == EmptyField) {
        PaintEraser(painter);
        return;
    }
    const int size = std::min(width(), height()) - 6;
    painter.drawPixmap((width() - size) / 2, (height() - size) / 2,
                       m_pieces.Pixmap(m_man, size, devicePixelRatioF()));
}

/// A red cross, as for a thing to be taken away.
void CPaletteButton::PaintEraser(QPainter& painter) const {
    const qreal arm = std::min(width(), height()) / 5.0;
    const QPointF centre = QRectF(rect()).center();
    painter.setPen(QPen(QColor(0xB0, 0x10, 0x18), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
}

}  // namespace tarnwick
