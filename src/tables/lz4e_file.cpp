// Files of whole packed tables. Unpacking is base/lz4_block.h's; what is checked here are sizes.

#include <array>
#include <cstring>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/file_fault_texts.h"
#include "base/filled_text.h"
#include "base/little_endian.h"
#include "base/lz4_block.h"
#include "platform/atomic_file.h"
#include "platform/random_access_file.h"

#include "tables/lz4e_stream.h"
#include "tables/table_file_texts.h"

namespace tarnwick {
namespace {

/// A byte of a packed stream is at best a length byte.
constexpr std::uint64_t BestRatio = 255;

[[noreturn]] void ThrowDamaged(const std::string& name) {
    throw ChessException(FilledText(TextDamagedTableFile, {name}));
}

/// The sequences of a packed file, from front to back.
class CSequenceSource final : public TByteSource {
  public:
    CSequenceSource(const CRandomAccessFile& file, std::uint64_t at, std::uint64_t end,
                    std::string name)
        : m_file(file), m_at(at), m_end(end), m_name(std::move(name)) {}

    std::size_t Read(std::span<std::uint8_t> bytes) override {
        const auto count =
            static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), m_end - m_at));
        if (!m_file.ReadAt(m_at, bytes.first(count))) {
            throw ChessException(FaultInFile(TextErrorReadingFile, m_name, m_at));
        }
        m_at += count;
        return count;
    }

  private:
    const CRandomAccessFile& m_file;
    std::uint64_t m_at;
    std::uint64_t m_end;
    std::string m_name;
};

struct TPackedExtent {
    TLz4Head head;
    std::uint64_t end = 0;  ///< Where the sequences end in the file.
};

/// What the head says, if it can be true.
TPackedExtent ReadExtent(const CRandomAccessFile& file, const std::string& name,
                         std::uint64_t expectedSize) {
    std::array<std::uint8_t, Lz4HeadBytes> start{};
    const std::size_t known =
        static_cast<std::size_t>(std::min<std::uint64_t>(start.size(), file.Size()));
    const auto bytes = std::span(start).first(known);
    if (!file.ReadAt(0, bytes)) {
        throw ChessException(FaultInFile(TextErrorReadingFile, name, 0));
    }
    const auto head = ParseLz4Head(bytes);
    if (!head) {
        ThrowDamaged(name);
    }
    TPackedExtent extent = {.head = *head, .end = file.Size()};
    if (head->form == TLz4Form::LongOffsets) {
        extent.end = LoadLittleEndian<std::uint32_t>(&start[8]);
    }
    if (extent.end < head->dataOffset || extent.end > file.Size() ||
        expectedSize / BestRatio > extent.end) {
        ThrowDamaged(name);
    }
    const std::uint64_t size =
        head->bSizeModulo32 ? static_cast<std::uint32_t>(expectedSize) : expectedSize;
    if (head->unpackedSize != size) {
        throw ChessException(
            FilledText(TextTableOfOtherSize,
                       {name, std::to_string(head->unpackedSize), std::to_string(expectedSize)}));
    }
    return extent;
}

}  // namespace

void WriteLz4eFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
    const std::vector<std::uint8_t> packed = PackLz4eStream(bytes);
    if (packed.empty()) {
        throw ChessException(FilledText(TextTableOfOtherSize,
                                        {ToValidUtf8(path.string()), std::to_string(bytes.size()),
                                         std::to_string(MostLz4eBytes)}));
    }
    SaveFileAtomically(path, {reinterpret_cast<const char*>(packed.data()), packed.size()});
}

std::vector<std::uint8_t> ReadLz4eFile(const std::filesystem::path& path,
                                       std::uint64_t expectedSize) {
    const std::string name = ToValidUtf8(path.string());
    const CRandomAccessFile file(path);
    if (!file.IsOpen()) {
        throw ChessException(UserText(TextCannotOpenFile) + name);
    }
    const TPackedExtent extent = ReadExtent(file, name, expectedSize);
    CSequenceSource source(file, extent.head.dataOffset, extent.end, name);
    CLz4Unpacker unpacker(source, extent.head, name);
    std::vector<std::uint8_t> table(expectedSize);
    if (ReadFully(unpacker, table) < table.size()) {
        ThrowDamaged(name);
    }
    std::array<std::uint8_t, 1> further{};
    if (unpacker.Read(further) != 0) {
        ThrowDamaged(name);  // only where the head tells no more than 32 bits of the size
    }
    return table;
}

}  // namespace tarnwick
