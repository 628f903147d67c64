#include "tables/simple_rle.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "tables/lz4e_stream.h"
#include "tables/table_contents.h"

namespace tarnwick {
namespace {

using TBytes = std::vector<std::uint8_t>;

TEST(SimpleRle, GivesEveryElementBack) {
    const std::vector<TBytes> tables = {TBytes(1, 3),
                                        TBytes(2048, 7),
                                        TBytes(2049, 255),
                                        TBytes(128, 1),
                                        TBytes(129, 1),
                                        MateLikeTable<std::uint8_t>(5000),
                                        PatchworkTable<std::uint8_t>(10'000, 128, true)};
    for (const TBytes& table : tables) {
        const auto bytes = MakeSimpleRle(table);
        ASSERT_TRUE(bytes);
        const auto simple = CSimpleRle::FromBytes(*bytes);
        ASSERT_TRUE(simple);
        for (std::size_t i = 0; i < table.size(); ++i) {
            ASSERT_EQ(simple->ValueAt(i), table[i]) << i << " of " << table.size();
        }
        EXPECT_EQ(simple->ValueAt(table.size()), std::nullopt);
        EXPECT_EQ(simple->ValueAt(~std::uint64_t{0}), std::nullopt);
    }
}

TEST(SimpleRle, HasRunsOfTwoToAHundredTwentyEightWithinAGroup) {
    TBytes table(2048 + 1, 9);
    table[0] = 1;
    table[1] = 0;
    table[2] = 0;
    const TBytes bytes = MakeSimpleRle(table).value();
    EXPECT_EQ(bytes.size(), 8 + 8 + 3 + 2 * 16 + 1U);
    EXPECT_EQ(LoadLittleEndian<std::uint32_t>(&bytes[0]), bytes.size());
    EXPECT_EQ(LoadLittleEndian<std::uint32_t>(&bytes[4]), 2U);
    EXPECT_EQ(LoadLittleEndian<std::uint32_t>(&bytes[12]), 3 + 2 * 16U);
    EXPECT_EQ(TBytes(bytes.begin() + 16, bytes.begin() + 21), (TBytes{1, 0, 128, 9, 254}));
    const auto simple = CSimpleRle::FromBytes(bytes);
    EXPECT_EQ(simple->PliesAt(1), 0);
    EXPECT_EQ(simple->PliesAt(3), 17);
    EXPECT_EQ(CSimpleRle::FromBytes(MakeSimpleRle(TBytes{0, 255}).value())->PliesAt(1), 509);
    for (const std::uint8_t value : TBytes{128, 254}) {
        EXPECT_FALSE(MakeSimpleRle(TBytes{1, 2, value}));
    }
}

TEST(SimpleRle, DamagedBytesGiveNoValuesOrOthers) {
    const TBytes good = MakeSimpleRle(MateLikeTable<std::uint8_t>(4500)).value();
    for (std::size_t size = 0; size < good.size(); ++size) {
        EXPECT_FALSE(CSimpleRle::FromBytes(
            {good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)}));
    }
    int refused = 0;
    for (std::size_t at = 0; at < good.size(); ++at) {
        TBytes flipped = good;
        flipped[at] ^= 0x80;
        const auto simple = CSimpleRle::FromBytes(flipped);
        if (!simple) {
            ++refused;
            EXPECT_LT(at, 20U);
            continue;
        }
        for (std::uint64_t index = at % 97; index < 6144; index += 97) {
            const auto value = simple->ValueAt(index);
            ASSERT_TRUE(!value || *value < 128 || *value == 255);
        }
    }
    EXPECT_GE(refused, 8);
    TBytes cannotRepeat = MakeSimpleRle(TBytes{1, 1}).value();
    cannotRepeat[12] = 200;
    EXPECT_EQ(CSimpleRle::FromBytes(cannotRepeat)->ValueAt(0), std::nullopt);
}

TEST(SimpleRle, IsWrittenIfTheUserWantsIt) {
    const CTempFolder folder;
    const TBytes table(4096, 3);
    WriteBytes(folder / "plain", AsText(table));
    const CRandomAccessFile plain(folder / "plain");
    CKeptDialog no(false);
    EXPECT_FALSE(PackSimple(plain, table.size(), folder / "no", no));
    EXPECT_EQ(no.asked, std::vector<std::string>{"Possible mem.save ratio = 1.95%. Continue?"});
    CKeptDialog yes(true);
    EXPECT_TRUE(PackSimple(plain, table.size(), folder / "yes", yes));
    EXPECT_EQ(ReadLz4eFile(folder / "yes", 8 + 8 + 2 * 32), MakeSimpleRle(table));
    EXPECT_FALSE(PackSimple(table, folder / "none" / "x", yes));
    EXPECT_EQ(yes.told.size(), 1U);
    CKeptDialog missing;
    EXPECT_FALSE(PackSimple(plain, table.size() + 1, folder / "x", missing));
    EXPECT_EQ(missing.told, std::vector<std::string>{"Error reading data from disk"});
    EXPECT_FALSE(PackSimple(TBytes{0, 130}, folder / "x", missing));
    EXPECT_TRUE(missing.asked.empty());
    EXPECT_EQ(folder.Count(), 2U);
}

}  // namespace
}  // namespace tarnwick
