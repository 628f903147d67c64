#include "drawn_diagrams.h"

#include <QFont>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "app/view/palettes.h"
#include "chess/fields.h"

namespace tarnwick {
namespace {

double Between(double low, double high, std::mt19937& random) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

int Between(int low, int high, std::mt19937& random) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

class CMenOfPictures : public CDrawnMen {
  public:
    explicit CMenOfPictures(const QString& files) {
        static constexpr const char* Names[] = {"wK", "wQ", "wR", "wB", "wN", "wP",
                                                "bK", "bQ", "bR", "bB", "bN", "bP"};
        for (std::size_t man = 0; man < m_pictures.size(); ++man) {
            m_pictures[man] = std::make_unique<QSvgRenderer>(files.arg(Names[man]));
        }
    }
    bool IsComplete() const {
        return std::ranges::all_of(m_pictures,
                                   [](const auto& picture) { return picture->isValid(); });
    }
    void Paint(QPainter& painter, std::size_t man, const QRectF& field,
               double scale) const override {
        QRectF place(0, 0, field.width() * scale, field.height() * scale);
        place.moveCenter(field.center());
        m_pictures[man]->render(&painter, place);
    }

  private:
    std::array<std::unique_ptr<QSvgRenderer>, DrawnMen.size()> m_pictures;
};

class CMenOfFont : public CDrawnMen {
  public:
    CMenOfFont(const std::array<QPainterPath, DrawnMen.size()>& outlines, double haloPart)
        : m_outlines(outlines), m_haloPart(haloPart) {
        for (const QPainterPath& outline : m_outlines) {
            m_largest = m_largest.united(outline.boundingRect());
        }
    }
    void Paint(QPainter& painter, std::size_t man, const QRectF& field,
               double scale) const override {
        const QPainterPath& outline = m_outlines[man];
        const double factor =
            field.height() * scale / std::max(m_largest.width(), m_largest.height());
        painter.save();
        // All men of a font stand on one line; each is centred in its field.
        painter.translate(field.center());
        painter.scale(factor, factor);
        painter.translate(-outline.boundingRect().center().x(), -m_largest.center().y());
        if (m_haloPart >= 0) {
            painter.setBrush(Qt::white);
            painter.setPen(m_haloPart > 0 ? QPen(Qt::white, 2 * m_haloPart * field.width() / factor)
                                          : QPen(Qt::NoPen));
            for (const QPolygonF& part : outline.toSubpathPolygons()) {
                painter.drawPolygon(part);
            }
        }
        painter.fillPath(outline, Qt::black);
        painter.restore();
    }

  private:
    std::array<QPainterPath, DrawnMen.size()> m_outlines;
    QRectF m_largest;  ///< The whole set laid over each other.
    double m_haloPart;
};

struct TFieldColours {
    QColor light;
    QColor dark;
};

QColor AsColour(TColour colour) {
    return QColor(colour.red, colour.green, colour.blue);
}

TFieldColours RandomColours(TDarkFields kind, std::mt19937& random) {
    static const TFieldColours Tinted[] = {
        {AsColour(LightPalette.lightField), AsColour(LightPalette.darkField)},
        {AsColour(DarkPalette.lightField), AsColour(DarkPalette.darkField)},
        {QColor(240, 217, 181), QColor(181, 136, 99)},
        {QColor(235, 236, 208), QColor(119, 149, 86)},
        {QColor(222, 227, 230), QColor(140, 162, 173)},
    };
    if (kind == TDarkFields::Plain) {
        return Tinted[Between(0, static_cast<int>(std::size(Tinted)) - 1, random)];
    }
    const int grey = Between(140, 215, random);
    return {Qt::white, kind == TDarkFields::Grey ? QColor(grey, grey, grey) : QColor(Qt::white)};
}

/// Parallel slanted lines over the whole board, cut off at the dark fields.
void HatchDarkFields(QPainter& painter, const QRectF& board, std::mt19937& random) {
    const double field = board.width() / 8;
    const double distance = std::max(3.0, field * Between(0.07, 0.16, random));
    const double slant = Between(0, 1, random) == 0 ? -1 : 1;
    QPainterPath dark;
    for (int number = 0; number < FieldCount; ++number) {
        if (ColourParity(number) == 0) {
            dark.addRect(board.x() + FileOf(number) * field,
                         board.y() + (7 - RankOf(number)) * field, field, field);
        }
    }
    painter.save();
    painter.setClipPath(dark);
    painter.setPen(QPen(Qt::black, std::max(0.7, distance * Between(0.15, 0.35, random))));
    for (double x = -board.width(); x < 2 * board.width(); x += distance * std::sqrt(2.0)) {
        const double top = board.x() + x;
        painter.drawLine(QPointF(top, board.y()),
                         QPointF(top + slant * board.height(), board.y() + board.height()));
    }
    painter.restore();
}

void DrawFields(QPainter& painter, const QRectF& board, TDarkFields kind, std::mt19937& random) {
    const TFieldColours colours = RandomColours(kind, random);
    const double field = board.width() / 8;
    for (int number = 0; number < FieldCount; ++number) {
        painter.fillRect(QRectF(board.x() + FileOf(number) * field,
                                board.y() + (7 - RankOf(number)) * field, field, field),
                         ColourParity(number) == 0 ? colours.dark : colours.light);
    }
    if (kind == TDarkFields::Hatched) {
        HatchDarkFields(painter, board, random);
    }
}

/// Lines around the board, each as far from the next one as it is wide.
void DrawFrame(QPainter& painter, const QRectF& board, const TDiagramStyle& style) {
    painter.setBrush(Qt::NoBrush);
    QPen pen(Qt::black, style.frameWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    for (int line = 0; line < style.frameLines; ++line) {
        const double out = style.frameWidth * (0.5 + 2 * line);
        painter.drawRect(board.adjusted(-out, -out, out, out));
    }
}

void DrawCoordinates(QPainter& painter, const QRectF& board, const TDiagramStyle& style) {
    const double field = board.width() / 8;
    const bool bOutside = style.coordinates == TCoordinates::Outside;
    QFont font("DejaVu Sans");
    font.setPixelSize(std::max(6, static_cast<int>(field * (bOutside ? 0.35 : 0.18))));
    painter.setFont(font);
    painter.setPen(Qt::black);
    const double gap = bOutside ? style.frameWidth * 4 + 2 : 0;
    for (int i = 0; i < 8; ++i) {
        const QString letter(QChar('a' + i));
        const QString digit(QChar('8' - i));
        const double along = i * field;
        if (bOutside) {
            painter.drawText(QRectF(board.x() + along, board.bottom() + gap, field, field),
                             Qt::AlignHCenter | Qt::AlignTop, letter);
            painter.drawText(QRectF(board.x() - gap - field, board.y() + along, field, field),
                             Qt::AlignRight | Qt::AlignVCenter, digit);
        } else {
            painter.drawText(QRectF(board.x() + along, board.bottom() - field, field - 1, field),
                             Qt::AlignRight | Qt::AlignBottom, letter);
            painter.drawText(QRectF(board.x() + 1, board.y() + along, field, field),
                             Qt::AlignLeft | Qt::AlignTop, digit);
        }
    }
}

void DrawMen(QPainter& painter, const QRectF& board, const TDrawnFields& fields,
             const TDiagramStyle& style, const CDrawnMen& men) {
    const double field = board.width() / 8;
    for (int number = 0; number < FieldCount; ++number) {
        const auto found = std::ranges::find(DrawnMen, fields[static_cast<std::size_t>(number)]);
        if (found != DrawnMen.end()) {
            men.Paint(painter, static_cast<std::size_t>(found - DrawnMen.begin()),
                      QRectF(board.x() + FileOf(number) * field,
                             board.y() + (7 - RankOf(number)) * field, field, field),
                      style.scale);
        }
    }
}

/// Mixes every pixel with the average of its neighbourhood, as a scanner does.
QImage Blurred(const QImage& image, double part) {
    QImage result = image;
    for (int y = 1; y + 1 < image.height(); ++y) {
        auto* const to = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 1; x + 1 < image.width(); ++x) {
            int red = 0, green = 0, blue = 0;
            for (int row = y - 1; row <= y + 1; ++row) {
                const auto* const from = reinterpret_cast<const QRgb*>(image.constScanLine(row));
                for (int column = x - 1; column <= x + 1; ++column) {
                    red += qRed(from[column]);
                    green += qGreen(from[column]);
                    blue += qBlue(from[column]);
                }
            }
            const auto mixed = [part](int own, int sum) {
                return static_cast<int>(own * (1 - part) + sum * part / 9);
            };
            to[x] = qRgb(mixed(qRed(to[x]), red), mixed(qGreen(to[x]), green),
                         mixed(qBlue(to[x]), blue));
        }
    }
    return result;
}

void AddNoise(QImage& image, double deviation, std::mt19937& random) {
    std::normal_distribution<double> noise(0, deviation);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int shift = static_cast<int>(std::lround(noise(random)));
            row[x] = qRgb(std::clamp(qRed(row[x]) + shift, 0, 255),
                          std::clamp(qGreen(row[x]) + shift, 0, 255),
                          std::clamp(qBlue(row[x]) + shift, 0, 255));
        }
    }
}

}  // namespace

TBitmap AsBitmap(const QImage& image) {
    return {.width = image.width(),
            .height = image.height(),
            .bitsPerPixel = image.depth(),
            .stride = image.bytesPerLine(),
            .bBottomUp = false,
            .bytes = {image.constBits(), static_cast<std::size_t>(image.sizeInBytes())}};
}

std::unique_ptr<CDrawnMen> MenOfPictures(const QString& files) {
    auto men = std::make_unique<CMenOfPictures>(files);
    return men->IsComplete() ? std::move(men) : nullptr;
}

std::unique_ptr<CDrawnMen> MenOfFont(const QRawFont& font, const QString& characters,
                                     double haloPart) {
    const QList<quint32> glyphs = font.glyphIndexesForString(characters);
    std::array<QPainterPath, DrawnMen.size()> outlines;
    if (static_cast<std::size_t>(glyphs.size()) != outlines.size()) {
        return nullptr;
    }
    for (std::size_t man = 0; man < outlines.size(); ++man) {
        const quint32 glyph = glyphs[static_cast<qsizetype>(man)];
        outlines[man] = font.pathForGlyph(glyph);
        if (glyph == 0 || outlines[man].isEmpty()) {
            return nullptr;
        }
    }
    return std::make_unique<CMenOfFont>(outlines, haloPart);
}

QString UnicodeMen() {
    return QStringLiteral(
        "\u2654\u2655\u2656\u2657\u2658\u2659\u265A\u265B\u265C\u265D\u265E\u265F");
}

TDiagramStyle RandomStyle(TDarkFields darkFields, int side, std::mt19937& random) {
    static constexpr double Margins[] = {0, 0.02, 0.1, 0.3, 0.6};
    TDiagramStyle style;
    style.darkFields = darkFields;
    style.side = side;
    style.margin = Margins[Between(0, 4, random)];
    style.frameLines = Between(0, 2, random);
    style.frameWidth = Between(1, std::max(1, side / 150), random);
    style.coordinates = static_cast<TCoordinates>(Between(0, 2, random));
    style.scale = Between(0.75, 0.95, random);
    style.noise = Between(0, 1, random) == 0 ? 0 : Between(0.0, 8.0, random);
    style.blur = Between(0, 1, random) == 0 ? 0 : Between(0.0, 1.0, random);
    return style;
}

TDrawnFields RandomFields(std::mt19937& random) {
    // Fifteen more men a side than the king.
    static constexpr TFigureCode Others[] = {
        TypeQueen, TypeRook, TypeRook, TypeBishop, TypeBishop, TypeKnight, TypeKnight, TypePawn,
        TypePawn,  TypePawn, TypePawn, TypePawn,   TypePawn,   TypePawn,   TypePawn};
    TDrawnFields fields{};
    const auto place = [&](TFigureCode man) {
        const bool bPawn = TypeOf(man) == TypePawn;
        int field = 0;
        do {
            field = bPawn ? Between(8, 55, random) : Between(0, 63, random);
        } while (fields[static_cast<std::size_t>(field)] != EmptyField);
        fields[static_cast<std::size_t>(field)] = man;
    };
    const double part = Between(0.05, 0.9, random);
    for (const TFigureCode colour : {WhiteFlag, BlackFlag}) {
        place(colour | TypeKing);
        for (const TFigureCode type : Others) {
            if (Between(0.0, 1.0, random) < part) {
                place(colour | type);
            }
        }
    }
    return fields;
}

TDrawnDiagram DrawDiagram(const TDrawnFields& fields, const TDiagramStyle& style,
                          const CDrawnMen& men, std::mt19937& random) {
    const bool bOutside = style.coordinates == TCoordinates::Outside;
    const double least =
        style.frameLines * 2.0 * style.frameWidth + (bOutside ? style.side / 14.0 + 2 : 0);
    const auto margin = [&] {
        return static_cast<int>(std::ceil(least + Between(0.0, style.margin, random) * style.side));
    };
    const int left = margin(), top = margin();
    TDrawnDiagram drawn;
    drawn.board = QRectF(left, top, style.side, style.side);
    drawn.image =
        QImage(left + style.side + margin(), top + style.side + margin(), QImage::Format_RGB32);
    drawn.image.fill(Qt::white);
    QPainter painter(&drawn.image);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawFields(painter, drawn.board, style.darkFields, random);
    DrawFrame(painter, drawn.board, style);
    if (style.coordinates != TCoordinates::None) {
        DrawCoordinates(painter, drawn.board, style);
    }
    DrawMen(painter, drawn.board, fields, style, men);
    painter.end();
    if (style.blur > 0) {
        drawn.image = Blurred(drawn.image, style.blur);
    }
    if (style.noise > 0) {
        AddNoise(drawn.image, style.noise, random);
    }
    return drawn;
}

}  // namespace tarnwick
