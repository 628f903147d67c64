// Places of the input are kept in buckets by a hash of their four bytes, newest last. For each place at which
// a sequence may start, its bucket is searched from the newest to the oldest, and the longest match wins, of
// equally long ones the nearest. Most candidates fall at one comparison: to be longer than the best so far,
// a candidate must have the same four bytes where that one ends.

#include <algorithm>
#include <bit>
#include <cstring>

#include "base/little_endian.h"

#include "tables/lz4e_stream.h"

namespace tarnwick {
namespace {

constexpr std::size_t MinMatch = 4;
constexpr std::size_t NibbleMax = 15;
/// From this length on a match may have an offset of three bytes.
constexpr std::size_t LongMatch = MinMatch + NibbleMax;
constexpr std::size_t FarOffset = 0x10000;
constexpr std::size_t OutOfReach = 0x1000000;
/// Nearer than this, a match ends at its offset.
constexpr std::size_t CopyStep = 16;
constexpr std::size_t MinOffset = 4;

/// Where the four-byte words of the input stand.
class CMatchBuckets {
  public:
    void Enter(std::uint32_t word, std::uint32_t position) {
        std::vector<std::uint32_t>& bucket = m_buckets[NumberOf(word)];
        if (bucket.size() >= MostEntries) {
            bucket.erase(bucket.begin(), bucket.end() - EntriesKept);
        }
        bucket.push_back(position);
    }
    std::span<const std::uint32_t> Find(std::uint32_t word) const {
        return m_buckets[NumberOf(word)];
    }
    /// Forgets what no offset reaches from this position on.
    void Purge(std::size_t position) {
        for (std::vector<std::uint32_t>& bucket : m_buckets) {
            const auto isInReach = [position](std::uint32_t p) {
                return position - p < OutOfReach;
            };
            bucket.erase(bucket.begin(), std::ranges::find_if(bucket, isInReach));
        }
    }

  private:
    static constexpr std::size_t MostEntries = 4096;
    static constexpr std::ptrdiff_t EntriesKept = 4064;

    static std::size_t NumberOf(std::uint32_t word) { return (word >> 15 ^ word) & 0xFFFF; }

    std::vector<std::vector<std::uint32_t>> m_buckets{0x10000};
};

struct TMatch {
    std::size_t length = 0;  ///< 0: none.
    std::size_t offset = 0;
};

class CLz4ePacker {
  public:
    CLz4ePacker(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& packed)
        : m_bytes(bytes), m_packed(packed) {}

    void Run() {
        std::size_t position = 0;
        while (position + MinMatch <= m_bytes.size()) {
            EnterUpTo(position);
            const TMatch match = FindMatch(position);
            if (match.length == 0) {
                ++position;
                continue;
            }
            WriteLiterals(position, std::min(match.length - MinMatch, NibbleMax));
            WriteMatch(match);
            position += match.length;
            m_anchor = position;
        }
        WriteLiterals(m_bytes.size(), 0);
    }

  private:
    std::uint32_t WordAt(std::size_t position) const {
        return LoadLittleEndian<std::uint32_t>(&m_bytes[position]);
    }

    void EnterUpTo(std::size_t position) {
        for (; m_entered < position; ++m_entered) {
            if (m_entered != 0 && m_entered % OutOfReach == 0) {
                m_buckets.Purge(m_entered);
            }
            m_buckets.Enter(WordAt(m_entered), static_cast<std::uint32_t>(m_entered));
        }
    }

    TMatch FindMatch(std::size_t position) const {
        const std::uint32_t word = WordAt(position);
        const std::span<const std::uint32_t> bucket = m_buckets.Find(word);
        const std::size_t rest = m_bytes.size() - position;
        TMatch best;
        for (auto it = bucket.rbegin(); it != bucket.rend() && best.length < rest; ++it) {
            const std::size_t offset = position - *it;
            if (offset >= OutOfReach) {
                break;
            }
            const std::size_t last = best.length == 0 ? 0 : best.length + 1 - MinMatch;
            const bool bMayBeLonger = WordAt(*it + last) == WordAt(position + last);
            if (!bMayBeLonger || offset < MinOffset || WordAt(*it) != word) {
                continue;
            }
            const std::size_t most = offset < CopyStep ? std::min(offset, rest) : rest;
            const std::size_t length = LengthOf(*it, position, most);
            if (length > best.length && (offset < FarOffset || length >= LongMatch)) {
                best = {length, offset};
            }
        }
        return best;
    }

    std::size_t LengthOf(std::size_t earlier, std::size_t position, std::size_t most) const {
        std::size_t length = MinMatch;
        for (; length + 8 <= most; length += 8) {
            const std::uint64_t difference =
                LoadLittleEndian<std::uint64_t>(&m_bytes[earlier + length]) ^
                LoadLittleEndian<std::uint64_t>(&m_bytes[position + length]);
            if (difference != 0) {
                return length + static_cast<std::size_t>(std::countr_zero(difference)) / 8;
            }
        }
        while (length < most && m_bytes[earlier + length] == m_bytes[position + length]) {
            ++length;
        }
        return length;
    }

    /// The token, and what is not written yet before `end`.
    void WriteLiterals(std::size_t end, std::size_t matchNibble) {
        const std::size_t count = end - m_anchor;
        m_packed.push_back(
            static_cast<std::uint8_t>(std::min(count, NibbleMax) << 4 | matchNibble));
        if (count >= NibbleMax) {
            WriteLength(count - NibbleMax);
        }
        const auto literals = m_bytes.subspan(m_anchor, count);
        m_packed.insert(m_packed.end(), literals.begin(), literals.end());
    }

    /// The offset; in front of it, for a long match, what its length has beyond LongMatch.
    void WriteMatch(TMatch match) {
        const bool bFar = match.offset >= FarOffset;
        if (match.length >= LongMatch) {
            const std::size_t more = match.length - LongMatch;
            m_packed.push_back(
                static_cast<std::uint8_t>((bFar ? 0x80 : 0) | std::min<std::size_t>(more, 0x7F)));
            if (more >= 0x7F) {
                WriteLength(more - 0x7F);
            }
        }
        for (int i = 0; i < (bFar ? 3 : 2); ++i) {
            m_packed.push_back(static_cast<std::uint8_t>(match.offset >> (8 * i)));
        }
    }

    void WriteLength(std::size_t rest) {
        m_packed.insert(m_packed.end(), rest / 255, 255);
        m_packed.push_back(static_cast<std::uint8_t>(rest % 255));
    }

    std::span<const std::uint8_t> m_bytes;
    std::vector<std::uint8_t>& m_packed;
    CMatchBuckets m_buckets;
    std::size_t m_entered = 0;  ///< First position that is in no bucket yet.
    std::size_t m_anchor = 0;   ///< First byte that is not written yet.
};

}  // namespace

void AppendLz4eSequences(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& packed) {
    CLz4ePacker(bytes, packed).Run();
}

std::vector<std::uint8_t> PackLz4eStream(std::span<const std::uint8_t> bytes) {
    if (bytes.size() > MostLz4eBytes) {
        return {};
    }
    std::vector<std::uint8_t> packed(Lz4eHeadBytes);
    AppendLz4eSequences(bytes, packed);
    if (packed.size() > MostLz4eBytes) {
        return {};
    }
    std::memcpy(packed.data(), "LZ4e", 4);
    StoreLittleEndian(&packed[4], static_cast<std::uint32_t>(bytes.size()));
    StoreLittleEndian(&packed[8], static_cast<std::uint32_t>(packed.size()));
    return packed;
}

}  // namespace tarnwick
