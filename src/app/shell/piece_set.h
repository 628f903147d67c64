#pragma once
// The men as pixmaps. Each is drawn from its vector picture once for a size and a scale of the screen,
// in the pixels of the device, so that outlines stay sharp at every size. Window thread only.

#include <QHash>
#include <QPixmap>
#include <QSvgRenderer>
#include <array>
#include <memory>

#include "chess/figure_codes.h"

namespace tarnwick {

class CPieceSet {
  public:
    CPieceSet();

    /// The man in a square of so many logical pixels; a null pixmap for an empty field. A marked pawn is
    /// a pawn.
    const QPixmap& Pixmap(TFigureCode code, int size, qreal devicePixelRatio);

  private:
    static constexpr std::size_t ManCount = 12;

    QPixmap Render(std::size_t man, int size, qreal devicePixelRatio);

    std::array<std::unique_ptr<QSvgRenderer>, ManCount> m_pictures;
    QHash<quint64, QPixmap> m_pixmaps;  ///< By man, size and pixels of the device.
    QPixmap m_none;
};

}  // namespace tarnwick
