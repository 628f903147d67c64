// Any bytes as a packed table: it is refused with a reason, or every element is a value or an error, the same from
// memory and from the disk. And any bytes as a table: it comes back as it was.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "base/chess_exception.h"

#include "file_in_memory.h"
#include "tables/lzw_pack.h"
#include "tables/random_access_lzw_buffer.h"

namespace tarnwick {
namespace {

using namespace RandomAccessLZWBuffer;
using TBytes = std::vector<std::uint8_t>;

std::optional<std::uint16_t> ValueAt(CRandomAccessPackedBufferBase& buffer, std::uint64_t index) {
    try {
        return buffer.GetValue(index, false);
    } catch (const ChessException&) {
        return std::nullopt;
    }
}

/// Places all over the table, and two beyond it: an answer that is an exception takes long. Nothing where the head
/// is wrong.
std::vector<std::uint64_t> SomePlaces(std::span<const std::uint8_t> bytes) {
    const auto header = ParsePackedHeader(bytes, bytes.size());
    std::vector<std::uint64_t> places;
    if (header) {
        const std::uint64_t count = header->elementCount;
        for (std::uint64_t place = 0; place < count && places.size() < 24; place += 1 + place / 2) {
            places.push_back(place);
        }
        places.insert(places.end(), {count - 1, count, ~std::uint64_t{0}});
    }
    return places;
}

std::vector<std::optional<std::uint16_t>> SomeValues(std::span<const std::uint64_t> places,
                                                     bool bDiskBased, std::uint64_t& whole) {
    const TPackedTableDemand demand = {
        .letters = 4, .elementCount = 0, .bDiskBased = bDiskBased, .quota = 1 << 30};
    const TOpenedPackedTable opened = OpenPackedTable(CFileInMemory::Path(), demand, nullptr);
    if ((opened.pBuffer == nullptr) == opened.reason.empty()) {
        std::abort();
    }
    std::vector<std::optional<std::uint16_t>> values;
    if (opened.pBuffer == nullptr) {
        return values;
    }
    whole = opened.pBuffer->DecompressAll().second / opened.pBuffer->GetElementSize();
    int faults = 0;
    for (const std::uint64_t place : places) {
        values.push_back(ValueAt(*opened.pBuffer, place));
        if (whole != 0 && values.back().has_value() != (place < whole)) {
            std::abort();
        }
        if (!values.back() && ++faults == 3) {
            break;  // nothing new to see
        }
    }
    return values;
}

void ReadAnything(std::span<const std::uint8_t> bytes) {
    const CFileInMemory file(bytes);
    std::uint64_t fromMemory = 0;
    std::uint64_t fromDisk = 0;
    const std::vector<std::uint64_t> places = SomePlaces(bytes);
    const auto memory = SomeValues(places, false, fromMemory);
    const bool bSame = SomeValues(places, true, fromDisk) == memory && fromDisk == fromMemory;
    if (!bSame) {
        std::abort();
    }
}

/// The bytes as codes of one block.
template <typename TElement>
void DecodeAnything(std::span<const std::uint8_t> bytes, bool bPlain) {
    TBytes packed(bytes.begin(), bytes.end());
    packed.resize(bytes.size() + CLzwBlockDecoder<TElement, LargePackedBlock>::Slack);
    static CLzwBlockDecoder<TElement, LargePackedBlock> decoders[] = {
        CLzwBlockDecoder<TElement, LargePackedBlock>(false),
        CLzwBlockDecoder<TElement, LargePackedBlock>(true)};
    auto& decoder = decoders[bPlain ? 1 : 0];
    decoder.Start(std::span(packed).first(bytes.size()), LargePackedBlock);
    if (decoder.DecodeTo(LargePackedBlock) && decoder.Decoded().size() != LargePackedBlock) {
        std::abort();
    }
}

template <typename TElement>
void PackAndUnpack(std::span<const std::uint8_t> bytes, bool bPlain) {
    std::vector<TElement> table;
    for (const std::uint8_t byte : bytes) {
        table.push_back(byte == 255 && !bPlain ? MarkOfUnknown<TElement>
                                               : static_cast<TElement>(byte * 4U % TwoByteValues));
    }
    if (table.size() > SmallPackedBlock) {
        table.resize(SmallPackedBlock);
    }
    static CLzwBlockEncoder<TElement, SmallPackedBlock> encoders[] = {
        CLzwBlockEncoder<TElement, SmallPackedBlock>(false),
        CLzwBlockEncoder<TElement, SmallPackedBlock>(true)};
    TBytes packed;
    if (!encoders[bPlain ? 1 : 0].Append(table, packed)) {
        std::abort();
    }
    const std::size_t size = packed.size();
    static CLzwBlockDecoder<TElement, SmallPackedBlock> decoders[] = {
        CLzwBlockDecoder<TElement, SmallPackedBlock>(false),
        CLzwBlockDecoder<TElement, SmallPackedBlock>(true)};
    auto& decoder = decoders[bPlain ? 1 : 0];
    packed.resize(size + decoder.Slack);
    decoder.Start(std::span(packed).first(size), static_cast<std::uint32_t>(table.size()));
    if (!decoder.DecodeTo(SmallPackedBlock) || !std::ranges::equal(decoder.Decoded(), table)) {
        std::abort();
    }
}

}  // namespace
}  // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    const bool bPlain = size % 2 == 0;
    tarnwick::ReadAnything(bytes);
    tarnwick::DecodeAnything<std::uint8_t>(bytes, bPlain);
    tarnwick::DecodeAnything<std::uint16_t>(bytes, bPlain);
    tarnwick::PackAndUnpack<std::uint8_t>(bytes, bPlain);
    tarnwick::PackAndUnpack<std::uint16_t>(bytes, bPlain);
    return 0;
}
