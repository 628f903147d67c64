#pragma once
// CTableIndex: where the value of a position stands in the table of its type, and back.
//
// A table has one element for every way to put the men of the type on the board, White to move. Mirror
// images are stored once: without pawns the white king is brought into the triangle a1-d1-d4, with pawns
// to the files a to d. From the most significant digit on, an index is made of the fields of the letters
// (48 for a pawn, 64 for another man, or the number of the set for a run of like men), the field
// of the black king, and the place of the white king (10 or 32).
//
// Like men without set numbers have one index for each order. Positions with the white king on the
// diagonal and their mirror images have two. All of these hold the same value.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "chess/chessboard.h"
#include "tables/combination_mapping.h"
#include "tables/position_type.h"

namespace tarnwick {

/// Bits of a table's first element, which names no position.
enum TTableFlags : std::uint8_t {
    CompactPawnsFlag = 1,     ///< A pawn's digit counts 48 fields; else 64.
    CombinationsFlag = 2,     ///< Sets of like men have numbers; six men or more only.
    TwoByteElementsFlag = 4,  ///< Plain types of at least four letters only.
};

/// The fields of the men of a type: the kings, and each letter's man in the order of the type.
struct TTablePlace {
    std::uint8_t whiteKing = 0;
    std::uint8_t blackKing = 0;
    std::array<std::uint8_t, MaxTypeLetters> men{};

    bool operator==(const TTablePlace&) const = default;
};

/// Fields of the white king in a type without pawns, and in one with them.
inline constexpr int TriangleFields = 10;
inline constexpr int HalfBoardFields = 32;

/// The mirror image of a field in the diagonal a1-h8.
constexpr std::uint8_t SwapFileAndRank(int field) {
    return static_cast<std::uint8_t>((field & 7) * 8 + (field >> 3));
}

/// The flags of a table that is made now: sets of like men from six men on, where the table is large.
constexpr std::uint8_t FlagsOfNewTable = CompactPawnsFlag | CombinationsFlag;

class CTableIndex {
  public:
    /// The type must be in its order (OrderedType). Flags that a type cannot have are ignored. Throws
    /// std::bad_alloc where there is no memory for the sets of like men.
    explicit CTableIndex(std::string type, std::uint8_t flags = FlagsOfNewTable);

    const std::string& Type() const { return m_type; }
    std::size_t Letters() const { return m_type.size(); }
    bool HasPawns() const { return m_bPawns; }
    bool UsesCombinations() const { return !m_mappings.empty(); }
    /// The flags of TTableFlags that the type has indeed.
    std::uint8_t Flags() const { return m_flags; }
    /// Bytes of an element, 1 or 2.
    int ElementSize() const { return (m_flags & TwoByteElementsFlag) != 0 ? 2 : 1; }

    std::uint64_t GetIndexCount() const { return m_count; }
    /// The board must have exactly the men of the type. Neither allocates nor locks.
    std::uint64_t IndexOfPosition(const TChessboard& board) const noexcept;
    std::uint64_t IndexOfPlace(TTablePlace place) const noexcept;

    // Its steps, for those who go through many places.

    /// Mirrors the place so that the white king stands where the type keeps it.
    void Fold(TTablePlace& place) const noexcept;
    /// Like men in ascending order, which is the one order out of several that a generator computes.
    void SortLikeMen(TTablePlace& place) const noexcept;
    bool HasLikeMen() const { return m_bLikeMen; }
    /// The index of a folded place. Runs of like men are sorted where they have set numbers.
    std::uint64_t IndexOfFolded(TTablePlace& place) const noexcept;
    /// By how much the index grows when this letter's field, or the black king's, grows by one; 0 for a man
    /// of a numbered set.
    std::uint64_t Stride(std::size_t letter) const { return m_strides[letter]; }
    std::uint64_t BlackKingStride() const { return m_bPawns ? HalfBoardFields : TriangleFields; }

    /// False when the index names no position: two men on one field, or kings side by side. The place
    /// is filled in any case. The index must be below GetIndexCount().
    bool PlaceOfIndex(std::uint64_t index, TTablePlace& place) const noexcept;
    /// The same into the 64 fields of a board, without anything that follows from them: White is to move, and
    /// whether Black stands in check is for the caller to ask. The fields are whole only if it is true.
    bool PositionOfIndex(std::uint64_t index, TChessboard& board) const noexcept;

    /// The fields of the men of a board, like men ascending.
    TTablePlace PlaceOf(const TChessboard& board) const noexcept;
    /// The figure of each letter.
    TFigureCode ManOf(std::size_t letter) const { return m_codes[letter]; }
    /// Whether the letter is the same as the one before it.
    bool IsLikeBefore(std::size_t letter) const {
        return letter > 0 && m_type[letter] == m_type[letter - 1];
    }

  private:
    /// One digit of the index: a letter, or a run of like men.
    struct TDigit {
        std::uint8_t firstLetter;
        std::uint8_t letters;
        std::uint8_t offset;  ///< First field that counts: 8 for a pawn of 48 fields.
        std::uint32_t radix;
        const CMappingCombinationIndexIntoSetBase* pMapping;  ///< Null for a single letter.
    };

    void AddDigits();
    void CountIndices();
    std::uint32_t DigitOf(const TDigit& digit, TTablePlace& place) const noexcept;

    std::string m_type;
    std::array<TFigureCode, MaxTypeLetters> m_codes{};
    std::array<TDigit, MaxTypeLetters> m_digits{};
    std::size_t m_digitCount = 0;
    std::array<std::uint64_t, MaxTypeLetters> m_strides{};
    bool m_bPawns = false;
    bool m_bLikeMen = false;
    std::uint8_t m_flags = 0;
    std::uint64_t m_count = 0;
    std::vector<std::unique_ptr<CMappingCombinationIndexIntoSetBase>> m_mappings;
};

}  // namespace tarnwick
