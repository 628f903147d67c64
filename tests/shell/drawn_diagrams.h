#pragma once
// Chess diagrams as printers and programs draw them, made up by the tests of the recogniser and by the
// program that makes the samples it is trained with. All that is random comes from the caller's generator,
// so a seed gives the same picture again.

#include <QImage>
#include <QPainterPath>
#include <QRawFont>
#include <QRectF>
#include <QSvgRenderer>
#include <array>
#include <memory>
#include <random>
#include <string>

#include "chess/figure_codes.h"
#include "diagram/grey_image.h"

namespace tarnwick {

/// The twelve men in the order of the tables below.
inline constexpr std::array<TFigureCode, 12> DrawnMen = {
    WhiteKing, WhiteQueen, WhiteRook, WhiteBishop, WhiteKnight, WhitePawn,
    BlackKing, BlackQueen, BlackRook, BlackBishop, BlackKnight, BlackPawn};

/// One set of men: twelve vector pictures, or twelve characters of a font.
class CDrawnMen {
  public:
    virtual ~CDrawnMen() = default;
    /// Paints DrawnMen[man] into a field. scale: part of the field that the largest man takes.
    virtual void Paint(QPainter& painter, std::size_t man, const QRectF& field,
                       double scale) const = 0;
};

/// files: the path with %1 for wK, wQ ... bP. Null when a file is missing or no picture.
std::unique_ptr<CDrawnMen> MenOfPictures(const QString& files);
/// characters: twelve of them, in the order of DrawnMen. Null when the font lacks one.
/// haloPart: width of the white rim around each man, part of the field; below 0 the fields also shine through
/// the white men.
std::unique_ptr<CDrawnMen> MenOfFont(const QRawFont& font, const QString& characters,
                                     double haloPart);
/// Chess signs of Unicode for MenOfFont.
QString UnicodeMen();

enum class TDarkFields {
    Plain /* both colours tinted */,
    Grey,
    Hatched
};
enum class TCoordinates {
    None,
    Outside,
    OnFields
};

struct TDiagramStyle {
    TDarkFields darkFields = TDarkFields::Grey;
    TCoordinates coordinates = TCoordinates::None;
    int side = 400;       ///< Of the eight fields, pixels.
    int frameLines = 1;   ///< 0 to 2 lines around the board.
    int frameWidth = 1;   ///< Of one line, pixels.
    double margin = 0.1;  ///< Widest white margin, part of the side.
    double scale = 0.8;   ///< Part of a field that the largest man takes.
    double noise = 0;     ///< Standard deviation of the grey values.
    double blur = 0;      ///< 0 none, 1 a full average of three by three pixels.
};

struct TDrawnDiagram {
    QImage image;  ///< 32 bits a pixel.
    QRectF board;  ///< The eight by eight fields.
};

using TDrawnFields = std::array<TFigureCode, 64>;

/// A style of this kind with everything else random.
TDiagramStyle RandomStyle(TDarkFields darkFields, int side, std::mt19937& random);
/// Both kings and a random part of the other men; no pawn on the first or the last rank.
TDrawnFields RandomFields(std::mt19937& random);
TDrawnDiagram DrawDiagram(const TDrawnFields& fields, const TDiagramStyle& style,
                          const CDrawnMen& men, std::mt19937& random);

/// The pixels of the image, which must outlive the bitmap.
TBitmap AsBitmap(const QImage& image);

}  // namespace tarnwick
