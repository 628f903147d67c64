#include "tables/lzw_block.h"

#include <gtest/gtest.h>

#include "tables/slow_lzw.h"
#include "tables/table_contents.h"

namespace tarnwick {
namespace {

using TBytes = std::vector<std::uint8_t>;

template <typename TElement, std::uint32_t Size>
struct TBlockKind {
    using Element = TElement;
    static constexpr std::uint32_t BlockSize = Size;
};

template <typename TKind>
class LzwBlock : public testing::Test {
  protected:
    using TElement = typename TKind::Element;
    static constexpr std::uint32_t BlockSize = TKind::BlockSize;
    using TTable = std::vector<TElement>;

    /// All that blocks may hold, of so many elements.
    static std::vector<TTable> Contents(bool bPlain) {
        const bool bMarks = sizeof(TElement) == 1 || !bPlain;
        const unsigned values = sizeof(TElement) == 1 ? 256 : TwoByteValues;
        return {MateLikeTable<TElement>(BlockSize),
                PatchworkTable<TElement>(BlockSize, 30, bMarks),
                PatchworkTable<TElement>(BlockSize, values, bMarks),
                PatchworkTable<TElement>(BlockSize - 1, 2, false),
                TTable(BlockSize, TElement{7}),
                TTable(BlockSize, bMarks ? MarkOfUnknown<TElement> : TElement{0}),
                TTable(1, TElement{3})};
    }

    static TBytes Packed(bool bPlain, const TTable& table) {
        CLzwBlockEncoder<TElement, BlockSize> encoder(bPlain);
        TBytes packed;
        EXPECT_TRUE(encoder.Append(table, packed));
        return packed;
    }

    static CSlowLzw<TElement> Slow(bool bPlain) {
        return {SlowSeeds<TElement>(bPlain), BlockSize / 4};
    }
};

using TKinds = testing::Types<TBlockKind<std::uint8_t, 0x2000>, TBlockKind<std::uint16_t, 0x2000>,
                              TBlockKind<std::uint8_t, 0x4000>, TBlockKind<std::uint16_t, 0x4000>>;
TYPED_TEST_SUITE(LzwBlock, TKinds);

TYPED_TEST(LzwBlock, PacksToTheSameBytesAsTheBook) {
    for (const bool bPlain : {true, false}) {
        const auto slow = this->Slow(bPlain);
        for (const auto& table : this->Contents(bPlain)) {
            const TBytes packed = this->Packed(bPlain, table);
            EXPECT_TRUE(packed == slow.Pack(table)) << bPlain << " " << table.size();
            EXPECT_TRUE(slow.Unpack(packed, table.size()) == table);
        }
    }
}

TYPED_TEST(LzwBlock, UnpacksInStepsWhatItUnpacksAtOnce) {
    for (const bool bPlain : {true, false}) {
        for (const auto& table : this->Contents(bPlain)) {
            TBytes packed = this->Packed(bPlain, table);
            const std::size_t size = packed.size();
            packed.resize(size + 4);
            CLzwBlockDecoder<typename TypeParam::Element, TypeParam::BlockSize> decoder(bPlain);
            for (const std::uint32_t step : {1U, 17U, 5000U, TypeParam::BlockSize}) {
                decoder.Start(std::span(packed).first(size),
                              static_cast<std::uint32_t>(table.size()));
                for (std::uint32_t want = step; want < table.size() + step; want += step) {
                    ASSERT_TRUE(decoder.DecodeTo(want));
                    const auto decoded = decoder.Decoded();
                    ASSERT_GE(decoded.size(), std::min<std::size_t>(want, table.size()));
                }
                EXPECT_TRUE(std::ranges::equal(decoder.Decoded(), table));
            }
        }
    }
}

TYPED_TEST(LzwBlock, RandomBytesAreRefusedOrUnpackedAsTheBookDoes) {
    std::mt19937 random(3);
    CLzwBlockDecoder<typename TypeParam::Element, TypeParam::BlockSize> decoder(false);
    const auto slow = this->Slow(false);
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        TBytes packed = this->Packed(false, MateLikeTable<typename TypeParam::Element>(400, 1));
        packed[random() % packed.size()] ^= static_cast<std::uint8_t>(1U << random() % 8);
        const std::size_t size = packed.size();
        packed.resize(size + 4);
        decoder.Start(std::span(packed).first(size), 400);
        if (!decoder.DecodeTo(400)) {
            ++refused;
            continue;
        }
        packed.resize(size);
        EXPECT_TRUE(std::ranges::equal(decoder.Decoded(), slow.Unpack(packed, 400)));
    }
    EXPECT_GT(refused, 0);
}

TEST(LzwSeeds, OlderFilesHaveTheMarkBehindSmallValuesAndInRuns) {
    const auto& bytes = CLzwSeeds<std::uint8_t>::Of(false);
    EXPECT_EQ(bytes.Count(), 403U);
    EXPECT_EQ(bytes.Width().bits, 9U);
    EXPECT_TRUE(std::ranges::equal(bytes.Entry(2), TBytes{1, 255}));
    EXPECT_EQ(bytes.Entry(402).size(), 128U);
    const auto& words = CLzwSeeds<std::uint16_t>::Of(false);
    EXPECT_EQ(words.Count(), 1172U);
    EXPECT_EQ(words.Width().bits, 11U);
    EXPECT_EQ(words.Entry(127).size(), 128U);
    EXPECT_TRUE(std::ranges::equal(words.Entry(130), std::vector<std::uint16_t>{1, 65535}));
    EXPECT_EQ(words.Entry(1171).front(), 1023U);
    EXPECT_EQ(CLzwSeeds<std::uint8_t>::Of(true).Width().bits, 9U);
    EXPECT_EQ(CLzwSeeds<std::uint16_t>::Of(true).Width().bits, 11U);
}

TEST(LzwBlock, ACodeMayNameTheEntryThatItDefines) {
    CLzwBlockEncoder<std::uint8_t, 0x4000> encoder(true);
    TBytes packed;
    ASSERT_TRUE(encoder.Append(TBytes{7, 7, 7}, packed));
    EXPECT_EQ(packed, (TBytes{7, 0, 2})) << "the codes 7 and 256, nine bits each";
}

TEST(LzwBlock, ValuesWithoutACodeAreRefused) {
    CLzwBlockEncoder<std::uint16_t, 0x4000> plain(true);
    CLzwBlockEncoder<std::uint16_t, 0x2000> seeded(false);
    TBytes packed;
    for (const std::uint16_t value : std::vector<std::uint16_t>{1024, 65534}) {
        EXPECT_FALSE(plain.Append(std::vector<std::uint16_t>{1, 2, value}, packed));
        EXPECT_FALSE(seeded.Append(std::vector<std::uint16_t>{value}, packed));
    }
    EXPECT_FALSE(plain.Append(std::vector<std::uint16_t>{5, 65535}, packed));
    EXPECT_TRUE(seeded.Append(std::vector<std::uint16_t>{5, 65535, 1023}, packed));
}

}  // namespace
}  // namespace tarnwick
