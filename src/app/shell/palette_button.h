#pragma once
// A man of the palette, or the eraser. The mouse drags it; a click, or the keyboard, chooses it for several
// fields.

#include <QAbstractButton>

#include "app/shell/piece_set.h"

namespace tarnwick {

class CPaletteButton : public QAbstractButton {
    Q_OBJECT

  public:
    /// EmptyField makes the eraser.
    CPaletteButton(TFigureCode man, CPieceSet& pieces, QWidget* pParent);

    TFigureCode Man() const { return m_man; }
    /// Name and tooltip in the present language.
    void Retranslate();

  signals:
    /// The left button of the mouse. clicked() comes from the keyboard and from screen readers alone.
    void mousePressed();
    void mouseDragged(const QPoint& globalPlace);
    void mouseReleased(const QPoint& globalPlace);

  protected:
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

  private:
    void PaintEraser(QPainter& painter) const;

    TFigureCode m_man;
    CPieceSet& m_pieces;
};

}  // namespace tarnwick
