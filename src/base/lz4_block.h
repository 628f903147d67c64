#pragma once

// Packing in the public LZ4 block format, and unpacking of it and of a variant with longer offsets.
//
// A packed stream is a row of sequences: literal bytes, then a match, which repeats bytes that came up to
// 65535 bytes before. Both directions here work on streams of any length in bounded memory, as the saved
// register of a long job has gigabytes: nothing depends on the size that a file's head claims.
//
//   packing    holds 64 KiB of history and some input. A run of literals is written behind its own
//              length, so the bytes of a run are held until a match ends it. Even in random bytes a match
//              comes by chance every 100 KiB or so, so a few MiB are held at most; only bytes made to
//              have no match would all be held.
//   unpacking  holds the farthest offset and a piece to hand out: at most 320 KiB, or 32 MiB for long
//              offsets, and less for a short stream.
//
// One thread at a time for each object.

#include <array>
#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/byte_source.h"

namespace tarnwick {

using TByteSink = std::function<void(std::span<const std::uint8_t>)>;

/// Turns a stream of bytes into one LZ4 block.
class CLz4Packer {
  public:
    /// The sink gets the packed bytes in pieces. What it throws passes through; the packer is then spoilt.
    explicit CLz4Packer(TByteSink sink);

    void Append(std::span<const std::uint8_t> bytes);
    /// Ends the block. The last call; without it the block is not whole.
    void Finish();

  private:
    void FindMatches();
    std::size_t TakeCandidate(std::size_t position);
    [[nodiscard]] std::size_t MatchLength(std::size_t earlier, std::size_t position) const;
    void WriteMatch(std::size_t earlier, std::size_t position, std::size_t length);
    void WriteLiterals(std::size_t end, std::size_t matchCode);
    void WriteLength(std::size_t rest);
    void ForgetOldBytes();
    void HandOut();

    TByteSink m_sink;
    std::vector<std::uint8_t> m_data;     ///< History, then input that is not yet packed.
    std::size_t m_anchor = 0;             ///< First byte of m_data that is not written yet.
    std::size_t m_next = 0;               ///< Next byte of m_data at which a match is looked for.
    std::vector<std::uint32_t> m_recent;  ///< By hash of four bytes: their last place + 1; 0 none.
    std::vector<std::uint8_t> m_packed;   ///< Output that the sink has not got yet.
};

enum class TLz4Form {
    Block,       ///< The public format: offsets of two bytes.
    LongOffsets  ///< A match of 19 bytes or more may say that its offset has three bytes.
};

/// What the first bytes of a packed file say.
struct TLz4Head {
    TLz4Form form = TLz4Form::Block;
    std::uint64_t unpackedSize = 0;  ///< In bytes; a claim, to be trusted with nothing.
    bool bSizeModulo32 = false;      ///< Only the low 32 bits of the size are known.
    std::uint64_t dataOffset = 0;    ///< Where the sequences start.
};

/// Bytes that ParseLz4Head wants to see, if the file has them.
inline constexpr std::size_t Lz4HeadBytes = 21;
/// Length of the head that FormatLz4Head writes.
inline constexpr std::size_t Lz4WrittenHeadBytes = 16;

/// Reads the head at the start of a file; nothing if the bytes are no such head.
std::optional<TLz4Head> ParseLz4Head(std::span<const std::uint8_t> start);

/// The head of a block: "LZ4 " and the unpacked size.
std::array<std::uint8_t, Lz4WrittenHeadBytes> FormatLz4Head(std::uint32_t unpackedSize);

/// The bytes that were packed, from the sequences behind a head.
class CLz4Unpacker final : public TByteSource {
  public:
    /// The source stands at head.dataOffset and outlives this object; name is its name for messages.
    CLz4Unpacker(TByteSource& source, const TLz4Head& head, std::string name);

    /// Throws "Damaged packed data..." also when the end comes before or behind the head's size.
    std::size_t Read(std::span<std::uint8_t> bytes) override;

  private:
    enum class TStage {
        Token,
        Literals,
        Offset,
        Match,
        Ended,
        Damaged
    };

    void Unpack();
    void ForgetOldBytes();
    void UnpackShortSequences();
    void ReadToken();
    void CopyLiterals();
    void ReadOffset();
    void CopyMatch();
    void CheckSize();
    bool FillInput();
    std::optional<std::uint8_t> NextByte();
    bool AddLengthBytes(std::uint64_t& length);

    TByteSource& m_source;
    TLz4Head m_head;
    std::string m_name;
    std::size_t m_window;  ///< Farthest offset + 1.

    std::vector<std::uint8_t> m_input;
    std::size_t m_inputAt = 0;
    std::size_t m_inputEnd = 0;
    std::uint64_t m_inputOffset;  ///< Offset in the file of m_input[0].
    std::exception_ptr m_sourceFault;

    std::vector<std::uint8_t> m_output;  ///< History, then what Read has not returned yet.
    std::size_t m_outputAt = 0;          ///< First byte that Read has not returned.
    std::size_t m_outputEnd = 0;
    std::uint64_t m_unpacked = 0;  ///< All bytes so far.

    TStage m_stage = TStage::Token;
    std::uint64_t m_literals = 0;  ///< Still to copy in the present sequence.
    std::uint64_t m_match =
        0;  ///< The same for its match; before its offset: the token's low bits.
    std::size_t m_offset = 0;
};

}  // namespace tarnwick
