#include "tables/lzw_pack.h"

#include <algorithm>
#include <limits>

#include "base/little_endian.h"
#include "platform/atomic_file.h"

namespace tarnwick {
namespace {

/// Blocks know nothing of each other, so a file is the same however it is cut; small pieces leave the memory
/// to the tables.
constexpr std::uint64_t BlocksPerPiece = 256;

std::string_view AsText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Elements from a place of the source on, which starts again at its end.
template <typename TElement>
void LoadElements(std::span<const std::uint8_t> source, std::uint64_t at,
                  std::span<TElement> elements) {
    const std::uint64_t count = source.size() / sizeof(TElement);
    for (TElement& element : elements) {
        element = LoadLittleEndian<TElement>(&source[at * sizeof(TElement)]);
        at = at + 1 == count ? 0 : at + 1;
    }
}

/// Where a block stands in the packed bytes.
struct TBlockPlace {
    std::uint64_t at = 0;
    std::uint64_t size = 0;
    std::uint32_t elements = 0;
};

/// Lays the blocks of one table out.
template <typename TElement, std::uint32_t BlockSize>
class CTablePacker {
  public:
    CTablePacker(const TPackJob& job, const TPackedTableHeader& header,
                 std::vector<std::uint8_t>& packed)
        : m_job(job), m_header(header), m_packed(packed), m_encoder(header.bPlainDictionary) {}

    bool Run() {
        const std::uint64_t blocks = m_header.BlockCount();
        m_limit = MostPackedTableBytes<TElement>(blocks, BlockSize, m_job.minRoom);
        for (std::uint64_t block = 0; block < blocks; ++block) {
            StoreLittleEndian<std::uint64_t>(&m_packed[PackedHeaderBytes + block * 8],
                                             m_packed.size());
            if (!AppendBlock(block) || m_packed.size() > m_limit) {
                return false;
            }
        }
        m_packed.resize(std::min(m_limit, m_packed.size() + m_job.reserve));
        return true;
    }

  private:
    bool AppendBlock(std::uint64_t block) {
        const std::uint64_t count = m_job.source.size() / sizeof(TElement);
        const std::uint64_t at = block * BlockSize % count;
        const std::uint32_t elements = m_header.ElementsOfBlock(block);
        if (at == 0 && block > 0 && m_period == 0) {
            m_period = block;
        }
        const std::uint64_t start = m_packed.size();
        const TBlockPlace like = m_period != 0 ? m_places[block % m_period] : TBlockPlace{};
        if (like.elements == elements) {
            m_packed.resize(start + like.size);
            std::copy_n(m_packed.begin() + static_cast<std::ptrdiff_t>(like.at), like.size,
                        m_packed.begin() + static_cast<std::ptrdiff_t>(start));
        } else {
            m_elements.resize(elements);
            LoadElements<TElement>(m_job.source, at, m_elements);
            if (!m_encoder.Append(m_elements, m_packed)) {
                return false;
            }
        }
        m_packed.resize(std::max<std::uint64_t>(m_packed.size(), start + m_job.minRoom));
        if (m_period == 0 && m_job.repeats > 1) {
            m_places.push_back({start, m_packed.size() - start, elements});
        }
        return true;
    }

    const TPackJob& m_job;
    const TPackedTableHeader& m_header;
    std::vector<std::uint8_t>& m_packed;
    CLzwBlockEncoder<TElement, BlockSize> m_encoder;
    std::uint64_t m_limit = 0;
    std::vector<TElement> m_elements;
    std::uint64_t m_period = 0;         ///< Blocks after which all repeats; 0 not known yet.
    std::vector<TBlockPlace> m_places;  ///< Of the blocks before the first repeat.
};

/// The blocks of an unpacked file, read in pieces.
template <typename TElement, std::uint32_t BlockSize>
class CBlockReader {
  public:
    CBlockReader(const CRandomAccessFile& source, const TPackedTableHeader& header)
        : m_source(source), m_header(header) {}

    /// The elements of the block; blocks are asked for in their order. False if the file ends before.
    bool Read(std::uint64_t block, std::vector<TElement>& elements) {
        if (block % BlocksPerPiece == 0) {
            const std::uint64_t at = block * BlockSize;
            const std::uint64_t count =
                std::min(m_header.elementCount - at, BlocksPerPiece * BlockSize);
            m_bytes.resize(count * sizeof(TElement));
            if (!m_source.ReadAt(at * sizeof(TElement), m_bytes)) {
                return false;
            }
        }
        elements.resize(m_header.ElementsOfBlock(block));
        LoadElements<TElement>(m_bytes, block % BlocksPerPiece * BlockSize, elements);
        return true;
    }

  private:
    const CRandomAccessFile& m_source;
    const TPackedTableHeader& m_header;
    std::vector<std::uint8_t> m_bytes;
};

}  // namespace

template <typename TElement>
std::uint64_t MostPackedTableBytes(std::uint64_t blocks, std::uint32_t blockSize,
                                   std::uint32_t minRoom) {
    const std::uint64_t plain = std::uint64_t{blockSize} * sizeof(TElement);
    return (std::max<std::uint64_t>(minRoom, plain) + 8) * blocks + PackedHeaderBytes +
           (blocks + 4) * 8;
}

template <typename TElement, std::uint32_t BlockSize>
bool PackTable(const TPackJob& job, TPackedTableHeader& header, std::vector<std::uint8_t>& packed) {
    const std::uint64_t count = job.source.size() / sizeof(TElement);
    if (job.repeats != 0 && count > std::numeric_limits<std::uint64_t>::max() / job.repeats) {
        return false;
    }
    header.elementCount = count * job.repeats;
    header.blockSize = BlockSize;
    packed.assign(header.BlocksAt(), 0);
    if (!CTablePacker<TElement, BlockSize>(job, header, packed).Run()) {
        return false;
    }
    header.totalSize = packed.size();
    FormatPackedHeader(header, packed.data());
    return true;
}

template <typename TElement, std::uint32_t BlockSize>
bool PackTableFile(const std::filesystem::path& path, const CRandomAccessFile& source,
                   TPackedTableHeader header) {
    header.blockSize = BlockSize;
    if (source.Size() / sizeof(TElement) < header.elementCount) {
        return false;
    }
    std::vector<std::uint8_t> head(header.BlocksAt());
    CAtomicFileWriter writer(path);
    writer.Append(AsText(head));
    header.totalSize = head.size();
    CBlockReader<TElement, BlockSize> reader(source, header);
    CLzwBlockEncoder<TElement, BlockSize> encoder(header.bPlainDictionary);
    std::vector<TElement> elements;
    std::vector<std::uint8_t> packed;
    for (std::uint64_t block = 0; block < header.BlockCount(); ++block) {
        packed.clear();
        if (!reader.Read(block, elements) || !encoder.Append(elements, packed)) {
            return false;
        }
        StoreLittleEndian(&head[PackedHeaderBytes + block * 8], header.totalSize);
        header.totalSize += packed.size();
        writer.Append(AsText(packed));
    }
    FormatPackedHeader(header, head.data());
    writer.Overwrite(0, AsText(head));
    writer.Commit();
    return true;
}

#define TARNWICK_PACK_INSTANCES(ELEMENT, BLOCK)                                   \
    template bool PackTable<ELEMENT, BLOCK>(const TPackJob&, TPackedTableHeader&, \
                                            std::vector<std::uint8_t>&);          \
    template bool PackTableFile<ELEMENT, BLOCK>(const std::filesystem::path&,     \
                                                const CRandomAccessFile&, TPackedTableHeader)

TARNWICK_PACK_INSTANCES(std::uint8_t, 0x2000);
TARNWICK_PACK_INSTANCES(std::uint16_t, 0x2000);
TARNWICK_PACK_INSTANCES(std::uint8_t, 0x4000);
TARNWICK_PACK_INSTANCES(std::uint16_t, 0x4000);

}  // namespace tarnwick
