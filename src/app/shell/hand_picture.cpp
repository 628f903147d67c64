#include "app/shell/hand_picture.h"

#include <QPainter>

namespace tarnwick {

CHandPicture::CHandPicture(QWidget* pParent) : QWidget(pParent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    hide();
}

void CHandPicture::ShowMan(TFigureCode man, int size, const QPoint& globalCentre) {
    m_man = man;
    if (man == EmptyField) {
        hide();
        return;
    }
    resize(size, size);
    move(parentWidget()->mapFromGlobal(globalCentre) - rect().center());
    show();
    raise();
    update();
}

void CHandPicture::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_pieces.Pixmap(m_man, width(), devicePixelRatioF()));
}

}  // namespace tarnwick
