#include "tables/random_access_lzw_buffer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"
#include "base/little_endian.h"
#include "platform/atomic_file.h"

#include "tables/lzw_pack.h"
#include "tables/table_file_texts.h"

namespace tarnwick::RandomAccessLZWBuffer {

// The parameters of all members, which would else hide what each says.
#define TARNWICK_BUFFER_TEMPLATE                                                    \
    template <typename TElement, std::uint32_t BlockSize, int Reserved1, int Slots, \
              int SeveralThreads, int Reserved2>
#define TARNWICK_BUFFER \
    CRandomAccessLZWBuffer<TElement, BlockSize, Reserved1, Slots, SeveralThreads, Reserved2>

TARNWICK_BUFFER_TEMPLATE
TARNWICK_BUFFER::CRandomAccessLZWBuffer(bool bPlainDictionary, TUserDialog* pDialog)
    : m_bPlainDictionary(bPlainDictionary),
      m_pDialog(pDialog),
      m_slots(Slots, SeveralThreads != 0) {}

// --- Loading ---

TARNWICK_BUFFER_TEMPLATE
bool TARNWICK_BUFFER::LoadFromFile(const std::filesystem::path& path, bool bDiskBased) {
    ClearUpdates();
    Clear();
    try {
        if (Load(path, bDiskBased)) {
            return true;
        }
    } catch (const std::exception&) {
        // No memory is a reason for having no table as any other.
    }
    Clear();
    return false;
}

TARNWICK_BUFFER_TEMPLATE
bool TARNWICK_BUFFER::Load(const std::filesystem::path& path, bool bDiskBased) {
    CRandomAccessFile file(path);
    std::array<std::uint8_t, PackedHeaderBytes> head{};
    if (!file.ReadAt(0, head)) {
        return false;
    }
    const auto header = ParsePackedHeader(head, file.Size());
    if (!header || header->blockSize != BlockSize ||
        header->bPlainDictionary != m_bPlainDictionary) {
        return false;
    }
    if (!bDiskBased) {
        try {
            m_packed.resize(header->totalSize + TDecoder::Slack);
        } catch (const std::exception&) {  // bad_alloc, or a length that no vector has
            bDiskBased = true;
        }
    }
    const std::size_t bytes = bDiskBased ? header->BlocksAt() : header->totalSize;
    m_packed.resize(bytes + TDecoder::Slack);
    const auto offsets = std::span(m_packed).subspan(PackedHeaderBytes);
    if (!file.ReadAt(0, std::span(m_packed).first(bytes)) ||
        !AreBlockOffsetsSound(*header, offsets)) {
        return false;
    }
    m_header = *header;
    m_userValue = header->userValue;
    m_name = ToValidUtf8(path.string());
    m_file = bDiskBased ? std::move(file) : CRandomAccessFile();
    return true;
}

TARNWICK_BUFFER_TEMPLATE
void TARNWICK_BUFFER::Clear() {
    m_header = {};
    m_header.bPlainDictionary = m_bPlainDictionary;
    m_packed = {};
    m_file = {};
    for (std::unique_ptr<TWork>& pWork : m_works) {
        pWork.reset();
    }
}

// --- Reading ---

TARNWICK_BUFFER_TEMPLATE
std::uint16_t TARNWICK_BUFFER::GetValue(std::uint64_t index, bool bWholeBlock) {
    if (index >= m_header.elementCount) {
        throw ChessException(FilledText(
            TextIndexBeyondTable, {std::to_string(index), std::to_string(m_header.elementCount)}));
    }
    const auto block = static_cast<std::uint32_t>(index / BlockSize);
    const auto place = static_cast<std::uint32_t>(index % BlockSize);
    const CBlockSlotUse use(m_slots, block);
    TWork& work = WorkOf(use.Number());
    if ((work.block != block && !StartBlock(work, block)) ||
        !work.decoder.DecodeTo(bWholeBlock ? BlockSize : place + 1)) {
        work.block = NoBlock;
        ThrowDamaged(block);
    }
    return work.decoder.Decoded()[place];
}

TARNWICK_BUFFER_TEMPLATE
auto TARNWICK_BUFFER::MakeWork() const -> std::unique_ptr<TWork> {
    auto pWork = std::make_unique<TWork>(m_bPlainDictionary);
    pWork->packed.resize(IsDiskBased() ? TDecoder::MostPackedBytes + TDecoder::Slack : 0);
    return pWork;
}

TARNWICK_BUFFER_TEMPLATE
auto TARNWICK_BUFFER::WorkOf(std::size_t slot) -> TWork& {
    if (m_works[slot] == nullptr) {
        try {
            m_works[slot] = MakeWork();
        } catch (const std::bad_alloc&) {
            throw ChessException(UserText(TextNotEnoughMemory));
        }
    }
    return *m_works[slot];
}

TARNWICK_BUFFER_TEMPLATE
bool TARNWICK_BUFFER::StartBlock(TWork& work, std::uint32_t block) const {
    work.block = NoBlock;
    const std::uint8_t* const offset = &m_packed[PackedHeaderBytes + std::size_t{block} * 8];
    const auto start = LoadLittleEndian<std::uint64_t>(offset);
    const std::uint64_t end = block + 1 < m_header.BlockCount()
                                  ? LoadLittleEndian<std::uint64_t>(offset + 8)
                                  : m_header.totalSize;
    const std::size_t size = std::min<std::uint64_t>(end - start, TDecoder::MostPackedBytes);
    std::span<const std::uint8_t> packed;
    if (m_file.IsOpen()) {
        const std::span<std::uint8_t> bytes = std::span(work.packed).first(size);
        if (!m_file.ReadAt(start, bytes)) {
            return false;
        }
        packed = bytes;
    } else {
        packed = std::span(m_packed).subspan(start, size);
    }
    work.decoder.Start(packed, m_header.ElementsOfBlock(block));
    work.block = block;
    return true;
}

TARNWICK_BUFFER_TEMPLATE
std::span<const TElement> TARNWICK_BUFFER::WholeBlock(TWork& work, std::uint32_t block) const {
    if (!StartBlock(work, block) || !work.decoder.DecodeTo(BlockSize)) {
        ThrowDamaged(block);
    }
    return work.decoder.Decoded();
}

TARNWICK_BUFFER_TEMPLATE
void TARNWICK_BUFFER::ThrowDamaged(std::uint32_t block) const {
    throw ChessException(FilledText(TextDamagedTableBlock, {m_name, std::to_string(block)}));
}

TARNWICK_BUFFER_TEMPLATE
bool TARNWICK_BUFFER::Update(std::uint64_t, std::uint16_t) {
    throw ChessException("Call to Update for non-update'able instance of CRandomAccessLZWBuffer.");
}

TARNWICK_BUFFER_TEMPLATE
TUnpackedTable TARNWICK_BUFFER::DecompressAll() {
    const std::uint64_t bytes = m_header.elementCount * sizeof(TElement);
    try {
        // Not cleared: the memory is touched block by block, so a damaged file costs what it has of whole blocks.
        std::unique_ptr<std::uint8_t[]> table(new std::uint8_t[bytes]);
        const std::unique_ptr<TWork> pWork = MakeWork();
        std::uint8_t* to = table.get();
        for (std::uint32_t block = 0; block < m_header.BlockCount(); ++block) {
            for (const TElement element : WholeBlock(*pWork, block)) {
                StoreLittleEndian(to, element);
                to += sizeof(TElement);
            }
        }
        return {std::move(table), bytes};
    } catch (const std::bad_alloc&) {
        return {};
    } catch (const ChessException&) {
        if (m_pDialog != nullptr) {
            m_pDialog->Tell(UserText(TextErrorUnpackingLzw));
        }
        return {};
    }
}

TARNWICK_BUFFER_TEMPLATE
std::uint16_t TARNWICK_BUFFER::FindMaxValue(std::vector<std::uint64_t>& indexes,
                                            std::size_t limit) {
    const std::unique_ptr<TWork> pWork = MakeWork();
    indexes.clear();
    TElement greatest = 0;
    std::uint64_t index = 0;
    for (std::uint32_t block = 0; block < m_header.BlockCount(); ++block) {
        for (const TElement element : WholeBlock(*pWork, block)) {
            const std::uint64_t place = index++;
            if (element < greatest || element == MarkOfUnknown<TElement> || place == 0) {
                continue;
            }
            if (element > greatest) {
                greatest = element;
                indexes.clear();
            }
            if (indexes.size() < limit) {
                indexes.push_back(place);
            }
        }
    }
    return greatest;
}

// --- Packing ---

TARNWICK_BUFFER_TEMPLATE
bool TARNWICK_BUFFER::Pack(std::uint64_t elementCount, const void* pSource, bool bShrink,
                           std::uint32_t minRoom, std::uint32_t reserve, std::uint32_t repeats) {
    Clear();
    const TPackJob job = {
        .source = {static_cast<const std::uint8_t*>(pSource), elementCount * sizeof(TElement)},
        .repeats = repeats,
        .minRoom = minRoom,
        .reserve = reserve};
    try {
        if (PackTable<TElement, BlockSize>(job, m_header, m_packed)) {
            m_packed.resize(m_packed.size() + TDecoder::Slack);
            if (bShrink) {
                m_packed.shrink_to_fit();
            }
            return true;
        }
    } catch (const std::bad_alloc&) {
        // As a table that cannot be packed.
    }
    Clear();
    return false;
}

/// Writing that throws is writing that failed, and the user hears why.
TARNWICK_BUFFER_TEMPLATE
template <typename TBody>
bool TARNWICK_BUFFER::Write(TBody body) const {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const ChessException& exception) {
        if (m_pDialog != nullptr) {
            m_pDialog->Tell(exception.what());
        }
        return false;
    }
}

TARNWICK_BUFFER_TEMPLATE
bool TARNWICK_BUFFER::SaveToFile(const std::filesystem::path& path, bool bPrepare,
                                 std::uint16_t flags) {
    if (bPrepare) {
        PrepareSave();
    }
    if (m_packed.empty() || IsDiskBased()) {
        return false;
    }
    m_header.flags = flags;
    m_header.userValue = m_userValue;
    FormatPackedHeader(m_header, m_packed.data());
    return Write([&] {
        SaveFileAtomically(path,
                           {reinterpret_cast<const char*>(m_packed.data()), m_header.totalSize});
        return true;
    });
}

TARNWICK_BUFFER_TEMPLATE
bool TARNWICK_BUFFER::PackFile(const std::filesystem::path& path, const CRandomAccessFile& source,
                               std::uint64_t elementCount, std::uint16_t flags) {
    TPackedTableHeader header;
    header.bPlainDictionary = m_bPlainDictionary;
    header.elementCount = elementCount;
    header.userValue = m_userValue;
    header.flags = flags;
    return Write([&] { return PackTableFile<TElement, BlockSize>(path, source, header); });
}

TARNWICK_BUFFER_TEMPLATE
std::uint64_t TARNWICK_BUFFER::GetPackedSize() const {
    return m_packed.empty() ? 8 : m_header.totalSize + 8;
}

TARNWICK_BUFFER_TEMPLATE
std::uint64_t TARNWICK_BUFFER::GetMemoryUsed() const {
    return IsDiskBased() ? m_header.BlockCount() * 8 + 40 : GetPackedSize();
}

#undef TARNWICK_BUFFER_TEMPLATE
#undef TARNWICK_BUFFER

template class CRandomAccessLZWBuffer<std::uint8_t, 0x2000, 0, 8, 1, 0>;
template class CRandomAccessLZWBuffer<std::uint16_t, 0x2000, 0, 8, 1, 0>;
template class CRandomAccessLZWBuffer<std::uint8_t, 0x4000, 0, 8, 1, 0>;
template class CRandomAccessLZWBuffer<std::uint16_t, 0x4000, 0, 8, 1, 0>;
template class CRandomAccessLZWBuffer<std::uint8_t, 0x4000, 0, 1, 0, 0>;
template class CRandomAccessLZWBuffer<std::uint16_t, 0x4000, 0, 1, 0, 0>;

}  // namespace tarnwick::RandomAccessLZWBuffer
