#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "support/temp_folder.h"
#include "tables/lz4e_stream.h"
#include "tables/packed_buckets.h"
#include "tables/table_contents.h"

namespace tarnwick {
namespace {

using TBytes = std::vector<std::uint8_t>;

/// Unpacks sequences as the form is told in words, byte by byte, and checks what the packer promises its readers.
TBytes SlowUnpack(std::span<const std::uint8_t> packed) {
    TBytes bytes;
    std::size_t at = 0;
    const auto next = [&] { return std::size_t{packed[at++]}; };
    const auto more = [&](std::size_t& length) {
        std::size_t byte = 255;
        while (byte == 255) {
            byte = next();
            length += byte;
        }
    };
    while (true) {
        const std::size_t token = next();
        std::size_t literals = token >> 4;
        if (literals == 15) {
            more(literals);
        }
        bytes.insert(bytes.end(), packed.begin() + static_cast<std::ptrdiff_t>(at),
                     packed.begin() + static_cast<std::ptrdiff_t>(at + literals));
        at += literals;
        if (at == packed.size()) {
            EXPECT_EQ(token & 15, 0U);
            return bytes;
        }
        std::size_t length = 4 + (token & 15);
        std::size_t offsetBytes = 2;
        if ((token & 15) == 15) {
            const std::size_t byte = next();
            length += byte & 127;
            offsetBytes = byte >= 128 ? 3 : 2;
            if ((byte & 127) == 127) {
                more(length);
            }
        }
        std::size_t offset = 0;
        for (std::size_t i = 0; i < offsetBytes; ++i) {
            offset |= next() << (8 * i);
        }
        EXPECT_TRUE(offset >= 16 || length <= offset) << offset << " " << length;
        EXPECT_TRUE(offset >= 4 && offset <= bytes.size());
        EXPECT_EQ(offsetBytes == 3, offset >= 0x10000);
        for (std::size_t i = 0; i < length; ++i) {
            bytes.push_back(bytes[bytes.size() - offset]);
        }
    }
}

TBytes RandomBytes(std::size_t count, unsigned seed = 1) {
    std::mt19937 random(seed);
    TBytes bytes(count);
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(random());
    }
    return bytes;
}

TBytes Twice(const TBytes& bytes, std::size_t between) {
    TBytes twice = bytes;
    twice.resize(bytes.size() + between);
    twice.insert(twice.end(), bytes.begin(), bytes.end());
    return twice;
}

TEST(Lz4e, PacksWhatEveryReaderUnpacks) {
    const CTempFolder folder;
    const std::vector<TBytes> contents = {{},
                                          {1},
                                          {1, 2, 3, 4},
                                          TBytes(4, 9),
                                          TBytes(8, 9),
                                          TBytes(23 + 127, 9),
                                          TBytes(100'000, 0),
                                          RandomBytes(14),
                                          RandomBytes(15),
                                          RandomBytes(15 + 255 + 1),
                                          RandomBytes(50'000),
                                          Twice(RandomBytes(18), 0),
                                          Twice(RandomBytes(19), 70'000),
                                          Twice(RandomBytes(18), 70'000),
                                          Twice(RandomBytes(19 + 127 + 255), 3),
                                          MateLikeTable<std::uint8_t>(300'000),
                                          PatchworkTable<std::uint8_t>(200'000, 256, true)};
    for (const TBytes& content : contents) {
        const TBytes stream = PackLz4eStream(content);
        EXPECT_TRUE(SlowUnpack(std::span(stream).subspan(16)) == content) << content.size();
        WriteLz4eFile(folder / "table.lz4", content);
        EXPECT_TRUE(ReadBytes(folder / "table.lz4") == AsText(stream));
        EXPECT_TRUE(ReadLz4eFile(folder / "table.lz4", content.size()) == content);
    }
}

TEST(Lz4e, ReachesBackSixteenMegabytesAndNotFurther) {
    const CTempFolder folder;
    const TBytes bytes = RandomBytes(3000);
    for (const auto& [between, bFound] :
         {std::pair{0x1000000 - 3001, true}, {0x1000000 - 3000, false}}) {
        const TBytes content = Twice(bytes, static_cast<std::size_t>(between));
        const TBytes stream = PackLz4eStream(content);
        const std::size_t expected = 16 + 3000 + (bFound ? 0 : 3000) + between / 255;
        EXPECT_NEAR(static_cast<double>(stream.size()), static_cast<double>(expected), 200)
            << between;
        EXPECT_TRUE(SlowUnpack(std::span(stream).subspan(16)) == content);
    }
}

TEST(Lz4e, OfEqualMatchesTheNearestIsTaken) {
    // "abcd" twice, then a third time: the offset is the one to the second.
    const TBytes content = {'a', 'b', 'c', 'd', 1, 'a', 'b', 'c', 'd', 2, 3, 'a', 'b', 'c', 'd'};
    const TBytes expected = {0x50, 'a', 'b', 'c', 'd', 1, 5, 0, 0x20, 2, 3, 6, 0, 0x00};
    const TBytes stream = PackLz4eStream(content);
    EXPECT_EQ(TBytes(stream.begin() + 16, stream.end()), expected);
    EXPECT_EQ(AsText(TBytes(stream.begin(), stream.begin() + 16)),
              std::string("LZ4e\x0F\0\0\0\x1E\0\0\0\0\0\0\0", 16));
}

TEST(Lz4e, ReadsTheOlderForm) {
    const CTempFolder folder;
    const TBytes sequences = {0x1F, 7, 1, 0, 10, 0x10, 8};  // 7, 29 times 7, 8
    TBytes content(30, 7);
    content.push_back(8);
    for (const bool bOtherPlace : {false, true}) {
        TBytes file = {'L', 'Z', '4', bOtherPlace ? std::uint8_t{'2'} : std::uint8_t{' '}};
        file.resize(16);
        file[bOtherPlace ? 12 : 4] = 31;
        file.insert(file.end(), sequences.begin(), sequences.end());
        WriteBytes(folder / "older", AsText(file));
        EXPECT_EQ(ReadLz4eFile(folder / "older", 31), content);
        EXPECT_THROW(ReadLz4eFile(folder / "older", 30), ChessException);
    }
}

TEST(Lz4e, DamagedFilesGiveAMessage) {
    const CTempFolder folder;
    const TBytes content = MateLikeTable<std::uint8_t>(300);
    const TBytes stream = PackLz4eStream(content);
    const auto isRefused = [&](const TBytes& bytes, std::uint64_t size) {
        WriteBytes(folder / "damaged", AsText(bytes));
        try {
            return ReadLz4eFile(folder / "damaged", size).size() != size;
        } catch (const ChessException& exception) {
            return std::string(exception.what()).find("damaged") != std::string::npos;
        }
    };
    for (std::size_t size = 0; size < stream.size(); ++size) {
        EXPECT_TRUE(isRefused({stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(size)},
                              content.size()))
            << size;
    }
    for (std::size_t at = 0; at < stream.size(); ++at) {
        TBytes flipped = stream;
        flipped[at] ^= 0xFF;
        const bool bHead = at < 12 && at != 3;
        EXPECT_TRUE(isRefused(flipped, content.size()) || !bHead) << at;
    }
    for (const std::uint64_t size :
         {std::uint64_t{301}, std::uint64_t{1} << 32, ~std::uint64_t{0}}) {
        EXPECT_TRUE(isRefused(stream, size)) << size;
    }
    EXPECT_THROW(ReadLz4eFile(folder / "none", 1), ChessException);
    EXPECT_THROW(WriteLz4eFile(folder / "no folder" / "x", content), ChessException);
}

TEST(PackedBuckets, EachSixteenMegabytesArePackedForThemselves) {
    const CTempFolder folder;
    TBytes table(PackedBucketBytes + 1000, 5);
    for (std::size_t i = 0; i < table.size(); i += 500'021) {
        table[i] = static_cast<std::uint8_t>(i);
    }
    WriteBytes(folder / "plain", AsText(table));
    const CRandomAccessFile plain(folder / "plain");
    ASSERT_TRUE(WritePackedBuckets(folder / "b.packed.lz4", plain, table.size(), 2));
    const std::string text = ReadBytes(folder / "b.packed.lz4");
    const TBytes file(text.begin(), text.end());
    EXPECT_EQ(LoadLittleEndian<std::uint64_t>(&file[0]), file.size());
    EXPECT_EQ(LoadLittleEndian<std::uint64_t>(&file[8]), table.size());
    EXPECT_EQ(LoadLittleEndian<std::uint64_t>(&file[16]), 0x1000000U);
    EXPECT_EQ(text.substr(24, 8), std::string("\2\0\0\0LZ4e", 8));
    const auto second = LoadLittleEndian<std::uint64_t>(&file[40]);
    EXPECT_EQ(LoadLittleEndian<std::uint64_t>(&file[32]), 48U);
    TBytes unpacked = SlowUnpack(std::span(file).subspan(48, second - 48));
    EXPECT_EQ(unpacked.size(), PackedBucketBytes);
    const TBytes rest = SlowUnpack(std::span(file).subspan(second));
    unpacked.insert(unpacked.end(), rest.begin(), rest.end());
    EXPECT_TRUE(unpacked == table);
    EXPECT_TRUE(ReadBytes(folder / "b.packed.lz4.log")
                    .starts_with("Compressed bucket 2. Packed 16778216 of 16778216 (100%)."));
    EXPECT_FALSE(WritePackedBuckets(folder / "short", plain, table.size() + 1, 0));
    EXPECT_EQ(folder.Count(), 3U);
}

}  // namespace
}  // namespace tarnwick
