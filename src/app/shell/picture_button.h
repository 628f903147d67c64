#pragma once
// A flat button with one of our pictures. It tells which mouse button was pressed and whether in its upper
// half, because several buttons of the window do something else by a right click, or up and down.

#include <QAbstractButton>
#include <QPixmap>

#include "app/commands/command_states.h"

namespace tarnwick {

struct TPress {
    Qt::MouseButton button = Qt::LeftButton;
    bool bUpperHalf = true;  ///< By keyboard: Up and Space, or Down.
    bool bCtrl = false;
};

class CPictureButton : public QAbstractButton {
    Q_OBJECT

  public:
    /// The picture's name: icon_set.h.
    CPictureButton(const QString& picture, QWidget* pParent);

    void SetPicture(const QString& picture);
    /// A few letters over the picture's lower right corner, such as the number of threads.
    void SetBadge(const QString& badge);
    /// Upper and lower half are two actions: a line parts them while the mouse is over the button.
    void SetHalves(bool bHalves) { m_bHalves = bHalves; }
    /// The tooltip, and the accessible name and description made of it.
    void SetTexts(const QString& name, const QString& tooltip);
    /// Enabled or not; a grey button says why in its tooltip.
    void ShowState(const TCommandState& state);
    /// Of eight: a turning arc round the picture; nothing for -1.
    void SetRunningFrame(int frame);

    QSize sizeHint() const override;

  signals:
    void pressedWith(tarnwick::TPress press);

  protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void enterEvent(QEnterEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

  private:
    void PaintGround(QPainter& painter);
    void PaintBadge(QPainter& painter);
    void PaintArc(QPainter& painter);
    void UpdateTooltip();

    QString m_picture;
    QString m_badge;
    QString m_tooltip;
    QString m_whyNot;
    QPixmap m_pixmap;  ///< In the present colour and size; null: to be made.
    Qt::MouseButton m_pressedWith = Qt::NoButton;
    int m_frame = -1;
    bool m_bHalves = false;
};

}  // namespace tarnwick
