#include "diagram/diagram_fen.h"

#include <algorithm>
#include <array>

#include "base/chess_exception.h"

#include "chess/fen.h"
#include "chess/trimmed_text.h"
#include "diagram/png_chunks.h"

namespace tarnwick {
namespace {

constexpr std::string_view FenKeyword = "FEN";
constexpr std::string_view DescriptionStart = "<desc>FEN: ";
constexpr std::string_view FenElementEnd = ":fen>";
/// 71 signs of a full board and five words; more is no FEN.
constexpr std::size_t MaxFenLength = 120;
/// Programs that lay a text out anew put blanks around.
constexpr std::size_t MaxContentLength = 400;

bool ConsistsOf(std::string_view word, std::string_view signs) {
    return word.find_first_not_of(signs) == std::string_view::npos;
}

bool IsSide(std::string_view word) {
    return word == "w" || word == "b";
}

bool IsCastling(std::string_view word) {
    return word == "-" || (word.size() <= 4 && ConsistsOf(word, "KQkq"));
}

bool IsEnPassant(std::string_view word) {
    return word == "-" ||
           (word.size() == 2 && BeginsWithField(word) && (word[1] == '3' || word[1] == '6'));
}

bool IsCounter(std::string_view word) {
    return word.size() <= 4 && ConsistsOf(word, "0123456789");
}

/// Cuts the next word off; empty at the end.
std::string_view TakeWord(std::string_view& rest) {
    rest = Trimmed(rest);
    const std::string_view word = rest.substr(0, rest.find_first_of(Blanks));
    rest.remove_prefix(word.size());
    return word;
}

/// All up to the next tag.
std::string_view ContentAt(std::string_view bytes, std::size_t at) {
    const std::string_view content = bytes.substr(at, MaxContentLength);
    return content.substr(0, content.find('<'));
}

std::optional<std::string> CheckedFen(std::string_view text) {
    const std::string_view fen = Trimmed(text);
    const bool bPlain = std::ranges::all_of(fen, [](char c) { return c >= ' ' && c <= '~'; });
    if (fen.size() > MaxFenLength || !bPlain) {
        return std::nullopt;
    }
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    try {
        if (!ReadFen(board, fen, bCastlingWithheld, bEnPassantGiven)) {
            return std::nullopt;
        }
    } catch (const ChessException&) {
        return std::nullopt;
    }
    return std::string(fen);
}

/// Whether the ":fen>" at that place ends an opening tag "<PREFIX:fen>".
bool EndsOpeningTag(std::string_view bytes, std::size_t at) {
    constexpr std::size_t MaxPrefix = 64;
    const std::size_t begin = at - std::min(at, MaxPrefix);
    const std::string_view before = bytes.substr(begin, at - begin);
    const std::size_t sign = before.find_last_of("</> ");
    return sign != std::string_view::npos && before[sign] == '<';
}

std::optional<std::string> SvgFen(std::string_view bytes) {
    for (std::size_t at = bytes.find(FenElementEnd); at != std::string_view::npos;
         at = bytes.find(FenElementEnd, at + 1)) {
        if (EndsOpeningTag(bytes, at)) {
            return CheckedFen(ContentAt(bytes, at + FenElementEnd.size()));
        }
    }
    const std::size_t description = bytes.find(DescriptionStart);
    return description == std::string_view::npos
               ? std::nullopt
               : CheckedFen(ContentAt(bytes, description + DescriptionStart.size()));
}

}  // namespace

std::string DiagramFen(const TChessboard& board, std::string_view typed) {
    constexpr std::array isProper = {IsSide, IsCastling, IsEnPassant, IsCounter, IsCounter};
    const std::string written = WriteFen(board, false);
    std::string_view own = written;
    std::string fen(TakeWord(own));
    TakeWord(typed);
    for (const auto& isProperWord : isProper) {
        const std::string_view ownWord = TakeWord(own);
        const std::string_view word = TakeWord(typed);
        const bool bTaken = !word.empty() && isProperWord(word);
        fen += ' ';
        fen += bTaken ? word : ownWord;
    }
    return fen;
}

std::optional<std::string> ReadDiagramFen(std::string_view bytes) {
    if (!IsPng(bytes)) {
        return SvgFen(bytes);
    }
    const std::optional<std::string> text = PngText(bytes, FenKeyword);
    return text ? CheckedFen(*text) : std::nullopt;
}

std::string AddFenToPng(std::string_view bytes, std::string_view fen) {
    return WithPngText(bytes, FenKeyword, fen);
}

}  // namespace tarnwick
