#include "app/shell/piece_set.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "app/shell/icon_set.h"

namespace tarnwick {
namespace {

struct TPicture {
    TFigureCode code;
    const char* file;
};

constexpr TPicture Pictures[] = {
    {WhiteKing, "wK"},   {WhiteQueen, "wQ"},  {WhiteRook, "wR"},   {WhiteBishop, "wB"},
    {WhiteKnight, "wN"}, {WhitePawn, "wP"},   {BlackKing, "bK"},   {BlackQueen, "bQ"},
    {BlackRook, "bR"},   {BlackBishop, "bB"}, {BlackKnight, "bN"}, {BlackPawn, "bP"},
};

/// Twelve men in four sizes. A window being resized asks for a new size with every step: then the old
/// ones go.
constexpr qsizetype MaxCached = 48;

}  // namespace

CPieceSet::CPieceSet() {
    static_assert(std::size(Pictures) == ManCount);
    LoadPictures();
    for (std::size_t man = 0; man < ManCount; ++man) {
        m_pictures[man] =
            std::make_unique<QSvgRenderer>(QString(":/pieces/%1.svg").arg(Pictures[man].file));
    }
}

const QPixmap& CPieceSet::Pixmap(TFigureCode code, int size, qreal devicePixelRatio) {
    const auto plain = static_cast<TFigureCode>(ColourOf(code) | TypeOf(code));
    const auto* found = std::ranges::find(Pictures, plain, &TPicture::code);
    if (found == std::end(Pictures) || size <= 0) {
        return m_none;
    }
    const auto man = static_cast<std::size_t>(found - std::begin(Pictures));
    const auto pixels = static_cast<quint64>(std::lround(size * devicePixelRatio));
    const quint64 key = man | (static_cast<quint64>(size) << 8) | (pixels << 32);
    const auto cached = m_pixmaps.constFind(key);
    if (cached != m_pixmaps.constEnd()) {
        return *cached;
    }
    if (m_pixmaps.size() >= MaxCached) {
        m_pixmaps.clear();
    }
    return *m_pixmaps.insert(key, Render(man, size, devicePixelRatio));
}

QPixmap CPieceSet::Render(std::size_t man, int size, qreal devicePixelRatio) {
    const int pixels = static_cast<int>(std::lround(size * devicePixelRatio));
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    m_pictures[man]->render(&painter, QRectF(0, 0, pixels, pixels));
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

}  // namespace tarnwick
