// Choosing the reader by the file's head.

#include <array>

#include "base/encoding.h"
#include "base/file_fault_texts.h"
#include "base/filled_text.h"

#include "tables/random_access_lzw_buffer.h"
#include "tables/table_file_texts.h"
#include "tables/table_index.h"

namespace tarnwick::RandomAccessLZWBuffer {
namespace {

constexpr std::size_t FewestLettersOfTwoBytes = 4;

template <typename TElement>
std::unique_ptr<CRandomAccessPackedBufferBase> MakeReader(const TPackedTableHeader& header,
                                                          TUserDialog* pDialog) {
    if (header.blockSize == SmallPackedBlock) {
        return std::make_unique<CPackedTableReader<TElement, SmallPackedBlock>>(
            header.bPlainDictionary, pDialog);
    }
    return std::make_unique<CPackedTableReader<TElement, LargePackedBlock>>(header.bPlainDictionary,
                                                                            pDialog);
}

}  // namespace

TOpenedPackedTable OpenPackedTable(const std::filesystem::path& path,
                                   const TPackedTableDemand& demand, TUserDialog* pDialog) {
    const std::string name = ToValidUtf8(path.string());
    TOpenedPackedTable opened;
    const CRandomAccessFile file(path);
    if (!file.IsOpen()) {
        opened.reason = UserText(TextCannotOpenFile) + name;
        return opened;
    }
    opened.reason = FilledText(TextDamagedTableFile, {name});
    std::array<std::uint8_t, PackedHeaderBytes> head{};
    const bool bRead = file.ReadAt(0, head);
    const auto header = ParsePackedHeader(head, bRead ? file.Size() : 0);
    if (!header) {
        return opened;
    }
    if (demand.elementCount != 0 && header->elementCount != demand.elementCount) {
        opened.reason = FilledText(
            TextTableOfOtherSize,
            {name, std::to_string(header->elementCount), std::to_string(demand.elementCount)});
        return opened;
    }
    opened.flags = header->flags;
    const bool bTwoBytes =
        (header->flags & TwoByteElementsFlag) != 0 && demand.letters >= FewestLettersOfTwoBytes;
    opened.pBuffer = bTwoBytes ? MakeReader<std::uint16_t>(*header, pDialog)
                               : MakeReader<std::uint8_t>(*header, pDialog);
    const bool bDiskBased = demand.bDiskBased || header->totalSize > demand.quota / 4;
    if (opened.pBuffer->LoadFromFile(path, bDiskBased)) {
        opened.reason.clear();
    } else {
        opened.pBuffer.reset();
    }
    return opened;
}

std::unique_ptr<CRandomAccessPackedBufferBase> MakePackedTableWriter(std::size_t elementSize,
                                                                     TUserDialog* pDialog) {
    if (elementSize == 2) {
        return std::make_unique<CPackedTableWriter<std::uint16_t>>(true, pDialog);
    }
    return std::make_unique<CPackedTableWriter<std::uint8_t>>(true, pDialog);
}

}  // namespace tarnwick::RandomAccessLZWBuffer
