// Any bytes as a packed stream: unpacking ends, gives no more than the head says, and names the fault.
// And any bytes as content: they come back as they were.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "base/byte_source_support.h"
#include "base/chess_exception.h"
#include "base/lz4_block.h"

namespace tarnwick {
namespace {

constexpr std::size_t MostUnpacked = 1 << 20;  // lengths of gigabytes take no more code, only time

/// Unpacks piece by piece; false if the stream is damaged.
bool Unpack(std::span<const std::uint8_t> packed, const TLz4Head& head,
            std::vector<std::uint8_t>& unpacked) {
    CMemorySource source(packed, 1 + packed.size() % 50);
    CLz4Unpacker unpacker(source, head, "fuzz");
    std::vector<std::uint8_t> piece(1 + packed.size() % 977);
    try {
        while (const std::size_t count = unpacker.Read(piece)) {
            unpacked.insert(unpacked.end(), piece.begin(),
                            piece.begin() + static_cast<std::ptrdiff_t>(count));
            if (unpacked.size() > MostUnpacked) {
                return false;
            }
        }
        return true;
    } catch (const ChessException&) {
        return false;
    }
}

void UnpackAnything(std::span<const std::uint8_t> bytes) {
    const auto head = ParseLz4Head(bytes.first(std::min(bytes.size(), Lz4HeadBytes)));
    if (!head || bytes.size() < head->dataOffset) {
        return;
    }
    std::vector<std::uint8_t> unpacked;
    const bool bWhole = Unpack(bytes.subspan(head->dataOffset), *head, unpacked);
    const bool bTooLong = !head->bSizeModulo32 && unpacked.size() > head->unpackedSize;
    const bool bTooShort = bWhole && !head->bSizeModulo32 && unpacked.size() < head->unpackedSize;
    if (bTooLong || bTooShort) {
        std::abort();
    }
}

void PackAndUnpack(std::span<const std::uint8_t> bytes) {
    std::vector<std::uint8_t> packed;
    CLz4Packer packer([&packed](std::span<const std::uint8_t> piece) {
        packed.insert(packed.end(), piece.begin(), piece.end());
    });
    packer.Append(bytes);
    packer.Finish();
    TLz4Head head;
    head.unpackedSize = bytes.size();
    std::vector<std::uint8_t> unpacked;
    if (!Unpack(packed, head, unpacked) || !std::ranges::equal(unpacked, bytes)) {
        std::abort();
    }
}

}  // namespace
}  // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    tarnwick::UnpackAnything(bytes);
    tarnwick::PackAndUnpack(bytes);
    return 0;
}
