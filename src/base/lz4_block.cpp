// Packing is greedy: at each place the last occurrence of the same four bytes is looked up, and if there is
// one within reach, the match is taken as long as it goes. Looking places up
// by eight bytes instead of four makes saved boards a quarter smaller, in the same time: four bytes of
// empty fields stand everywhere, and the match found first is then a short one.

#include "base/lz4_block.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstring>

#include "base/chess_exception.h"
#include "base/file_fault_texts.h"
#include "base/little_endian.h"

namespace tarnwick {
namespace {

constexpr std::size_t MinMatch = 4;
constexpr std::size_t FarthestShortOffset = 0xFFFF;
constexpr std::size_t FarthestLongOffset = 0xFFFFFF;
constexpr std::size_t NibbleMax = 15;  // a nibble that says "more length bytes follow"

// The public format promises its readers that no match starts within the last 12 bytes or covers one of
// the last 5: fast readers copy more than they need.
constexpr std::size_t LastMatchStart = 12;
constexpr std::size_t LastLiterals = 5;

constexpr std::size_t PieceSize = 256 * 1024;
/// Packed bytes are read in these pieces: a small file should not cost a large buffer.
constexpr std::size_t InputPiece = 64 * 1024;
constexpr int RecentBits = 15;
constexpr std::size_t None = static_cast<std::size_t>(-1);
/// The longer nothing repeats, the larger the steps, up to this one: bytes that cannot be packed pass fast.
constexpr std::size_t LargestStep = 8;
/// Literals are held until a match comes. After so many of them any match will do.
constexpr std::size_t LongRun = 1U << 20;

/// What a fast copy may write, and read, beyond its end.
constexpr std::size_t Slack = 32;

template <typename TWord>
TWord WordAt(const std::uint8_t* bytes) {
    TWord value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// Where the bytes' last place is kept: by eight of them, although four make a match, because what
/// repeats eight bytes mostly repeats more; after a long run of literals by four, to end the run.
std::size_t HashOf(const std::uint8_t* bytes, bool bLongRun) {
    const std::uint64_t word = WordAt<std::uint64_t>(bytes) << (bLongRun ? 32 : 0);
    return (word * 0x9E3779B185EBCA87U) >> (64 - RecentBits);
}

void Copy32(std::uint8_t* to, const std::uint8_t* from) {
    std::memcpy(to, from, 16);
    std::memcpy(to + 16, from + 16, 16);
}

}  // namespace

CLz4Packer::CLz4Packer(TByteSink sink)
    : m_sink(std::move(sink)), m_recent(std::size_t{1} << RecentBits) {}

void CLz4Packer::Append(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto piece = bytes.first(std::min(bytes.size(), PieceSize));
        m_data.insert(m_data.end(), piece.begin(), piece.end());
        bytes = bytes.subspan(piece.size());
        if (m_data.size() - m_next >= PieceSize) {
            FindMatches();
            ForgetOldBytes();
            HandOut();
        }
    }
}

void CLz4Packer::Finish() {
    FindMatches();
    WriteLiterals(m_data.size(), 0);
    HandOut();
}

/// Packs all but the last bytes, which wait for what follows them.
void CLz4Packer::FindMatches() {
    while (m_next + LastMatchStart <= m_data.size()) {
        std::size_t earlier = TakeCandidate(m_next);
        if (earlier == None) {
            const std::size_t run = m_next - m_anchor;
            m_next += run > LongRun ? 1 : std::min(1 + (run >> 7), LargestStep);
            continue;
        }
        std::size_t position = m_next;
        std::size_t length = MatchLength(earlier, position);
        while (position > m_anchor && earlier > 0 && m_data[position - 1] == m_data[earlier - 1]) {
            --position;
            --earlier;
            ++length;
        }
        WriteMatch(earlier, position, length);
        if (m_next + LastMatchStart <= m_data.size()) {
            TakeCandidate(m_next - 2);  // a place inside the match, so that its end is found again
        }
    }
}

/// The last place within reach with the same four bytes, or None. This place takes its turn.
std::size_t CLz4Packer::TakeCandidate(std::size_t position) {
    const std::uint8_t* const bytes = &m_data[position];
    const bool bLongRun = position - m_anchor > LongRun;
    std::uint32_t& recent = m_recent[HashOf(bytes, bLongRun)];
    const std::size_t earlier = recent == 0 ? None : recent - 1;
    recent = static_cast<std::uint32_t>(position + 1);
    const bool bFits = earlier != None && position - earlier <= FarthestShortOffset &&
                       WordAt<std::uint32_t>(&m_data[earlier]) == WordAt<std::uint32_t>(bytes);
    return bFits ? earlier : None;
}

std::size_t CLz4Packer::MatchLength(std::size_t earlier, std::size_t position) const {
    const std::size_t end = m_data.size() - LastLiterals;
    std::size_t length = MinMatch;
    while (position + length + 8 <= end) {
        const std::uint64_t difference = WordAt<std::uint64_t>(&m_data[position + length]) ^
                                         WordAt<std::uint64_t>(&m_data[earlier + length]);
        if (difference != 0) {
            return length + static_cast<std::size_t>(std::countr_zero(difference)) / 8;
        }
        length += 8;
    }
    while (position + length < end && m_data[position + length] == m_data[earlier + length]) {
        ++length;
    }
    return length;
}

void CLz4Packer::WriteMatch(std::size_t earlier, std::size_t position, std::size_t length) {
    const std::size_t code = length - MinMatch;
    WriteLiterals(position, std::min(code, NibbleMax));
    std::array<std::uint8_t, 2> offset{};
    StoreLittleEndian(offset.data(), static_cast<std::uint16_t>(position - earlier));
    m_packed.insert(m_packed.end(), offset.begin(), offset.end());
    if (code >= NibbleMax) {
        WriteLength(code - NibbleMax);
    }
    m_next = m_anchor = position + length;
}

/// The token, and the literals from the anchor up to `end`.
void CLz4Packer::WriteLiterals(std::size_t end, std::size_t matchCode) {
    const std::size_t count = end - m_anchor;
    m_packed.push_back(static_cast<std::uint8_t>((std::min(count, NibbleMax) << 4) | matchCode));
    if (count >= NibbleMax) {
        WriteLength(count - NibbleMax);
    }
    const auto data = m_data.begin();
    m_packed.insert(m_packed.end(), data + static_cast<std::ptrdiff_t>(m_anchor),
                    data + static_cast<std::ptrdiff_t>(end));
}

void CLz4Packer::WriteLength(std::size_t rest) {
    m_packed.insert(m_packed.end(), rest / 255, 255);
    m_packed.push_back(static_cast<std::uint8_t>(rest % 255));
}

/// Drops what no offset reaches any more, and shifts all places by as much.
void CLz4Packer::ForgetOldBytes() {
    const std::size_t inReach = m_next - std::min(m_next, FarthestShortOffset);
    const std::size_t count = std::min(m_anchor, inReach);
    m_data.erase(m_data.begin(), m_data.begin() + static_cast<std::ptrdiff_t>(count));
    m_anchor -= count;
    m_next -= count;
    for (std::uint32_t& recent : m_recent) {
        recent = recent > count ? recent - static_cast<std::uint32_t>(count) : 0;
    }
}

void CLz4Packer::HandOut() {
    m_sink(m_packed);
    m_packed.clear();
}

// --- Heads ---

std::optional<TLz4Head> ParseLz4Head(std::span<const std::uint8_t> start) {
    if (start.size() < Lz4WrittenHeadBytes || std::memcmp(start.data(), "LZ4", 3) != 0) {
        return std::nullopt;
    }
    TLz4Head head;
    head.unpackedSize = LoadLittleEndian<std::uint32_t>(&start[4]);
    head.dataOffset = Lz4WrittenHeadBytes;
    if (start[3] == 'e') {
        head.form = TLz4Form::LongOffsets;
    }
    if (start[3] == '2') {
        // For sizes beyond 32 bits. The size stands at 12, and two layouts are met: four bytes and the
        // data from 16 on, or eight bytes and the data from 20 on. The first sequence tells: it has
        // literals, as there is nothing to repeat yet, so its token is 0x10 or more; the high half of
        // a size is not.
        head.unpackedSize = LoadLittleEndian<std::uint32_t>(&start[12]);
        head.bSizeModulo32 = true;
        if (start.size() >= Lz4HeadBytes && start[16] < 0x10) {
            head.unpackedSize = LoadLittleEndian<std::uint64_t>(&start[12]);
            head.bSizeModulo32 = false;
            head.dataOffset = 20;
        }
    }
    return head;
}

std::array<std::uint8_t, Lz4WrittenHeadBytes> FormatLz4Head(std::uint32_t unpackedSize) {
    std::array<std::uint8_t, Lz4WrittenHeadBytes> head{'L', 'Z', '4', ' '};
    StoreLittleEndian(&head[4], unpackedSize);
    return head;
}

// --- Unpacking ---

CLz4Unpacker::CLz4Unpacker(TByteSource& source, const TLz4Head& head, std::string name)
    : m_source(source),
      m_head(head),
      m_name(std::move(name)),
      m_window(1 + (head.form == TLz4Form::Block ? FarthestShortOffset : FarthestLongOffset)),
      m_input(InputPiece + Slack),
      m_inputOffset(head.dataOffset),
      m_output(PieceSize / 8) {}

std::size_t CLz4Unpacker::Read(std::span<std::uint8_t> bytes) {
    while (m_outputAt == m_outputEnd && m_stage < TStage::Ended) {
        Unpack();
    }
    const std::size_t count = std::min(bytes.size(), m_outputEnd - m_outputAt);
    if (count == 0 && m_sourceFault) {
        std::rethrow_exception(m_sourceFault);
    }
    if (count == 0 && m_stage == TStage::Damaged) {
        throw ChessException(FaultInFile(TextDamagedPackedData, m_name, m_inputOffset + m_inputAt));
    }
    std::copy_n(m_output.begin() + static_cast<std::ptrdiff_t>(m_outputAt), count, bytes.begin());
    m_outputAt += count;
    return count;
}

/// Goes on until the output is full or the stream at its end. All that was unpacked has been read.
void CLz4Unpacker::Unpack() {
    if (m_outputEnd + Slack >= m_output.size()) {
        ForgetOldBytes();
    }
    const std::size_t start = m_outputEnd;
    while (m_outputEnd < m_output.size() - Slack && m_stage < TStage::Ended) {
        switch (m_stage) {
            case TStage::Token:
                UnpackShortSequences();
                ReadToken();
                break;
            case TStage::Literals:
                CopyLiterals();
                break;
            case TStage::Offset:
                ReadOffset();
                break;
            default:
                CopyMatch();
                break;
        }
    }
    m_unpacked += m_outputEnd - start;
    CheckSize();
}

/// Makes room. A short stream never needs the whole window, so it is given out bit by bit.
void CLz4Unpacker::ForgetOldBytes() {
    const std::size_t fullSize = m_window + std::max(m_window, PieceSize) + Slack;
    if (m_output.size() < fullSize) {
        m_output.resize(std::min(2 * m_output.size(), fullSize));
        return;
    }
    const std::size_t kept = std::min(m_outputEnd, m_window);
    std::memmove(m_output.data(), m_output.data() + (m_outputEnd - kept), kept);
    m_outputAt = m_outputEnd = kept;
}

/// Compares what came with what the head promised: more than that is handed to nobody.
void CLz4Unpacker::CheckSize() {
    if (m_head.bSizeModulo32) {
        if (m_stage == TStage::Ended &&
            static_cast<std::uint32_t>(m_unpacked) != m_head.unpackedSize) {
            m_stage = TStage::Damaged;
        }
        return;
    }
    if (m_unpacked > m_head.unpackedSize) {
        m_outputEnd -= static_cast<std::size_t>(m_unpacked - m_head.unpackedSize);
        m_unpacked = m_head.unpackedSize;
        m_stage = TStage::Damaged;
    } else if (m_stage == TStage::Ended && m_unpacked < m_head.unpackedSize) {
        m_stage = TStage::Damaged;
    }
}

/// The bulk of all work: sequences whose lengths stand in their tokens, while neither input nor output is
/// near its end. Stops before the first sequence that is anything else, or wrong.
void CLz4Unpacker::UnpackShortSequences() {
    constexpr std::size_t MostInput = 1 + NibbleMax + 2;
    constexpr std::size_t MostOutput = 2 * Slack;
    while (m_inputEnd - m_inputAt >= MostInput &&
           m_output.size() - m_outputEnd >= MostOutput + Slack) {
        const std::uint8_t* const input = &m_input[m_inputAt];
        const std::size_t literals = input[0] >> 4;
        const std::size_t match = input[0] & NibbleMax;
        const auto offset = LoadLittleEndian<std::uint16_t>(input + 1 + literals);
        // An offset below 16 needs a careful copy, and 0 is no offset.
        if (literals == NibbleMax || match == NibbleMax || offset < 16 ||
            offset > m_outputEnd + literals) {
            return;
        }
        std::uint8_t* const to = &m_output[m_outputEnd];
        std::memcpy(to, input + 1, 16);
        Copy32(to + literals, to + literals - offset);
        m_inputAt += 1 + literals + 2;
        m_outputEnd += literals + match + MinMatch;
    }
}

void CLz4Unpacker::ReadToken() {
    const std::optional<std::uint8_t> token = NextByte();
    if (!token) {
        // Only a stream of nothing may lack its last literals.
        m_stage = m_inputOffset + m_inputAt == m_head.dataOffset ? TStage::Ended : TStage::Damaged;
        return;
    }
    m_literals = *token >> 4;
    m_match = *token & NibbleMax;
    const bool bWhole = m_literals < NibbleMax || AddLengthBytes(m_literals);
    m_stage = bWhole ? TStage::Literals : TStage::Damaged;
}

/// Copies as much of the run as there is room and input.
void CLz4Unpacker::CopyLiterals() {
    if (m_literals == 0) {
        m_stage = FillInput() ? TStage::Offset : TStage::Ended;
        return;
    }
    if (!FillInput()) {
        m_stage = TStage::Damaged;
        return;
    }
    const std::size_t room = m_output.size() - Slack - m_outputEnd;
    const auto count = static_cast<std::size_t>(
        std::min<std::uint64_t>(m_literals, std::min(room, m_inputEnd - m_inputAt)));
    if (count <= Slack) {
        Copy32(&m_output[m_outputEnd], &m_input[m_inputAt]);
    } else {
        std::memcpy(&m_output[m_outputEnd], &m_input[m_inputAt], count);
    }
    m_inputAt += count;
    m_outputEnd += count;
    m_literals -= count;
}

/// The offset, and the rest of the match's length. The public format has the offset first; long offsets
/// come behind a byte of seven length bits and the bit of the third offset byte.
void CLz4Unpacker::ReadOffset() {
    const bool bLongLength = m_match == NibbleMax;
    const bool bLongOffsets = m_head.form == TLz4Form::LongOffsets;
    int offsetBytes = 2;
    bool bWhole = true;
    if (bLongOffsets && bLongLength) {
        const std::uint8_t more = NextByte().value_or(0);
        offsetBytes = (more & 0x80) != 0 ? 3 : 2;
        m_match += more & 0x7F;
        bWhole = (more & 0x7F) < 0x7F || AddLengthBytes(m_match);
    }
    m_offset = 0;
    for (int i = 0; i < offsetBytes; ++i) {
        const std::optional<std::uint8_t> byte = NextByte();
        bWhole = bWhole && byte.has_value();
        m_offset |= std::size_t{byte.value_or(0)} << (8 * i);
    }
    if (!bLongOffsets && bLongLength) {
        bWhole = bWhole && AddLengthBytes(m_match);
    }
    m_match += MinMatch;
    const bool bInReach = m_offset != 0 && m_offset <= m_outputEnd;
    m_stage = bWhole && bInReach ? TStage::Match : TStage::Damaged;
}

/// Copies as much of the match as there is room. A match may overlap itself: it then repeats its offset's
/// bytes, and what has been copied serves as source for twice as much.
void CLz4Unpacker::CopyMatch() {
    const std::size_t room = m_output.size() - Slack - m_outputEnd;
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(m_match, room));
    std::uint8_t* const to = &m_output[m_outputEnd];
    const std::uint8_t* const from = to - m_offset;
    if (count <= Slack && m_offset >= 16) {
        Copy32(to, from);
    } else {
        std::size_t repeated = m_offset;
        for (std::size_t done = 0; done < count;) {
            const std::size_t piece = std::min(count - done, repeated);
            std::memcpy(to + done, from, piece);
            done += piece;
            repeated += piece;
        }
    }
    m_outputEnd += count;
    m_match -= count;
    if (m_match == 0) {
        m_stage = TStage::Token;
    }
}

/// Whether there is another byte of input. A disk that fails is the end of it; Read tells then.
bool CLz4Unpacker::FillInput() {
    if (m_inputAt == m_inputEnd) {
        m_inputOffset += m_inputEnd;
        m_inputAt = 0;
        m_inputEnd = 0;
        try {
            m_inputEnd = m_source.Read(std::span(m_input).first(InputPiece));
        } catch (const ChessException&) {
            m_sourceFault = std::current_exception();
        }
    }
    return m_inputAt < m_inputEnd;
}

std::optional<std::uint8_t> CLz4Unpacker::NextByte() {
    if (!FillInput()) {
        return std::nullopt;
    }
    return m_input[m_inputAt++];
}

/// Adds bytes to the length up to the first one below 255. False if the input ends before that.
bool CLz4Unpacker::AddLengthBytes(std::uint64_t& length) {
    std::optional<std::uint8_t> byte;
    do {
        byte = NextByte();
        length += byte.value_or(0);
    } while (byte == 255);
    return byte.has_value();
}

}  // namespace tarnwick
