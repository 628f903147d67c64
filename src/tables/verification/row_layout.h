#pragma once
// CRowLayout: the rows of a table.
//
// Where the fields of a type's letters are fixed, the two kings alone make 640 positions (2048 with pawns),
// whose elements lie side by side in the table: a row. A move of a letter leads every cell of a row to the
// same cell of another row, so that one move is looked up for all of them at once.

#include <array>
#include <cstdint>
#include <vector>

#include "tables/table_index.h"

namespace tarnwick {

/// The fields of a type's letters, as in TTablePlace.
using TLetterFields = std::array<std::uint8_t, MaxTypeLetters>;
/// Where each field of the board goes in one of its mirror images.
using TFieldMap = std::array<std::uint8_t, FieldCount>;

inline constexpr std::size_t MaxRowCells = std::size_t{FieldCount} * HalfBoardFields;
inline constexpr std::size_t MaxFieldMaps = 8;

class CRowLayout {
  public:
    /// The index must outlive the layout.
    explicit CRowLayout(const CTableIndex& index);

    const CTableIndex& Index() const { return m_index; }
    /// Cells for each field of the black king: the white king's fields that the type keeps.
    std::size_t WhiteKings() const { return m_whiteKings.size(); }
    std::size_t Cells() const { return FieldCount * WhiteKings(); }
    std::size_t Cell(int blackKing, std::size_t whiteKing) const {
        return static_cast<std::size_t>(blackKing) * WhiteKings() + whiteKing;
    }
    int WhiteKingField(std::size_t whiteKing) const { return m_whiteKings[whiteKing]; }

    /// How a position with the white king on some field is mirrored to the one that the type keeps.
    struct TFolding {
        std::uint8_t whiteKing;  ///< Its cell.
        std::uint8_t map;        ///< Number of the field map for all men.
        bool bKept;              ///< The king stands on a field that the type keeps.
    };
    const TFolding& FoldingOf(int whiteKingField) const {
        return m_foldings[static_cast<std::size_t>(whiteKingField)];
    }
    const TFieldMap& Map(std::size_t number) const { return m_maps[number]; }
    TLetterFields Mapped(const TLetterFields& fields, std::size_t map) const;

    /// The index of the first cell; of like men's orders the ascending one.
    std::uint64_t Begin(const TLetterFields& fields) const;
    /// The fields of the row that begins at this index; false if two letters share one.
    bool FieldsAt(std::uint64_t begin, TLetterFields& fields) const;
    bool IsAscending(const TLetterFields& fields) const;

  private:
    const CTableIndex& m_index;
    std::vector<std::uint8_t> m_whiteKings;
    std::array<TFolding, FieldCount> m_foldings{};
    std::vector<TFieldMap> m_maps;
};

}  // namespace tarnwick
