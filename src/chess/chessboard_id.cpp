#include "chess/chessboard_id.h"

#include <algorithm>
#include <cassert>
#include <vector>

#include "base/chess_exception.h"

namespace tarnwick {
namespace {

/// Figures by short code.
constexpr std::array<TFigureCode, 12> FigureOfShortCode = {
    WhiteKing, BlackKing, WhitePawn,   BlackPawn,   WhiteQueen,  BlackQueen,
    WhiteRook, BlackRook, WhiteBishop, BlackBishop, WhiteKnight, BlackKnight};
constexpr int ShortCodeBits = 4;

constexpr std::string_view Alphanum6 =
    "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ()";
constexpr std::string_view Alphanum5 = Alphanum6.substr(0, 32);

/// Digit d of a position type is the letter number d, counted from 1.
constexpr std::string_view PositionTypeLetters = "QRBNPqrbnpXx";

bool BitAt(std::span<const std::uint8_t> bytes, int bit) {
    return ((bytes[static_cast<std::size_t>(bit / 8)] >> (bit % 8)) & 1) != 0;
}

/// Reads `width` bits from bit `at` on, lowest first; those at or beyond bitCount are 0.
unsigned BitsAt(std::span<const std::uint8_t> bytes, int bitCount, int at, int width) {
    unsigned value = 0;
    for (int i = 0; i < width && at + i < bitCount; ++i) {
        value |= static_cast<unsigned>(BitAt(bytes, at + i)) << i;
    }
    return value;
}

std::string ToDigits(std::span<const std::uint8_t> bytes, int bitCount, int width,
                     std::string_view digits, const char* errorText) {
    std::string text;
    for (int at = 0; at < bitCount; at += width) {
        const unsigned value = BitsAt(bytes, bitCount, at, width);
        if (value >= digits.size()) {
            throw ChessException(errorText);
        }
        text += digits[value];
    }
    return text;
}

unsigned ShortCodeOf(TFigureCode code) {
    const TFigureCode figure = ColourOf(code) | TypeOf(code);
    const auto found = std::ranges::find(FigureOfShortCode, figure);
    if (found == FigureOfShortCode.end()) {
        throw ChessException("Unknown figure code");
    }
    return static_cast<unsigned>(found - FigureOfShortCode.begin());
}

std::string FileName(const char* folder, const TChessboardId& id, const char* extension) {
    const std::string text = ToAlphanum6(id);
    return folder + text + '.' + CaseBitsToAlphanum5(text) + extension;
}

}  // namespace

void TChessboardId::AppendBits(unsigned value, int count) {
    if (m_shBits + count >= 8 * ByteCapacity) {
        throw ChessException("Exception in TChessboardId");
    }
    for (int i = 0; i < count; ++i, ++m_shBits) {
        const unsigned bit = (value >> i) & 1;
        m_bytes[static_cast<std::size_t>(m_shBits / 8)] |=
            static_cast<std::uint8_t>(bit << (m_shBits % 8));
    }
}

TChessboardId TChessboardId::Build(const TChessboard& board) {
    TChessboardId id;
    for (const TFigureCode code : board.m_fields) {
        if (code == EmptyField) {
            id.AppendBits(0, 1);
        } else {
            id.AppendBits(1 | (ShortCodeOf(code) << 1), 1 + ShortCodeBits);
        }
    }
    return id;
}

void TChessboardId::ToBoard(TFigureCode (&fields)[FieldCount]) const {
    std::array<TFigureCode, FieldCount> read{};
    int at = 0;
    for (TFigureCode& field : read) {
        const bool bMan = at < m_shBits && BitAt(m_bytes, at);
        const int width = bMan ? 1 + ShortCodeBits : 1;
        if (at + width > m_shBits) {
            throw ChessException("Wrong chessboard id");
        }
        if (bMan) {
            const unsigned shortCode = BitsAt(m_bytes, m_shBits, at + 1, ShortCodeBits);
            if (shortCode >= FigureOfShortCode.size()) {
                throw ChessException("Unknown figure short code");
            }
            field = FigureOfShortCode[shortCode];
        }
        at += width;
    }
    std::ranges::copy(read, fields);
}

bool TChessboardId::FromAlphanum6(std::string_view text) {
    TChessboardId id;
    for (const char c : text) {
        const std::size_t value = Alphanum6.find(c);
        if (value == std::string_view::npos) {
            return false;
        }
        id.AppendBits(static_cast<unsigned>(value), 6);
    }
    *this = id;
    return true;
}

std::string ToAlphanum6(const TChessboardId& id) {
    return ToDigits(id.Bytes(), id.BitCount(), 6, Alphanum6, "Error in ToAlphanum6");
}

std::string ToAlphanum5(std::span<const std::uint8_t> bytes, int bitCount) {
    assert(bitCount >= 0 && static_cast<std::size_t>(bitCount) <= 8 * bytes.size());
    return ToDigits(bytes, bitCount, 5, Alphanum5, "Error in ToAlphanum5");
}

std::string CaseBitsToAlphanum5(std::string_view text) {
    std::vector<std::uint8_t> bytes(text.size() / 8 + 1);
    std::size_t count = 0;
    for (const char c : text) {
        const bool bUpper = c >= 'A' && c <= 'Z';
        if (bUpper || (c >= 'a' && c <= 'z')) {
            bytes[count / 8] |= static_cast<std::uint8_t>(bUpper << (count % 8));
            ++count;
        }
    }
    return ToAlphanum5(bytes, static_cast<int>(count));
}

std::string SolvedProblemName(const TChessboardId& id) {
    return FileName(SolvedProblemsFolder, id, ".cspdb");
}

std::string UnfinishedProblemName(const TChessboardId& id) {
    return FileName(SolvedProblemsFolder, id, ".cpdb");
}

std::string TablebaseAnswersName(const TChessboardId& id) {
    return FileName(TablebaseAnswersFolder, id, ".lichess");
}

std::string PositionTypeName(std::uint64_t typeNumber) {
    std::string name;
    for (std::uint64_t digits = typeNumber >> 1; digits != 0; digits >>= 4) {
        const std::size_t digit = digits & 15;
        if (digit == 0 || digit > PositionTypeLetters.size()) {
            return {};
        }
        name.insert(name.begin(), PositionTypeLetters[digit - 1]);
    }
    return name;
}

}  // namespace tarnwick
