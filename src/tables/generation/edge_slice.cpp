#include "tables/generation/edge_slice.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <vector>

#include "tables/generation/parallel_ranges.h"

namespace tarnwick {
namespace {

/// Values that are read at once.
constexpr std::uint64_t Piece = 1 << 16;
constexpr std::uint64_t KingPlaces = FieldCount * HalfBoardFields;

/// Of the rank on which the man of this code became what he is.
int FirstFieldOfEdge(TFigureCode code) {
    return IsWhite(code) ? FieldCount - 8 : 0;
}

bool IsCountedFromA2(const CTableIndex& type, std::size_t letter) {
    return TypeOf(type.ManOf(letter)) == TypePawn && (type.Flags() & CompactPawnsFlag) != 0;
}

}  // namespace

std::uint64_t CEdgeSlice::BytesOf(const CTableIndex& type, TLetters onEdge, int elementSize) {
    if (type.UsesCombinations() || onEdge == 0) {
        return 0;
    }
    std::uint64_t count = KingPlaces;
    for (std::size_t i = 0; i < type.Letters(); ++i) {
        count *= (onEdge >> i & 1U) != 0 ? 8 : IsCountedFromA2(type, i) ? PawnFields : FieldCount;
    }
    return count * static_cast<std::uint64_t>(elementSize);
}

CEdgeSlice::CEdgeSlice(const CTableIndex& type, TLetters onEdge, const CTableValues& source,
                       int elementSize, int threads)
    : m_type(type),
      m_onEdge(onEdge),
      m_elementSize(elementSize),
      m_values(BytesOf(type, onEdge, elementSize), true) {
    AddDigits();
    if (m_type.HasPawns()) {
        CopyRuns(source, threads);
    } else {
        Scatter(source, threads);
    }
}

void CEdgeSlice::AddDigits() {
    m_count = KingPlaces;
    for (std::size_t i = m_type.Letters(); i-- > 0;) {
        m_strides[i] = m_count;
        if (IsOnEdge(i)) {
            m_firstFields[i] = static_cast<std::uint8_t>(FirstFieldOfEdge(m_type.ManOf(i)));
            m_count *= 8;
        } else {
            m_firstFields[i] = IsCountedFromA2(m_type, i) ? FirstPawnField : 0;
            m_count *= IsCountedFromA2(m_type, i) ? PawnFields : FieldCount;
        }
    }
}

/// With pawns the slice has the table's own order: below the last letter on the edge, whose eight fields follow
/// one another, it is the same, so each run of that size is read in one piece.
void CEdgeSlice::CopyRuns(const CTableValues& source, int threads) {
    const auto last = static_cast<std::size_t>(std::bit_width(m_onEdge) - 1);
    const std::uint64_t run = 8 * m_strides[last];
    ForRanges(m_count / run, 1, threads, NeverStopped, [&](std::uint64_t begin, std::uint64_t) {
        std::uint64_t rest = begin * run;
        std::uint64_t first = m_firstFields[last] * m_type.Stride(last);
        for (std::size_t i = 0; i < last; ++i) {
            const std::uint64_t digit = rest / m_strides[i];
            rest -= digit * m_strides[i];
            first += (digit + (IsOnEdge(i) ? m_firstFields[i] : 0)) * m_type.Stride(i);
        }
        std::vector<std::uint16_t> values(std::min(run, Piece));
        for (std::uint64_t at = 0; at < run; at += values.size()) {
            values.resize(std::min<std::uint64_t>(values.size(), run - at));
            source.ReadValues(first + at, values);
            for (std::size_t i = 0; i < values.size(); ++i) {
                SetValue(begin * run + at + i, values[i]);
            }
        }
    });
}

/// Without pawns the table keeps the white king in a triangle: each place is turned so that its men come to
/// their edges, if they can. The mirror images of the files are one place of the slice.
void CEdgeSlice::Scatter(const CTableValues& source, int threads) {
    const auto turned = [](TTablePlace place, std::size_t letters, bool bSwap, int mirror) {
        const auto turn = [&](std::uint8_t field) {
            return static_cast<std::uint8_t>((bSwap ? SwapFileAndRank(field) : field) ^ mirror);
        };
        place.whiteKing = turn(place.whiteKing);
        place.blackKing = turn(place.blackKing);
        for (std::size_t i = 0; i < letters; ++i) {
            place.men[i] = turn(place.men[i]);
        }
        return place;
    };
    constexpr int MirrorRanks = 56;
    const auto lookAt = [&](std::uint64_t index, unsigned value) {
        TTablePlace place;
        if (!m_type.PlaceOfIndex(index, place)) {
            return;
        }
        for (const bool bSwap : {false, true}) {
            for (const int mirror : {0, MirrorRanks}) {
                const TTablePlace image = turned(place, m_type.Letters(), bSwap, mirror);
                if (Holds(image)) {
                    SetValue(IndexOf(image), value);
                }
            }
        }
    };
    ForRanges(m_type.GetIndexCount(), Piece, threads, NeverStopped,
              [&](std::uint64_t begin, std::uint64_t end) {
                  std::vector<std::uint16_t> values(end - begin);
                  source.ReadValues(begin, values);
                  for (std::uint64_t index = std::max<std::uint64_t>(begin, 1); index < end;
                       ++index) {
                      if (values[index - begin] != 0) {  // The slice begins with zeros.
                          lookAt(index, values[index - begin]);
                      }
                  }
              });
}

/// Two threads may write the same value to the same place, that of two mirror images.
void CEdgeSlice::SetValue(std::uint64_t index, unsigned value) {
    if (m_elementSize == 1) {
        std::atomic_ref<std::uint8_t>(static_cast<std::uint8_t*>(m_values.Data())[index])
            .store(static_cast<std::uint8_t>(value), std::memory_order_relaxed);
    } else {
        std::atomic_ref<std::uint16_t>(static_cast<std::uint16_t*>(m_values.Data())[index])
            .store(static_cast<std::uint16_t>(value), std::memory_order_relaxed);
    }
}

bool CEdgeSlice::Holds(const TTablePlace& place) const {
    for (TLetters letters = m_onEdge; letters != 0; letters &= letters - 1) {
        const auto letter = static_cast<std::size_t>(std::countr_zero(letters));
        if ((place.men[letter] & ~7) != m_firstFields[letter]) {
            return false;
        }
    }
    return true;
}

std::uint64_t CEdgeSlice::IndexOf(const TTablePlace& place) const {
    const int mirror = FileOf(place.whiteKing) >= 4 ? 7 : 0;
    const int whiteKing = place.whiteKing ^ mirror;
    std::uint64_t index = static_cast<std::uint64_t>(RankOf(whiteKing) * 4 + FileOf(whiteKing));
    index += static_cast<std::uint64_t>(place.blackKing ^ mirror) * HalfBoardFields;
    for (std::size_t i = 0; i < m_type.Letters(); ++i) {
        index +=
            static_cast<std::uint64_t>((place.men[i] ^ mirror) - m_firstFields[i]) * m_strides[i];
    }
    return index;
}

unsigned CEdgeSlice::ValueAt(const TTablePlace& place) const {
    const std::uint64_t index = IndexOf(place);
    if (m_elementSize == 1) {
        const std::uint8_t value = static_cast<const std::uint8_t*>(m_values.Data())[index];
        return value == 0xFF ? NotGenerated : value;
    }
    return static_cast<const std::uint16_t*>(m_values.Data())[index];
}

}  // namespace tarnwick
