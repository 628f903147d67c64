#include "base/little_endian.h"

#include <gtest/gtest.h>

#include <array>

namespace tarnwick {
namespace {

TEST(LittleEndian, LowestByteComesFirstAtAnyAlignment) {
    const std::array<std::uint8_t, 9> bytes = {0xAA, 0x01, 0x02, 0x03, 0x04,
                                               0x05, 0x06, 0x07, 0xF8};
    EXPECT_EQ(LoadLittleEndian<std::uint16_t>(&bytes[1]), 0x0201);
    EXPECT_EQ(LoadLittleEndian<std::uint32_t>(&bytes[1]), 0x04030201U);
    EXPECT_EQ(LoadLittleEndian<std::uint64_t>(&bytes[1]), 0xF807060504030201ULL);
    EXPECT_EQ(LoadLittleEndian<std::int8_t>(&bytes[8]), -8);
}

TEST(LittleEndian, StoringWritesItsOwnBytesAlone) {
    std::array<std::uint8_t, 6> bytes = {9, 9, 9, 9, 9, 9};
    StoreLittleEndian<std::int32_t>(&bytes[1], -2);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 6>{9, 0xFE, 0xFF, 0xFF, 0xFF, 9}));
    StoreLittleEndian<std::uint16_t>(&bytes[4], 0x1234);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 6>{9, 0xFE, 0xFF, 0xFF, 0x34, 0x12}));
}

}  // namespace
}  // namespace tarnwick
