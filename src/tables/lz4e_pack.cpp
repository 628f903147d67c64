// Places of the input are chained by a hash of their next bytes, once for each of a few key lengths, newest
// first. For each place at which a sequence may start, the chain of the longest key is searched, and those of shorter
// keys only while nothing as long as a key was found: in a table thousands of places share four bytes, but few share
// sixteen, and among these the longest match is. A match waits for the one that starts a byte later, which takes
// its place if it saves more.
//
// Runs of one value, of which tables have many, would fill the chains with places that are all alike. Of a run only
// the last place that has a whole key is entered, and a search from within a run begins there too, so that
// it finds runs with the same bytes behind them.
//
// One chain by four bytes, searched 4096 places deep, took several times as long and packed worse.

#include <algorithm>
#include <array>
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
/// A match so long is taken without looking for a longer one, and one half so long without looking at the next
/// place.
constexpr std::size_t LongEnough = 1024;

/// The places of the input that start with the same bytes, from the newest to the oldest.
class CPlaceChains {
  public:
    /// `reach`: no place farther away is asked for.
    CPlaceChains(std::size_t keyBytes, std::size_t places, std::size_t reach)
        : m_keyBytes(keyBytes),
          m_reach(reach),
          m_shift(64 -
                  static_cast<int>(std::clamp<std::size_t>(std::bit_width(places), 8, MostBits))),
          m_newest(std::size_t{1} << (64 - m_shift)),
          m_older(std::bit_ceil(std::min(places + 1, reach))),
          m_mask(m_older.size() - 1) {}

    std::size_t KeyBytes() const { return m_keyBytes; }
    std::size_t Reach() const { return m_reach; }

    /// Places come in ascending order, and each has the bytes of a key.
    void Enter(const std::uint8_t* bytes, std::size_t place) {
        std::uint32_t& newest = m_newest[HashOf(bytes)];
        m_older[place & m_mask] = newest;
        newest = static_cast<std::uint32_t>(place + 1);
    }
    /// Whether the place and the next one have the same key, which makes one run of both.
    bool IsWithinRun(std::span<const std::uint8_t> bytes, std::size_t place) const {
        return bytes[place] == bytes[place + 1] && place + m_keyBytes < bytes.size() &&
               std::memcmp(&bytes[place], &bytes[place + 1], m_keyBytes) == 0;
    }
    /// The newest place like these bytes plus one, or 0. Another key may have the same hash.
    std::uint32_t Newest(const std::uint8_t* bytes) const { return m_newest[HashOf(bytes)]; }
    /// The next older one, for a place within reach. A place that is not older has been forgotten.
    std::uint32_t Older(std::size_t place) const { return m_older[place & m_mask]; }

  private:
    static constexpr std::size_t MostBits = 18;

    std::size_t HashOf(const std::uint8_t* bytes) const {
        constexpr std::uint64_t Factor = 0x9E3779B185EBCA87U;
        std::uint64_t word = LoadLittleEndian<std::uint32_t>(bytes);
        if (m_keyBytes >= 8) {
            word = LoadLittleEndian<std::uint64_t>(bytes);
            for (std::size_t at = 8; at < m_keyBytes; at += 8) {
                word = std::rotl(word * Factor, 29) ^ LoadLittleEndian<std::uint64_t>(bytes + at);
            }
        }
        return static_cast<std::size_t>((word * Factor) >> m_shift);
    }

    std::size_t m_keyBytes;
    std::size_t m_reach;
    int m_shift;
    std::vector<std::uint32_t> m_newest;  ///< By hash, plus one.
    std::vector<std::uint32_t> m_older;   ///< By place, as far as it is in reach.
    std::size_t m_mask;
};

struct TMatch {
    std::size_t length = 0;  ///< 0: none.
    std::size_t offset = 0;

    /// Bytes that it saves against literals.
    std::ptrdiff_t Saved() const {
        const int cost = (length >= LongMatch ? 1 : 0) + (offset >= FarOffset ? 3 : 2);
        return static_cast<std::ptrdiff_t>(length) - cost;
    }
};

/// The keys, the longest first, and how many places of each chain are tried. A match too short for a long
/// offset is only looked for where a short one reaches.
struct TSearch {
    std::size_t keyBytes;
    std::size_t tries;
    std::size_t reach;
};
constexpr std::array<TSearch, 3> Searches = {
    {{16, 20, OutOfReach}, {8, 8, FarOffset}, {4, 4, FarOffset}}};

class CLz4ePacker {
  public:
    CLz4ePacker(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& packed)
        : m_bytes(bytes), m_packed(packed) {
        for (const TSearch& search : Searches) {
            m_chains.emplace_back(search.keyBytes, bytes.size(), search.reach);
        }
    }

    void Run() {
        std::size_t position = 0;
        TMatch match;
        while (position + MinMatch <= m_bytes.size()) {
            match = match.length == 0 ? FindMatch(position) : match;
            const TMatch later = match.length < LongEnough / 2 ? FindMatch(position + 1) : TMatch{};
            if (match.length == 0 || later.Saved() > match.Saved()) {
                position += later.length == 0 ? 2 : 1;
                match = later;
                continue;
            }
            WriteLiterals(position, std::min(match.length - MinMatch, NibbleMax));
            WriteMatch(match);
            position += match.length;
            m_anchor = position;
            match = {};
        }
        WriteLiterals(m_bytes.size(), 0);
    }

  private:
    std::uint32_t WordAt(std::size_t position) const {
        return LoadLittleEndian<std::uint32_t>(&m_bytes[position]);
    }

    void EnterUpTo(std::size_t position) {
        for (; m_entered < position; ++m_entered) {
            for (CPlaceChains& chains : m_chains) {
                if (m_entered + chains.KeyBytes() <= m_bytes.size() &&
                    !chains.IsWithinRun(m_bytes, m_entered)) {
                    chains.Enter(&m_bytes[m_entered], m_entered);
                }
            }
        }
    }

    TMatch FindMatch(std::size_t position) {
        EnterUpTo(position);
        TMatch best;
        if (position + MinMatch > m_bytes.size()) {
            return best;
        }
        if (position >= CopyStep) {
            Try(position - CopyStep, position, best);  // the rest of a run
        }
        std::size_t enough = OutOfReach;
        for (std::size_t i = 0; i < Searches.size() && best.length < enough; ++i) {
            enough = Searches[i].keyBytes;
            if (position + enough <= m_bytes.size()) {
                Search(m_chains[i], Searches[i].tries, position, best);
            }
        }
        return best;
    }

    void Search(const CPlaceChains& chains, std::size_t tries, std::size_t position,
                TMatch& best) const {
        std::size_t anchor = position;
        while (anchor - position < LongEnough && chains.IsWithinRun(m_bytes, anchor)) {
            ++anchor;
        }
        const std::size_t enough = std::min(m_bytes.size() - position, LongEnough);
        std::size_t before = anchor;
        for (std::uint32_t next = chains.Newest(&m_bytes[anchor]); next != 0 && tries > 0;
             --tries) {
            const std::size_t place = next - 1U;
            if (place >= before || anchor - place >= chains.Reach() || best.length >= enough) {
                return;
            }
            before = place;
            next = chains.Older(place);
            if (place >= anchor - position) {
                Try(place - (anchor - position), position, best);
            }
        }
    }

    /// The match of the position with an earlier one, if it is better.
    void Try(std::size_t earlier, std::size_t position, TMatch& best) const {
        const std::size_t offset = position - earlier;
        const std::size_t rest = m_bytes.size() - position;
        // Most fall here: to be longer than the best so far, it must have the same four bytes where that one ends.
        const std::size_t last = best.length == 0 ? 0 : best.length + 1 - MinMatch;
        if (best.length == rest || WordAt(earlier + last) != WordAt(position + last) ||
            offset < MinOffset || WordAt(earlier) != WordAt(position)) {
            return;
        }
        const std::size_t most = offset < CopyStep ? std::min(offset, rest) : rest;
        const std::size_t length = LengthOf(earlier, position, most);
        if (length > best.length && (offset < FarOffset || length >= LongMatch)) {
            best = {length, offset};
        }
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
    std::vector<CPlaceChains> m_chains;
    std::size_t m_entered = 0;  ///< First position that is in no chain yet.
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
