#pragma once
// Numbers for sets of like men.
//
// Two like men on given fields are one position, whichever of them is named first; numbering sets instead of
// pairs halves a table, and three like men need a sixth. Sets are numbered in lexicographic order of
// their ascending fields. The mapping holds them all as one table, up to 38 MB, which is why only
// types of six men or more ask for it.

#include <cstdint>
#include <memory>
#include <vector>

namespace tarnwick {

/// Pawns stand on 48 fields.
inline constexpr int PawnFields = 48;
/// The first field that a pawn may stand on: a2.
inline constexpr int FirstPawnField = 8;

class CMappingCombinationIndexIntoSetBase {
  public:
    CMappingCombinationIndexIntoSetBase() = default;
    CMappingCombinationIndexIntoSetBase(const CMappingCombinationIndexIntoSetBase&) = delete;
    CMappingCombinationIndexIntoSetBase& operator=(const CMappingCombinationIndexIntoSetBase&) =
        delete;
    virtual ~CMappingCombinationIndexIntoSetBase() = default;
    virtual std::uint32_t GetSetCount() const noexcept = 0;
    /// The fields of the set, ascending; as many as the mapping's men.
    virtual const std::uint8_t* GetSetByIndex(std::uint32_t index) const noexcept = 0;
    /// The fields must be different, ascending and within the mapping's fields.
    virtual std::uint32_t GetIndexOfSet(const std::uint8_t* fields) const noexcept = 0;
};

/// n over k for the few values needed here; 0 where k is greater than n.
constexpr std::uint32_t Binomial(int n, int k) {
    if (k < 0 || k > n) {
        return 0;
    }
    std::uint64_t result = 1;
    for (int i = 1; i <= k; ++i) {
        result = result * static_cast<std::uint64_t>(n - k + i) / static_cast<std::uint64_t>(i);
    }
    return static_cast<std::uint32_t>(result);
}

/// All sets of K of NFields fields, the lowest field being number Offset.
template <int NFields, int K, typename Element, int Offset>
class CMappingCombinationIndexIntoSet final : public CMappingCombinationIndexIntoSetBase {
  public:
    static constexpr std::uint32_t SetCount = Binomial(NFields, K);

    /// Throws std::bad_alloc.
    CMappingCombinationIndexIntoSet() : m_sets(std::size_t{SetCount} * K) {
        Element set[K];
        for (int i = 0; i < K; ++i) {
            set[i] = static_cast<Element>(i + Offset);
        }
        for (std::uint32_t index = 0; index < SetCount; ++index) {
            std::copy(set, set + K, m_sets.begin() + std::ptrdiff_t{index} * K);
            GoToNext(set);
        }
        SumSkippedSets();
    }

    std::uint32_t GetSetCount() const noexcept override { return SetCount; }
    const std::uint8_t* GetSetByIndex(std::uint32_t index) const noexcept override {
        return &m_sets[std::size_t{index} * K];
    }
    std::uint32_t GetIndexOfSet(const std::uint8_t* fields) const noexcept override {
        std::uint32_t rank = 0;
        int lowest = 0;
        for (int i = 0; i < K; ++i) {
            const int field = fields[i] - Offset;
            rank += m_skipped[i][field] - m_skipped[i][lowest];
            lowest = field + 1;
        }
        return rank;
    }

  private:
    static_assert(sizeof(Element) == 1);

    static void GoToNext(Element (&set)[K]) {
        int i = K - 1;
        while (i >= 0 && set[i] == NFields - K + i + Offset) {
            --i;
        }
        if (i < 0) {
            return;
        }
        ++set[i];
        for (++i; i < K; ++i) {
            set[i] = static_cast<Element>(set[i - 1] + 1);
        }
    }

    /// m_skipped[i][f]: sets whose element i is below f, summed over the fields below f, so that the sets
    /// passed over between two fields are a difference.
    void SumSkippedSets() {
        for (int i = 0; i < K; ++i) {
            m_skipped[i][0] = 0;
            for (int field = 0; field < NFields; ++field) {
                m_skipped[i][field + 1] =
                    m_skipped[i][field] + Binomial(NFields - 1 - field, K - 1 - i);
            }
        }
    }

    std::vector<Element> m_sets;
    std::uint32_t m_skipped[K][NFields + 1];
};

/// The mapping of 2 to 5 pawns, or of so many other like men. Throws std::bad_alloc.
std::unique_ptr<CMappingCombinationIndexIntoSetBase> MakeCombinationMapping(int men, bool bPawns);

}  // namespace tarnwick
