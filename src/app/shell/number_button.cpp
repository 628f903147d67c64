#include "app/shell/number_button.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

namespace tarnwick {

CNumberButton::CNumberButton(QWidget* pParent) : QAbstractButton(pParent) {
    setFocusPolicy(Qt::TabFocus);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

QSize CNumberButton::sizeHint() const {
    // One pixel more than the text and its margins: the advance is rounded, and elision is not.
    return {fontMetrics().horizontalAdvance(text()) + 9, fontMetrics().height() + 8};
}

void CNumberButton::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(1, 4, -1, -4);
    QColor ground = palette().color(QPalette::ButtonText);
    ground.setAlphaF(isDown() ? 0.22F : underMouse() && isEnabled() ? 0.1F : 0.0F);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2) : QPen(Qt::NoPen));
    painter.setBrush(ground);
    painter.drawRoundedRect(frame, 4, 4);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(rect().adjusted(4, 0, -4, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width() - 8));
}

void CNumberButton::contextMenuEvent(QContextMenuEvent* /*pEvent*/) {
    emit rightClicked();
}

void CNumberButton::keyPressEvent(QKeyEvent* pEvent) {
    if (pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(pEvent);
    }
}

}  // namespace tarnwick
