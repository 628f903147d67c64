#pragma once
// The number and stipulation of the problem, written on a flat button: a click asks for another number, a
// right click for the list.

#include <QAbstractButton>

namespace tarnwick {

class CNumberButton : public QAbstractButton {
    Q_OBJECT

  public:
    explicit CNumberButton(QWidget* pParent);
    QSize sizeHint() const override;

  signals:
    void rightClicked();

  protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
};

}  // namespace tarnwick
