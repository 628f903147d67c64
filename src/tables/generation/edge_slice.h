#pragma once
// CEdgeSlice: the part of a table in which some men stand on the rank where they were promoted.
//
// A pawn's promotion leads into a table as large as the one that is being made, or larger, but only to
// places with the new man on its last rank: an eighth of them. Beside the table in the making there is
// memory for such parts, not for whole tables, and a read from the disk for each value would take a hundred
// times as long.
//
// The white king is kept on the files a to d, also in types without pawns: turning the board there would
// bring the man to another edge.

#include <cstdint>

#include "platform/page_memory.h"

#include "tables/table_index.h"
#include "tables/table_values.h"

namespace tarnwick {

class CEdgeSlice {
  public:
    /// A set of letters: bit i is the man of letter i, who stands on the last rank of his side's pawns.
    using TLetters = unsigned;

    /// What the slice takes; 0 where it cannot be had (sets of like men have no ranks).
    static std::uint64_t BytesOf(const CTableIndex& type, TLetters onEdge, int elementSize);

    /// Reads the values from `source`. The type must outlive the slice. Throws std::bad_alloc.
    CEdgeSlice(const CTableIndex& type, TLetters onEdge, const CTableValues& source,
               int elementSize, int threads);

    TLetters OnEdge() const { return m_onEdge; }
    bool Holds(const TTablePlace& place) const;
    /// Of a place that it holds; as CTableValues::ValueAt. Any thread.
    unsigned ValueAt(const TTablePlace& place) const;

  private:
    void AddDigits();
    void CopyRuns(const CTableValues& source, int threads);
    void Scatter(const CTableValues& source, int threads);
    void SetValue(std::uint64_t index, unsigned value);
    std::uint64_t IndexOf(const TTablePlace& place) const;
    bool IsOnEdge(std::size_t letter) const { return (m_onEdge >> letter & 1U) != 0; }

    const CTableIndex& m_type;
    TLetters m_onEdge;
    int m_elementSize;
    std::uint64_t m_count = 0;
    std::array<std::uint64_t, MaxTypeLetters> m_strides{};
    std::array<std::uint8_t, MaxTypeLetters> m_firstFields{};
    CPageMemory m_values;
};

}  // namespace tarnwick
