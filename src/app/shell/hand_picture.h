#pragma once
// The man that the user is dragging while a position is set up, drawn over everything else in the window.
// The mouse does not notice it.

#include <QWidget>

#include "app/shell/piece_set.h"

namespace tarnwick {

class CHandPicture : public QWidget {
    Q_OBJECT

  public:
    explicit CHandPicture(QWidget* pParent);

    /// At this place of the screen; EmptyField takes it away.
    void ShowMan(TFigureCode man, int size, const QPoint& globalCentre);
    TFigureCode Man() const { return isVisibleTo(parentWidget()) ? m_man : EmptyField; }

  protected:
    void paintEvent(QPaintEvent* pEvent) override;

  private:
    CPieceSet m_pieces;
    TFigureCode m_man = EmptyField;
};

}  // namespace tarnwick
