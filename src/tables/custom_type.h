#pragma once
// Position types with fixed men: tables for boards of more than seven men of which only a few can move.
//
// Fixed are White's men but the queens, Black's but king and pawns, and black pawns that cannot step because
// all fields below them are taken by fixed men. At most seven men may be left. The text of a type
// names those first, a pawn with the top of its road, and then where the fixed ones stand:
//
//   Qkp(a5)+Kh1+Rb2c2+pa3
//
// It is also the name of the table's file. An index has one digit for each free man: for a pawn the steps down its
// road, for any other man its field among those that no fixed man takes. Nothing is mirrored.
// Whether the fixed men indeed never move is the promise of who made the table, and no lookup can check it.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "chess/chessboard.h"

namespace tarnwick {

/// Free men of a type at most.
inline constexpr int MostFreeMen = 7;

/// The fields of the men that stay where they are. The board must have men enough for no plain type.
TFieldSet FixedFieldSet(const TChessboard& board) noexcept;

/// The text of the board's type; empty if it has a plain type or too many men are free.
std::string CustomTypeOf(const TChessboard& board);

class CCustomType {
  public:
    /// Throws ChessException for a text that CustomTypeOf cannot have made.
    explicit CCustomType(std::string text);

    const std::string& Text() const { return m_text; }
    int FreeMen() const { return static_cast<int>(m_free.size()); }
    /// Kings included.
    int Men() const { return static_cast<int>(m_free.size() + m_fixed.size()); }
    TFieldSet FixedFields() const { return m_fixedFields; }
    /// Number of each field among those that are not fixed; 255 for a fixed one.
    const std::array<std::uint8_t, FieldCount>& FreeNumbers() const { return m_freeNumbers; }

    std::uint64_t GetIndexCount() const { return m_count; }
    /// The board must be of this type. Neither allocates nor locks.
    std::uint64_t IndexOfPosition(const TChessboard& board) const noexcept;
    /// Fills the 64 fields; false when two men meet or the kings stand side by side. The index must be below
    /// GetIndexCount().
    bool PositionOfIndex(std::uint64_t index, TChessboard& board) const noexcept;
    /// Whether each free pawn stands at the top of its road.
    bool ArePawnsAtTop(const TChessboard& board) const noexcept;

  private:
    struct TFreeMan {
        TFigureCode code = EmptyField;
        std::uint8_t top = NoField;  ///< Of a pawn's road.
        std::uint64_t radix = 0;
    };
    struct TFixedMan {
        TFigureCode code;
        std::uint8_t field;
    };

    std::size_t ParseFreeMen();
    void ParseFixedMen(std::size_t at);
    void NumberFields();
    std::uint8_t FieldAt(std::size_t at) const;
    std::uint64_t RoadLength(int top) const noexcept;
    [[noreturn]] void ThrowBadText() const;

    std::string m_text;
    std::vector<TFreeMan> m_free;
    std::vector<TFixedMan> m_fixed;
    TFieldSet m_fixedFields = 0;
    std::array<std::uint8_t, FieldCount> m_freeNumbers{};
    std::array<std::uint8_t, FieldCount> m_freeFields{};  ///< The other way round.
    std::uint64_t m_count = 1;
};

}  // namespace tarnwick
