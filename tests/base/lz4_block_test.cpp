#include "base/lz4_block.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

#include "base/byte_source_support.h"
#include "base/chess_exception.h"
#include "base/little_endian.h"

#include "support/case_name.h"

namespace tarnwick {
namespace {

using TBytes = std::vector<std::uint8_t>;

TBytes Pack(const TBytes& bytes, std::size_t pieceSize) {
    TBytes packed;
    CLz4Packer packer([&packed](std::span<const std::uint8_t> piece) {
        packed.insert(packed.end(), piece.begin(), piece.end());
    });
    for (std::size_t at = 0; at < bytes.size(); at += pieceSize) {
        packer.Append(std::span(bytes).subspan(at, std::min(pieceSize, bytes.size() - at)));
    }
    packer.Finish();
    return packed;
}

struct TUnpacked {
    TBytes bytes;       ///< All that came before the fault.
    std::string fault;  ///< Empty if there was none.
};

TUnpacked Unpack(const TBytes& packed, const TLz4Head& head, std::size_t pieceSize = 1 << 20) {
    CMemorySource source(packed, pieceSize);
    CLz4Unpacker unpacker(source, head, "test.tmpReg");
    TUnpacked result;
    TBytes piece(1 + pieceSize / 3);
    try {
        while (const std::size_t count = unpacker.Read(piece)) {
            result.bytes.insert(result.bytes.end(), piece.begin(),
                                piece.begin() + static_cast<std::ptrdiff_t>(count));
        }
    } catch (const ChessException& exception) {
        result.fault = exception.what();
    }
    return result;
}

TLz4Head HeadFor(std::uint64_t size, TLz4Form form = TLz4Form::Block) {
    return {.form = form, .unpackedSize = size, .bSizeModulo32 = false, .dataOffset = 16};
}

/// Like a saved register: 68 bytes each, mostly empty fields, some men that move about.
TBytes BoardLikeBytes(std::size_t count) {
    std::mt19937 random(5);
    TBytes bytes(count);
    for (std::size_t i = 0; i < count / 8; ++i) {
        bytes[random() % count] = static_cast<std::uint8_t>(0x40 | (random() % 17));
    }
    return bytes;
}

TBytes RandomBytes(std::size_t count, unsigned letters = 256) {
    std::mt19937 random(7);
    TBytes bytes(count);
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(random() % letters);
    }
    return bytes;
}

/// What the public format promises to fast readers: no match starts within the last 12 bytes, and the
/// last 5 are literals. A plain walk over the sequences, written apart from the unpacker.
void ExpectEndRules(const TBytes& packed, std::size_t size) {
    std::size_t at = 0;
    std::size_t done = 0;
    const auto length = [&](std::size_t nibble) {
        std::size_t sum = nibble;
        for (bool bMore = nibble == 15; bMore; ++at) {
            sum += packed.at(at);
            bMore = packed.at(at) == 255;
        }
        return sum;
    };
    while (true) {
        const std::uint8_t token = packed.at(at++);
        const std::size_t literals = length(token >> 4);
        at += literals;
        done += literals;
        if (at == packed.size()) {
            EXPECT_TRUE(done == size && (size < 5 || literals >= 5)) << literals;
            return;
        }
        at += 2;
        ASSERT_LE(done + 12, size);
        done += length(token & 15) + 4;
    }
}

TEST(Lz4Block, UnpacksWhatItPackedWhateverTheSizesOfThePieces) {
    const std::vector<TBytes> contents = {
        {},
        {1},
        TBytes(4),
        TBytes(12),
        TBytes(13),
        TBytes(18 + 255),
        TBytes(1'000'000, 0xFF),
        RandomBytes(14),
        RandomBytes(15),
        RandomBytes(15 + 255),
        RandomBytes(700'000),
        RandomBytes(300'000, 2),
        BoardLikeBytes(256 * 1024 - 1),
        BoardLikeBytes(256 * 1024 + 65535 + 1),
        BoardLikeBytes(2'000'000),
    };
    for (const TBytes& content : contents) {
        for (const std::size_t pieceSize :
             {std::size_t{68}, std::size_t{4096}, content.size() + 1}) {
            const TBytes packed = Pack(content, pieceSize);
            ExpectEndRules(packed, content.size());
            const TUnpacked unpacked = Unpack(packed, HeadFor(content.size()), pieceSize);
            EXPECT_EQ(unpacked.fault, "") << content.size() << " by " << pieceSize;
            EXPECT_TRUE(unpacked.bytes == content) << content.size() << " by " << pieceSize;
        }
    }
    EXPECT_LT(Pack(BoardLikeBytes(2'000'000), 4096).size(), 1'300'000U);
    EXPECT_LT(Pack(TBytes(1'000'000), 4096).size(), 5'000U);
}

TEST(Lz4Block, HoldsFewBytesOfAStreamThatCannotBePacked) {
    std::size_t longestPiece = 0;
    std::size_t total = 0;
    CLz4Packer packer([&](std::span<const std::uint8_t> piece) {
        longestPiece = std::max(longestPiece, piece.size());
        total += piece.size();
    });
    std::mt19937 numbers(1);
    TBytes piece(100'000);
    for (int i = 0; i < 400; ++i) {
        for (std::size_t at = 0; at < piece.size(); at += 4) {
            StoreLittleEndian(&piece[at], static_cast<std::uint32_t>(numbers()));
        }
        packer.Append(piece);
    }
    packer.Finish();
    EXPECT_LT(total, 400 * piece.size() * 101 / 100);
    EXPECT_LT(longestPiece, 8U << 20);
}

/// A literal run of one byte or more, then a match, in either form.
struct TSequenceCase {
    const char* name;
    TLz4Form form;
    TBytes packed;
    std::string expected;
};

class Lz4SequenceTest : public testing::TestWithParam<TSequenceCase> {};

TEST_P(Lz4SequenceTest, UnpacksToTheExpectedText) {
    const TSequenceCase& param = GetParam();
    const TUnpacked unpacked = Unpack(param.packed, HeadFor(param.expected.size(), param.form), 3);
    EXPECT_EQ(std::string(unpacked.bytes.begin(), unpacked.bytes.end()), param.expected);
    EXPECT_EQ(unpacked.fault, "");
}

const TSequenceCase SequenceCases[] = {
    {"OverlappingByOne", TLz4Form::Block, {0x14, 'a', 1, 0, 0x10, 'z'}, "aaaaaaaaaz"},
    {"OverlappingByThree", TLz4Form::Block, {0x33, 'a', 'b', 'c', 3, 0, 0x10, 'z'}, "abcabcabcaz"},
    {"LongLengths",
     TLz4Form::Block,
     {0x1F, 'a', 1, 0, 255, 2, 0x10, 'z'},
     std::string(1 + 4 + 15 + 257, 'a') + "z"},
    {"NoLiteralsBetween",
     TLz4Form::Block,
     {0x20, 'a', 'b', 2, 0, 0x00, 4, 0, 0x10, 'z'},
     "abababababz"},
    {"ShortMatchInTheLongForm", TLz4Form::LongOffsets, {0x14, 'a', 1, 0, 0x10, 'z'}, "aaaaaaaaaz"},
    {"LengthBeforeTheOffset",
     TLz4Form::LongOffsets,
     {0x1F, 'a', 5, 1, 0, 0x10, 'z'},
     std::string(1 + 4 + 15 + 5, 'a') + "z"},
    {"ThreeOffsetBytes",
     TLz4Form::LongOffsets,
     {0x1F, 'a', 0x80 | 5, 1, 0, 0, 0x10, 'z'},
     std::string(1 + 4 + 15 + 5, 'a') + "z"},
    {"MoreLengthBytesBeforeTheOffset",
     TLz4Form::LongOffsets,
     {0x1F, 'a', 127, 255, 3, 1, 0, 0x10, 'z'},
     std::string(1 + 4 + 15 + 127 + 258, 'a') + "z"},
};
INSTANTIATE_TEST_SUITE_P(Sequences, Lz4SequenceTest, testing::ValuesIn(SequenceCases), CaseName);

TEST(Lz4Block, LongOffsetsReachAlmost16MiBBack) {
    constexpr std::size_t Distance = 0xFFFFFF;
    const TBytes literals = RandomBytes(Distance + 3);
    TBytes packed = {0xFF};
    packed.insert(packed.end(), (literals.size() - 15) / 255, 255);
    packed.push_back(static_cast<std::uint8_t>((literals.size() - 15) % 255));
    packed.insert(packed.end(), literals.begin(), literals.end());
    packed.insert(packed.end(), {0x80 | 1, 0xFF, 0xFF, 0xFF, 0x10, 'z'});
    const TUnpacked unpacked =
        Unpack(packed, HeadFor(literals.size() + 20 + 1, TLz4Form::LongOffsets));
    ASSERT_EQ(unpacked.fault, "");
    EXPECT_TRUE(std::equal(unpacked.bytes.begin() + Distance + 3, unpacked.bytes.end() - 1,
                           literals.begin() + 3, literals.begin() + 23));
}

TEST(Lz4Block, ACutAnywhereLeavesTheBytesBeforeItAndNamesFileAndOffset) {
    const TBytes content = BoardLikeBytes(3000);
    const TBytes packed = Pack(content, 4096);
    for (std::size_t size = 0; size < packed.size(); ++size) {
        const TBytes cut(packed.begin(), packed.begin() + static_cast<std::ptrdiff_t>(size));
        const TUnpacked unpacked = Unpack(cut, HeadFor(content.size()));
        ASSERT_LT(unpacked.bytes.size(), content.size()) << size;
        EXPECT_TRUE(std::equal(unpacked.bytes.begin(), unpacked.bytes.end(), content.begin()));
        EXPECT_EQ(unpacked.fault, "Damaged packed data in file test.tmpReg, offset in bytes: " +
                                      std::to_string(16 + size));
    }
}

TEST(Lz4Block, FlippedBitsNeverGiveMoreThanTheHeadPromises) {
    const TBytes content = BoardLikeBytes(700);
    const TBytes packed = Pack(content, 4096);
    for (std::size_t bit = 0; bit < packed.size() * 8; ++bit) {
        TBytes flipped = packed;
        flipped[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
        for (const TLz4Form form : {TLz4Form::Block, TLz4Form::LongOffsets}) {
            const TUnpacked unpacked = Unpack(flipped, HeadFor(content.size(), form));
            ASSERT_LE(unpacked.bytes.size(), content.size());
            ASSERT_TRUE(!unpacked.fault.empty() || unpacked.bytes.size() == content.size());
        }
    }
}

TEST(Lz4Block, RefusesOffsetsBeforeTheStartAndSizesThatDoNotFit) {
    const TBytes aaaa = {0x10, 'a', 1, 0, 0x10, 'z'};
    const TBytes zeroOffset = {0x10, 'a', 0, 0, 0x10, 'z'};
    const TBytes beforeTheStart = {0x10, 'a', 2, 0, 0x10, 'z'};
    const TBytes noLastLiterals = {0x10, 'a', 1, 0};
    EXPECT_EQ(Unpack(zeroOffset, HeadFor(6)).bytes.size(), 1U);
    EXPECT_EQ(Unpack(beforeTheStart, HeadFor(6)).bytes.size(), 1U);
    EXPECT_NE(Unpack(noLastLiterals, HeadFor(5)).fault, "");
    EXPECT_EQ(Unpack(aaaa, HeadFor(3)).bytes, TBytes(3, 'a'));
    EXPECT_NE(Unpack(aaaa, HeadFor(3)).fault, "");
    EXPECT_EQ(Unpack(aaaa, HeadFor(6)).fault, "");
    for (const std::uint64_t claimed : {std::uint64_t{7}, std::uint64_t{1} << 63}) {
        EXPECT_EQ(Unpack(aaaa, HeadFor(claimed)).bytes.size(), 6U);
        EXPECT_NE(Unpack(aaaa, HeadFor(claimed)).fault, "");
    }
}

TEST(Lz4Head, SaysFormSizeAndStartOfTheData) {
    const auto parse = [](std::string_view text) {
        return ParseLz4Head({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    };
    using namespace std::literals;
    const auto usual = parse("LZ4 \x01\x02\0\0________\x10"sv);
    ASSERT_TRUE(usual);
    EXPECT_EQ(usual->unpackedSize, 0x201U);
    EXPECT_EQ(usual->dataOffset, 16U);
    EXPECT_EQ(usual->form, TLz4Form::Block);
    EXPECT_EQ(parse("LZ4e\x01\x02\0\0________"sv)->form, TLz4Form::LongOffsets);

    const auto shortSize = parse("LZ42________\x07\0\0\0\x70____"sv);
    EXPECT_EQ(shortSize->unpackedSize, 7U);
    EXPECT_EQ(shortSize->dataOffset, 16U);
    EXPECT_TRUE(shortSize->bSizeModulo32);
    const auto longSize = parse("LZ42________\x07\0\0\0\x01\0\0\0\x70"sv);
    EXPECT_EQ(longSize->unpackedSize, 0x100000007U);
    EXPECT_EQ(longSize->dataOffset, 20U);

    EXPECT_FALSE(parse("LZ4 \x01\x02\0\0_______"sv)) << "a byte is missing";
    EXPECT_FALSE(parse("\xFF\xFF\xFF\xFF____________"sv));
    const auto written = FormatLz4Head(0x12345678);
    EXPECT_EQ(ParseLz4Head(written)->unpackedSize, 0x12345678U);
}

}  // namespace
}  // namespace tarnwick
