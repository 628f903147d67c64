#include "diagram/diagram_svg.h"

#include <algorithm>
#include <set>

#include "base/encoding.h"

#include "chess/board_tables.h"
#include "diagram/diagram_fen.h"
#include "diagram/piece_pictures.h"

namespace tarnwick {
namespace {

constexpr TDiagramColours WindowColours = {"#f0ecd8", "#b4c2a2", "#536342", "#2b3620"};
constexpr TDiagramColours PrintColours = {"#ffffff", "#c8c8c8", "#000000", "#000000"};
constexpr TDiagramColours LineColours = {"#ffffff", "#ffffff", "#000000", "#000000"};

/// A man's picture is that many units wide and high.
constexpr int ManUnits = 100;
/// The picture of a hatched field, drawn once and used for all.
constexpr int HatchUnits = 1000;
constexpr int HatchDistance = 200;
constexpr int HalfHatchWidth = 14;

/// Everything in pixels. From the left: room for the ranks, the frame, eight fields, the frame.
struct TLayout {
    int width;
    int height;
    int x;  ///< Top left corner of the fields.
    int y;
    int field;
    int frame;
    int coordinates;  ///< Width of their strips.
    int below;        ///< Height of the strip of the stipulation.
    bool bBlackBelow;

    int FieldX(int square) const {
        return x + field * (bBlackBelow ? 7 - FileOf(square) : FileOf(square));
    }
    int FieldY(int square) const {
        return y + field * (bBlackBelow ? RankOf(square) : 7 - RankOf(square));
    }
};

TLayout LayoutOf(const TDiagramOptions& options) {
    const int size = std::clamp(options.size, MinDiagramSize, MaxDiagramSize);
    TLayout layout{};
    layout.width = size;
    layout.bBlackBelow = options.bBlackBelow;
    layout.frame = std::max(size / 240, 1);
    layout.coordinates = options.bCoordinates ? size / 20 : 0;
    layout.below = options.stipulation.empty() ? 0 : size / 10;
    const int room = size - layout.coordinates - 2 * layout.frame;
    layout.field = room / 8;
    layout.x = layout.coordinates + layout.frame + room % 8 / 2;
    layout.y = layout.frame;
    layout.height = 8 * layout.field + 2 * layout.frame + layout.coordinates + layout.below;
    return layout;
}

std::string XmlText(std::string_view text) {
    std::string xml;
    for (const char c : ToValidUtf8(text)) {
        switch (c) {
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '&':
                xml += "&amp;";
                break;
            case '"':
                xml += "&quot;";
                break;
            default:
                // XML has no way to write the control characters.
                xml += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
    }
    return xml;
}

/// number / 10^digits with a point, whatever the user's language has.
std::string Decimal(int number, std::size_t digits) {
    std::string text = std::to_string(number);
    text.insert(0, text.size() <= digits ? digits + 1 - text.size() : 0, '0');
    return text.insert(text.size() - digits, ".");
}

std::string Attribute(const char* name, int value) {
    return std::string(" ") + name + "=\"" + std::to_string(value) + '"';
}

std::string Attribute(const char* name, std::string_view value) {
    return std::string(" ") + name + "=\"" + XmlText(value) + '"';
}

std::string Rectangle(int x, int y, int width, int height, std::string_view colour) {
    return "<rect" + Attribute("x", x) + Attribute("y", y) + Attribute("width", width) +
           Attribute("height", height) + Attribute("fill", colour) + "/>\n";
}

/// What was defined under the name, at a place, scaled by number / 10^digits.
std::string Use(std::string_view name, int x, int y, int number, std::size_t digits) {
    return "<use xlink:href=\"#" + std::string(name) + "\" transform=\"translate(" +
           std::to_string(x) + ' ' + std::to_string(y) + ") scale(" + Decimal(number, digits) +
           ")\"/>\n";
}

std::string Text(int x, int y, int pixels, std::string_view colour, std::string_view text) {
    return "<text" + Attribute("x", x) + Attribute("y", y) + Attribute("font-size", pixels) +
           Attribute("fill", colour) + ">" + XmlText(text) + "</text>\n";
}

std::string Head(const TLayout& layout, const TDiagramOptions& options, const std::string& fen) {
    const std::string width = std::to_string(layout.width);
    const std::string height = std::to_string(layout.height);
    std::string head =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" +
        width + "\" height=\"" + height + "\" viewBox=\"0 0 " + width + ' ' + height +
        "\" role=\"img\">\n";
    if (!options.title.empty()) {
        head += "<title>" + XmlText(options.title) + "</title>\n";
    }
    head += "<desc>FEN: " + XmlText(fen) + "</desc>\n";
    return head +
           "<metadata><tarnwick:position xmlns:tarnwick=\"https://tarnwick.invalid/ns/diagram\">"
           "<tarnwick:fen>" +
           XmlText(fen) + "</tarnwick:fen></tarnwick:position></metadata>\n";
}

std::string NameOfMan(TFigureCode code) {
    const char letter = CodeToLetter[ColourOf(code) | TypeOf(code)];
    return std::string(IsWhite(code) ? "white" : "black") + letter;
}

/// Slanting bars from edge to edge, each cut exactly at the edges of the field.
std::string HatchPicture(std::string_view colour) {
    std::string path;
    const auto number = [](int value) { return std::to_string(value) + ' '; };
    for (int at = HatchDistance / 2; at < HatchUnits; at += HatchDistance) {
        const std::string low = number(at - HalfHatchWidth);
        const std::string high = number(at + HalfHatchWidth);
        const std::string far = number(HatchUnits);
        path += "M0 " + low + 'L' + low + "0 L" + high + "0 L0 " + high + 'Z';
        path += 'M' + low + far + 'L' + far + low + 'L' + far + high + 'L' + high + far + 'Z';
    }
    return "<path id=\"hatching\"" + Attribute("d", path) + Attribute("fill", colour) + "/>\n";
}

/// The pictures that are used, each once.
std::string Definitions(const TChessboard& board, const TDiagramOptions& options) {
    std::string text = "<defs>\n";
    if (options.style == TDiagramStyle::Hatched) {
        text += HatchPicture(ColoursOf(options.style).line);
    }
    std::set<std::string> defined;
    for (const TFigureCode code : board.m_fields) {
        if (code != EmptyField && defined.insert(NameOfMan(code)).second) {
            text +=
                "<g id=\"" + NameOfMan(code) + "\">" + std::string(PictureOfMan(code)) + "</g>\n";
        }
    }
    return text + "</defs>\n";
}

std::string PlainLines(const TLayout& layout, std::string_view colour) {
    const int thickness = std::max(layout.frame / 2, 1);
    std::string text;
    for (int i = 1; i < 8; ++i) {
        text += Rectangle(layout.x + i * layout.field - thickness / 2, layout.y, thickness,
                          8 * layout.field, colour);
        text += Rectangle(layout.x, layout.y + i * layout.field - thickness / 2, 8 * layout.field,
                          thickness, colour);
    }
    return text;
}

/// The frame is a filled board under the fields.
std::string Fields(const TLayout& layout, TDiagramStyle style) {
    const TDiagramColours& colours = ColoursOf(style);
    const int board = 8 * layout.field;
    std::string text = Rectangle(0, 0, layout.width, layout.height, "#ffffff");
    text += Rectangle(layout.x - layout.frame, layout.y - layout.frame, board + 2 * layout.frame,
                      board + 2 * layout.frame, colours.line);
    text += Rectangle(layout.x, layout.y, board, board, colours.lightField);
    if (style == TDiagramStyle::Plain) {
        return text + PlainLines(layout, colours.line);
    }
    for (int square = 0; square < FieldCount; ++square) {
        if (ColourParity(square) == 0) {
            const int x = layout.FieldX(square);
            const int y = layout.FieldY(square);
            text += style == TDiagramStyle::Hatched
                        ? Use("hatching", x, y, layout.field, 3)
                        : Rectangle(x, y, layout.field, layout.field, colours.darkField);
        }
    }
    return text;
}

std::string Men(const TLayout& layout, const TChessboard& board) {
    static_assert(ManUnits == 100 && HatchUnits == 1000, "scales have two and three digits");
    const int margin = layout.field / 24;
    std::string text;
    for (int square = 0; square < FieldCount; ++square) {
        const TFigureCode code = board.m_fields[square];
        if (code != EmptyField) {
            text += Use(NameOfMan(code), layout.FieldX(square) + margin,
                        layout.FieldY(square) + margin, layout.field - 2 * margin, 2);
        }
    }
    return text;
}

/// Digits and small letters reach up to about seven tenths of the font's size.
int BaselineFor(int middle, int pixels) {
    return middle + pixels * 35 / 100;
}

std::string Texts(const TLayout& layout, const TDiagramOptions& options) {
    const std::string_view colour = ColoursOf(options.style).text;
    const int board = 8 * layout.field;
    const int edge = layout.y + board + layout.frame;
    std::string text = "<g font-family=\"sans-serif\" text-anchor=\"middle\">\n";
    const int pixels = layout.coordinates * 3 / 4;
    for (int i = 0; options.bCoordinates && i < 8; ++i) {
        const int middle = layout.field / 2;
        text += Text((layout.x - layout.frame) / 2,
                     BaselineFor(layout.FieldY(FieldAt(0, i)) + middle, pixels), pixels, colour,
                     std::string(1, static_cast<char>('1' + i)));
        text += Text(layout.FieldX(FieldAt(i, 0)) + middle,
                     BaselineFor(edge + layout.coordinates / 2, pixels), pixels, colour,
                     std::string(1, static_cast<char>('a' + i)));
    }
    if (layout.below > 0) {
        const int size = layout.below * 6 / 10;
        text += Text(layout.x + board / 2, BaselineFor(layout.height - layout.below / 2, size),
                     size, colour, options.stipulation);
    }
    return text + "</g>\n";
}

}  // namespace

const TDiagramColours& ColoursOf(TDiagramStyle style) {
    switch (style) {
        case TDiagramStyle::Window:
            return WindowColours;
        case TDiagramStyle::Print:
            return PrintColours;
        default:
            return LineColours;
    }
}

std::string DiagramSvg(const TChessboard& board, const TDiagramOptions& options) {
    const TLayout layout = LayoutOf(options);
    const std::string fen = options.fen.empty() ? DiagramFen(board) : options.fen;
    return Head(layout, options, fen) + Definitions(board, options) +
           Fields(layout, options.style) + Men(layout, board) + Texts(layout, options) + "</svg>\n";
}

}  // namespace tarnwick
