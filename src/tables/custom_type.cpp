#include "tables/custom_type.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <utility>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "chess/lines.h"
#include "tables/position_type.h"
#include "tables/register/register_texts.h"

namespace tarnwick {
namespace {

constexpr std::string_view FreeKinds = "KQRBNPkqrbn";
constexpr std::string_view FixedKinds = "KQRBNPkqrbnp";
constexpr int SeventhRank = 6;

std::string FieldText(int field) {
    return {static_cast<char>('a' + FileOf(field)), static_cast<char>('1' + RankOf(field))};
}

/// All fields below a black pawn down to the second rank are in the set: it cannot step.
bool IsPawnBlocked(int field, TFieldSet fixed) {
    for (int below = field - 8; below >= 8; below -= 8) {
        if ((fixed & FieldBit(below)) == 0) {
            return false;
        }
    }
    return true;
}

/// Neighbours on the rank.
TFieldSet FieldsBeside(int field) {
    return (FileOf(field) > 0 ? FieldBit(field - 1) : 0) |
           (FileOf(field) < 7 ? FieldBit(field + 1) : 0);
}

/// The highest field from which a black pawn may have come to this one without having been able to leave its
/// file: above a field with a fixed white man beside it, it could have taken that man.
int TopOfRoad(int field, TFieldSet fixed, TFieldSet fixedWhite) {
    while (RankOf(field) < SeventhRank && (fixed & FieldBit(field + 8)) == 0 &&
           (fixedWhite & FieldsBeside(field)) == 0) {
        field += 8;
    }
    return field;
}

bool HasPlainType(const TChessboard& board) {
    return std::popcount(OccupiedFields(board)) - 2 <= static_cast<int>(MaxTypeLetters);
}

TFigureCode FigureOn(const TChessboard& board, int field) {
    const TFigureCode code = board.m_fields[field];
    return ColourOf(code) | TypeOf(code);
}

std::string FreeMenText(const TChessboard& board, TFieldSet fixed) {
    std::string text;
    const TFieldSet free = OccupiedFields(board) & ~fixed;
    for (const char kind : FreeKinds) {
        for (TFieldSet men = free; men != 0;) {
            if (FigureOn(board, PopLowest(men)) == FigureOfLetter(kind)) {
                text += kind;
            }
        }
    }
    for (int file = 0; file < 8; ++file) {
        for (int field = 56 + file; field >= 0; field -= 8) {
            if ((free & FieldBit(field)) != 0 && FigureOn(board, field) == BlackPawn) {
                text += "p(" + FieldText(TopOfRoad(field, fixed, fixed & board.m_whiteMen)) + ')';
            }
        }
    }
    return text;
}

std::string FixedMenText(const TChessboard& board, TFieldSet fixed) {
    std::string text;
    for (const char kind : FixedKinds) {
        std::string fields;
        for (TFieldSet men = fixed; men != 0;) {
            const int field = PopLowest(men);
            fields += FigureOn(board, field) == FigureOfLetter(kind) ? FieldText(field) : "";
        }
        if (!fields.empty()) {
            text += std::string("+") + kind + fields;
        }
    }
    return text;
}

}  // namespace

TFieldSet FixedFieldSet(const TChessboard& board) noexcept {
    TFieldSet fixed = 0;
    for (TFieldSet men = OccupiedFields(board); men != 0;) {
        const int field = PopLowest(men);
        const TFigureCode code = FigureOn(board, field);
        const bool bFixed = code == BlackPawn ? IsPawnBlocked(field, fixed)
                                              : code != WhiteQueen && code != BlackKing;
        fixed |= bFixed ? FieldBit(field) : 0;
    }
    return fixed;
}

std::string CustomTypeOf(const TChessboard& board) {
    if (HasPlainType(board)) {
        return {};
    }
    const TFieldSet fixed = FixedFieldSet(board);
    if (std::popcount(OccupiedFields(board) & ~fixed) > MostFreeMen) {
        return {};
    }
    return FreeMenText(board, fixed) + FixedMenText(board, fixed);
}

CCustomType::CCustomType(std::string text) : m_text(std::move(text)) {
    ParseFixedMen(ParseFreeMen());
    NumberFields();
    for (TFreeMan& man : m_free) {
        man.radix = man.top != NoField ? RoadLength(man.top)
                                       : static_cast<std::uint64_t>(FieldCount) - m_fixed.size();
        m_count *= man.radix;
    }
}

void CCustomType::ThrowBadText() const {
    throw ChessException(FilledText(NoCustomTypeText, {m_text}));
}

std::uint8_t CCustomType::FieldAt(std::size_t at) const {
    if (at + 1 >= m_text.size() || m_text[at] < 'a' || m_text[at] > 'h' || m_text[at + 1] < '1' ||
        m_text[at + 1] > '8') {
        ThrowBadText();
    }
    return static_cast<std::uint8_t>((m_text[at + 1] - '1') * 8 + (m_text[at] - 'a'));
}

/// Returns where the fixed men begin.
std::size_t CCustomType::ParseFreeMen() {
    std::size_t at = 0;
    while (at < m_text.size() && m_text[at] != '+') {
        TFreeMan man{.code = FigureOfLetter(m_text[at])};
        if (man.code == EmptyField || m_free.size() == MostFreeMen) {
            ThrowBadText();
        }
        ++at;
        if (man.code == BlackPawn) {
            if (m_text.substr(at, 1) != "(" || m_text.substr(at + 3, 1) != ")") {
                ThrowBadText();
            }
            man.top = FieldAt(at + 1);
            at += 4;
        }
        m_free.push_back(man);
    }
    if (m_free.empty()) {
        ThrowBadText();
    }
    return at;
}

void CCustomType::ParseFixedMen(std::size_t at) {
    while (at < m_text.size()) {
        const TFigureCode code =
            at + 1 < m_text.size() ? FigureOfLetter(m_text[at + 1]) : EmptyField;
        if (m_text[at] != '+' || code == EmptyField) {
            ThrowBadText();
        }
        for (at += 2; at < m_text.size() && m_text[at] != '+'; at += 2) {
            const std::uint8_t field = FieldAt(at);
            if ((m_fixedFields & FieldBit(field)) != 0) {
                ThrowBadText();
            }
            m_fixedFields |= FieldBit(field);
            m_fixed.push_back({code, field});
        }
    }
    const bool bRoadsFree = std::ranges::all_of(m_free, [this](const TFreeMan& man) {
        return man.top == NoField || (m_fixedFields & FieldBit(man.top)) == 0;
    });
    if (m_fixed.size() == FieldCount || !bRoadsFree) {
        ThrowBadText();
    }
}

void CCustomType::NumberFields() {
    std::uint8_t number = 0;
    for (std::uint8_t field = 0; field < FieldCount; ++field) {
        const bool bFixed = (m_fixedFields & FieldBit(field)) != 0;
        m_freeNumbers[field] = bFixed ? NoField : number;
        if (!bFixed) {
            m_freeFields[number++] = field;
        }
    }
}

/// Fields of the road from its top down to a fixed man. Field a1 is never counted, the other fields of the first
/// rank are: files hold their tables in this form.
std::uint64_t CCustomType::RoadLength(int top) const noexcept {
    std::uint64_t fields = 1;
    for (int field = top - 8; field > 0 && (m_fixedFields & FieldBit(field)) == 0; field -= 8) {
        ++fields;
    }
    return fields;
}

std::uint64_t CCustomType::IndexOfPosition(const TChessboard& board) const noexcept {
    std::uint64_t index = 0;
    TFieldSet open = OccupiedFields(board) & ~m_fixedFields;
    for (const TFreeMan& man : m_free) {
        std::uint64_t digit = 0;
        if (man.top != NoField) {
            int field =
                man.top;  // Pawns of one file come from the top down, so this one is the next below.
            while (field > 0 &&
                   ((open & FieldBit(field)) == 0 || FigureOn(board, field) != man.code)) {
                field -= 8;
            }
            digit = field < 0 ? 0 : static_cast<std::uint64_t>((man.top - field) / 8);
            open &= field < 0 ? ~TFieldSet{0} : ~FieldBit(field);
        } else {
            TFieldSet men = open;
            int field = 0;
            do {
                field = men != 0 ? PopLowest(men) : 0;
            } while (men != 0 && FigureOn(board, field) != man.code);
            digit = m_freeNumbers[static_cast<std::size_t>(field)];
            open &= ~FieldBit(field);
        }
        index = index * man.radix + digit;
    }
    return index;
}

bool CCustomType::PositionOfIndex(std::uint64_t index, TChessboard& board) const noexcept {
    std::fill(std::begin(board.m_fields), std::end(board.m_fields), EmptyField);
    for (const TFixedMan& man : m_fixed) {
        board.m_fields[man.field] = man.code;
    }
    bool bApart = true;
    for (std::size_t i = m_free.size(); i-- > 0;) {
        const TFreeMan& man = m_free[i];
        const std::uint64_t digit = index % man.radix;
        index /= man.radix;
        const std::size_t field = man.top != NoField ? man.top - digit * 8 : m_freeFields[digit];
        bApart = bApart && board.m_fields[field] == EmptyField;
        board.m_fields[field] = man.code;
    }
    const auto fieldOf = [&board](TFigureCode code) {
        return static_cast<int>(std::ranges::find(board.m_fields, code) -
                                std::begin(board.m_fields));
    };
    const int white = fieldOf(WhiteKing);
    const int black = fieldOf(BlackKing);
    return bApart && white < FieldCount && black < FieldCount && KingDistance(white, black) > 1;
}

bool CCustomType::ArePawnsAtTop(const TChessboard& board) const noexcept {
    return std::ranges::all_of(m_free, [&board](const TFreeMan& man) {
        return man.top == NoField || FigureOn(board, man.top) == man.code;
    });
}

}  // namespace tarnwick
