#include "tables/table_index.h"

#include <algorithm>
#include <utility>

#include "chess/lines.h"

namespace tarnwick {
namespace {

// clang-format off
constexpr std::array<std::uint8_t, TriangleFields> FieldOfTriangle = {0, 1, 2, 3, 9, 10, 11, 18, 19, 27};
// clang-format on

constexpr std::array<std::uint8_t, FieldCount> TriangleOfField = [] {
    std::array<std::uint8_t, FieldCount> numbers{};
    for (std::size_t i = 0; i < FieldOfTriangle.size(); ++i) {
        numbers[FieldOfTriangle[i]] = static_cast<std::uint8_t>(i);
    }
    return numbers;
}();

/// A field mirrored by `bits` of its number: 7 turns the files, 56 the ranks.
constexpr int MirrorFiles = 7;
constexpr int MirrorRanks = 56;

bool AreKingsApart(const TTablePlace& place) {
    return KingDistance(place.whiteKing, place.blackKing) > 1;
}

}  // namespace

CTableIndex::CTableIndex(std::string type, std::uint8_t flags) : m_type(std::move(type)) {
    m_bPawns = tarnwick::HasPawns(m_type);
    for (std::size_t i = 0; i < m_type.size(); ++i) {
        m_codes[i] = FigureOfLetter(m_type[i]);
        m_bLikeMen = m_bLikeMen || IsLikeBefore(i);
    }
    if (m_bPawns) {
        m_flags |= flags & CompactPawnsFlag;
    }
    if (m_type.size() >= 4) {
        m_flags |= flags & (CombinationsFlag | TwoByteElementsFlag);
    }
    AddDigits();
    if (m_mappings.empty()) {
        m_flags &= static_cast<std::uint8_t>(~CombinationsFlag);
    }
    CountIndices();
}

void CTableIndex::AddDigits() {
    const bool bCompact = (m_flags & CompactPawnsFlag) != 0;
    for (std::size_t letter = 0; letter < m_type.size();) {
        std::size_t run = 1;
        if ((m_flags & CombinationsFlag) != 0) {
            while (letter + run < m_type.size() && m_type[letter + run] == m_type[letter]) {
                ++run;
            }
        }
        const bool bPawn = TypeOf(m_codes[letter]) == TypePawn;
        TDigit& digit = m_digits[m_digitCount++];
        digit.firstLetter = static_cast<std::uint8_t>(letter);
        digit.letters = static_cast<std::uint8_t>(run);
        digit.offset = bPawn && bCompact ? FirstPawnField : 0;
        digit.radix = bPawn && bCompact ? PawnFields : FieldCount;
        digit.pMapping = nullptr;
        if (run > 1) {
            m_mappings.push_back(MakeCombinationMapping(static_cast<int>(run), bPawn));
            digit.pMapping = m_mappings.back().get();
            digit.radix = digit.pMapping->GetSetCount();
        }
        letter += run;
    }
}

void CTableIndex::CountIndices() {
    m_count = FieldCount * BlackKingStride();
    for (std::size_t i = m_digitCount; i-- > 0;) {
        const TDigit& digit = m_digits[i];
        m_strides[digit.firstLetter] = digit.letters == 1 ? m_count : 0;
        m_count *= digit.radix;
    }
}

TTablePlace CTableIndex::PlaceOf(const TChessboard& board) const noexcept {
    TTablePlace place;
    place.whiteKing = static_cast<std::uint8_t>(WhiteKingField(board));
    place.blackKing = static_cast<std::uint8_t>(BlackKingField(board));
    const TFieldSet diagonal = board.m_diagonalSliders;
    const TFieldSet straight = board.m_straightSliders;
    const std::array<TFieldSet, 5> byType = {board.m_pawns, diagonal & ~straight,
                                             straight & ~diagonal, diagonal & straight,
                                             board.m_knights};  // order of TypeOf(code) / 4
    TFigureCode last = EmptyField;
    TFieldSet men = 0;
    for (std::size_t i = 0; i < m_type.size(); ++i) {
        const TFigureCode code = m_codes[i];
        if (code != last) {
            men = byType[TypeOf(code) / 4] & (IsWhite(code) ? board.m_whiteMen : board.m_blackMen);
            last = code;
        }
        place.men[i] = men == 0 ? NoField : static_cast<std::uint8_t>(PopLowest(men));
    }
    return place;
}

void CTableIndex::Fold(TTablePlace& place) const noexcept {
    int mirror = FileOf(place.whiteKing) >= 4 ? MirrorFiles : 0;
    bool bSwap = false;
    if (!m_bPawns) {
        mirror |= RankOf(place.whiteKing) >= 4 ? MirrorRanks : 0;
        const int folded = place.whiteKing ^ mirror;
        bSwap = RankOf(folded) > FileOf(folded);
    }
    if (mirror == 0 && !bSwap) {
        return;
    }
    const auto fold = [&](std::uint8_t field) {
        const int mirrored = field ^ mirror;
        return bSwap ? SwapFileAndRank(mirrored) : static_cast<std::uint8_t>(mirrored);
    };
    place.whiteKing = fold(place.whiteKing);
    place.blackKing = fold(place.blackKing);
    for (std::size_t i = 0; i < m_type.size(); ++i) {
        place.men[i] = fold(place.men[i]);
    }
}

std::uint32_t CTableIndex::DigitOf(const TDigit& digit, TTablePlace& place) const noexcept {
    std::uint8_t* pFields = &place.men[digit.firstLetter];
    if (digit.pMapping == nullptr) {
        return static_cast<std::uint32_t>(*pFields - digit.offset);
    }
    std::sort(pFields, pFields + digit.letters);
    return digit.pMapping->GetIndexOfSet(pFields);
}

void CTableIndex::SortLikeMen(TTablePlace& place) const noexcept {
    for (std::size_t i = 1; i < m_type.size(); ++i) {
        for (std::size_t j = i; IsLikeBefore(j) && place.men[j] < place.men[j - 1]; --j) {
            std::swap(place.men[j], place.men[j - 1]);
        }
    }
}

std::uint64_t CTableIndex::IndexOfPlace(TTablePlace place) const noexcept {
    Fold(place);
    return IndexOfFolded(place);
}

std::uint64_t CTableIndex::IndexOfFolded(TTablePlace& place) const noexcept {
    std::uint64_t index = 0;
    for (std::size_t i = 0; i < m_digitCount; ++i) {
        index = index * m_digits[i].radix + DigitOf(m_digits[i], place);
    }
    index = index * FieldCount + place.blackKing;
    if (m_bPawns) {
        return index * HalfBoardFields +
               static_cast<std::uint64_t>(RankOf(place.whiteKing) * 4 + FileOf(place.whiteKing));
    }
    return index * TriangleFields + TriangleOfField[place.whiteKing];
}

std::uint64_t CTableIndex::IndexOfPosition(const TChessboard& board) const noexcept {
    return IndexOfPlace(PlaceOf(board));
}

bool CTableIndex::PlaceOfIndex(std::uint64_t index, TTablePlace& place) const noexcept {
    if (m_bPawns) {
        const int king = static_cast<int>(index % HalfBoardFields);
        place.whiteKing = static_cast<std::uint8_t>((king >> 2) * 8 + (king & 3));
        index /= HalfBoardFields;
    } else {
        place.whiteKing = FieldOfTriangle[index % TriangleFields];
        index /= TriangleFields;
    }
    place.blackKing = static_cast<std::uint8_t>(index % FieldCount);
    index /= FieldCount;
    TFieldSet taken = FieldBit(place.whiteKing) | FieldBit(place.blackKing);
    bool bApart = AreKingsApart(place);
    for (std::size_t i = m_digitCount; i-- > 0;) {
        const TDigit& digit = m_digits[i];
        const auto value = static_cast<std::uint32_t>(index % digit.radix);
        index /= digit.radix;
        if (digit.pMapping == nullptr) {
            place.men[digit.firstLetter] = static_cast<std::uint8_t>(value + digit.offset);
        } else {
            std::copy_n(digit.pMapping->GetSetByIndex(value), digit.letters,
                        &place.men[digit.firstLetter]);
        }
        for (std::size_t j = digit.firstLetter; j < std::size_t{digit.firstLetter} + digit.letters;
             ++j) {
            bApart = bApart && (taken & FieldBit(place.men[j])) == 0;
            taken |= FieldBit(place.men[j]);
        }
    }
    return bApart;
}

bool CTableIndex::PositionOfIndex(std::uint64_t index, TChessboard& board) const noexcept {
    TTablePlace place;
    if (!PlaceOfIndex(index, place)) {
        return false;
    }
    std::fill(std::begin(board.m_fields), std::end(board.m_fields), EmptyField);
    board.m_fields[place.whiteKing] = WhiteKing;
    board.m_fields[place.blackKing] = BlackKing;
    for (std::size_t i = 0; i < m_type.size(); ++i) {
        board.m_fields[place.men[i]] = m_codes[i];
    }
    return true;
}

}  // namespace tarnwick
