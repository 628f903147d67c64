#include <gtest/gtest.h>

#include <thread>

#include "base/chess_exception.h"

#include "support/temp_folder.h"
#include "tables/lzw_pack.h"
#include "tables/random_access_lzw_buffer.h"
#include "tables/table_contents.h"

namespace tarnwick {
namespace {

using namespace RandomAccessLZWBuffer;
using TBytes = std::vector<std::uint8_t>;
namespace fs = std::filesystem;

constexpr std::uint64_t LargeQuota = std::uint64_t{1} << 40;

/// The bytes of a packed file of any of the eight kinds.
template <typename TElement, std::uint32_t BlockSize>
TBytes PackedFile(const std::vector<TElement>& table, bool bPlain) {
    const TBytes source = FileBytes(table);
    TPackedTableHeader header;
    header.bPlainDictionary = bPlain;
    header.flags = sizeof(TElement) == 2 ? 4 : 0;
    TBytes packed;
    EXPECT_TRUE((PackTable<TElement, BlockSize>({.source = source}, header, packed)));
    return packed;
}

template <typename TElement>
void ExpectSameTable(CRandomAccessPackedBufferBase& buffer, const std::vector<TElement>& table) {
    std::mt19937_64 random(9);
    for (std::size_t i = 0; i < 2000; ++i) {
        const std::size_t index =
            i < 5 ? table.size() - 1 - i % table.size() : random() % table.size();
        ASSERT_EQ(buffer.GetValue(index, i % 3 == 0), table[index]) << index;
    }
    const TUnpackedTable whole = buffer.DecompressAll();
    ASSERT_EQ(whole.second, table.size() * sizeof(TElement));
    EXPECT_TRUE(std::ranges::equal(std::span(whole.first.get(), whole.second), FileBytes(table)));
    std::vector<std::uint64_t> places;
    std::vector<std::uint64_t> expected;
    TElement greatest = 0;
    for (std::size_t i = 1; i < table.size(); ++i) {
        if (table[i] != MarkOfUnknown<TElement> && table[i] > greatest) {
            greatest = table[i];
        }
    }
    for (std::size_t i = 1; i < table.size() && expected.size() < 20; ++i) {
        if (table[i] == greatest) {
            expected.push_back(i);
        }
    }
    EXPECT_EQ(buffer.FindMaxValue(places, 20), greatest);
    EXPECT_EQ(places, expected);
}

template <typename TElement, std::uint32_t BlockSize>
void ExpectEveryReaderAgrees(const CTempFolder& folder) {
    for (const std::size_t count : {std::size_t{1}, std::size_t{BlockSize},
                                    std::size_t{BlockSize} + 1, std::size_t{70'001}}) {
        std::vector<TElement> table = PatchworkTable<TElement>(count, 90, false, 4);
        table[0] = sizeof(TElement) == 2 ? 4 : 255;  // the flags, no value
        for (const bool bPlain : {true, false}) {
            const fs::path path = folder / "table.packed.lzw";
            WriteBytes(path, AsText(PackedFile<TElement, BlockSize>(table, bPlain)));
            for (const bool bDisk : {true, false}) {
                const TOpenedPackedTable opened = OpenPackedTable(
                    path,
                    {.letters = 4, .elementCount = count, .bDiskBased = bDisk, .quota = LargeQuota},
                    nullptr);
                ASSERT_NE(opened.pBuffer, nullptr) << opened.reason;
                EXPECT_EQ(opened.pBuffer->IsDiskBased(), bDisk);
                EXPECT_EQ(opened.pBuffer->GetBlockSize(), BlockSize);
                EXPECT_EQ(opened.pBuffer->GetElementSize(), sizeof(TElement));
                ExpectSameTable(*opened.pBuffer, table);
                EXPECT_THROW(opened.pBuffer->GetValue(count, false), ChessException);
                EXPECT_THROW(opened.pBuffer->Update(1, 1), ChessException);
            }
        }
    }
}

TEST(PackedTable, EveryKindOfFileGivesItsTableFromMemoryAndDisk) {
    const CTempFolder folder;
    ExpectEveryReaderAgrees<std::uint8_t, 0x2000>(folder);
    ExpectEveryReaderAgrees<std::uint16_t, 0x2000>(folder);
    ExpectEveryReaderAgrees<std::uint8_t, 0x4000>(folder);
    ExpectEveryReaderAgrees<std::uint16_t, 0x4000>(folder);
}

TEST(PackedTable, WrittenFromMemoryAndFromAFileItIsTheSame) {
    const CTempFolder folder;
    // More than one piece of the source.
    const auto table = MateLikeTable<std::uint16_t>(256 * 0x4000 + 5);
    const TBytes source = FileBytes(table);
    WriteBytes(folder / "plain", AsText(source));
    const auto pWriter = MakePackedTableWriter(2, nullptr);
    pWriter->SetUserValue(77);
    ASSERT_TRUE(pWriter->Pack(table.size(), source.data(), true, 0, 0, 1));
    ASSERT_TRUE(pWriter->SaveToFile(folder / "memory", true, 4));
    const CRandomAccessFile plain(folder / "plain");
    ASSERT_TRUE(pWriter->PackFile(folder / "file", plain, table.size(), 4));
    const std::string memory = ReadBytes(folder / "memory");
    EXPECT_TRUE(memory == ReadBytes(folder / "file"));
    EXPECT_EQ(pWriter->GetPackedSize(), memory.size() + 8);
    EXPECT_EQ(memory[7], '\x80') << "the plain dictionary";

    const TPackedTableDemand demand = {
        .letters = 4, .elementCount = 0, .bDiskBased = false, .quota = 4 * memory.size() - 1};
    const auto opened = OpenPackedTable(folder / "file", demand, nullptr);
    ASSERT_NE(opened.pBuffer, nullptr);
    EXPECT_TRUE(opened.pBuffer->IsDiskBased()) << "more than a quarter of the quota";
    EXPECT_EQ(opened.pBuffer->GetMemoryUsed(), 257 * 8 + 40);
    EXPECT_EQ(opened.pBuffer->GetUserValue(), 77U);
    EXPECT_EQ(opened.flags, 4);
    EXPECT_EQ(opened.pBuffer->GetValue(table.size() - 1, false), table.back());

    EXPECT_FALSE(pWriter->PackFile(folder / "short", plain, table.size() + 1, 4));
    EXPECT_FALSE(fs::exists(folder / "short"));
    EXPECT_FALSE(pWriter->SaveToFile(folder / "no folder" / "x", true, 4));
}

TEST(PackedTable, RepeatsRoomAndReserveAreLaidOut) {
    const auto table = PatchworkTable<std::uint8_t>(0x4000 * 2, 40, true);
    const auto pWriter = MakePackedTableWriter(1, nullptr);
    ASSERT_TRUE(pWriter->Pack(table.size(), table.data(), false, 9000, 1000, 3));
    EXPECT_GE(pWriter->GetPackedSize(), 6 * 9000U + 1000);
    for (std::size_t i = 0; i < 3 * table.size(); i += 97) {
        ASSERT_EQ(pWriter->GetValue(i, false), table[i % table.size()]) << i;
    }
    // A repeated table whose end is inside a block.
    ASSERT_TRUE(pWriter->Pack(10'000, table.data(), true, 0, 0, 5));
    for (std::size_t i = 0; i < 50'000; i += 31) {
        ASSERT_EQ(pWriter->GetValue(i, false), table[i % 10'000]) << i;
    }
}

TEST(PackedTable, ATableThatCannotBePackedLeavesNothing) {
    const CTempFolder folder;
    const std::vector<std::uint16_t> words = {4, 3, 1024};
    WriteBytes(folder / "plain", AsText(FileBytes(words)));
    const auto pWriter = MakePackedTableWriter(2, nullptr);
    EXPECT_FALSE(pWriter->Pack(words.size(), FileBytes(words).data(), true, 0, 0, 1));
    EXPECT_EQ(pWriter->GetPackedSize(), 8U);
    EXPECT_FALSE(pWriter->SaveToFile(folder / "packed", true, 0));
    EXPECT_FALSE(
        pWriter->PackFile(folder / "packed", CRandomAccessFile(folder / "plain"), words.size(), 4));
    EXPECT_EQ(folder.Count(), 1U);
}

/// Opens the file and asks for everything; what it answers is compared by the caller.
struct TOutcome {
    bool bOpened = false;
    bool bWhole = false;
    std::vector<std::uint16_t> values;
};

TOutcome ReadEverything(const fs::path& path, bool bDisk) {
    const TPackedTableDemand demand = {
        .letters = 4, .elementCount = 0, .bDiskBased = bDisk, .quota = LargeQuota};
    CKeptDialog dialog;
    const TOpenedPackedTable opened = OpenPackedTable(path, demand, &dialog);
    TOutcome outcome;
    outcome.bOpened = opened.pBuffer != nullptr;
    EXPECT_NE(outcome.bOpened, !opened.reason.empty());
    if (!outcome.bOpened) {
        return outcome;
    }
    const std::uint64_t whole = opened.pBuffer->DecompressAll().second;
    outcome.bWhole = whole != 0;
    EXPECT_EQ(outcome.bWhole, dialog.told.empty());
    for (std::uint64_t index = 0; index < 600; ++index) {
        try {
            outcome.values.push_back(opened.pBuffer->GetValue(index, false));
        } catch (const ChessException&) {
            EXPECT_GE(index, whole / opened.pBuffer->GetElementSize());
            break;
        }
    }
    return outcome;
}

TEST(PackedTable, ACutFileIsRefused) {
    const CTempFolder folder;
    const auto table = MateLikeTable<std::uint8_t>(500);
    const TBytes file = PackedFile<std::uint8_t, 0x4000>(table, true);
    for (std::size_t size = 0; size < file.size(); ++size) {
        WriteBytes(folder / "cut", AsText(file).substr(0, size));
        EXPECT_FALSE(ReadEverything(folder / "cut", size % 2 == 0).bOpened) << size;
    }
    // Cut while it is open.
    WriteBytes(folder / "cut", AsText(file));
    const auto opened = OpenPackedTable(
        folder / "cut", {.letters = 4, .elementCount = 500, .bDiskBased = true}, nullptr);
    ASSERT_NE(opened.pBuffer, nullptr);
    WriteBytes(folder / "cut", AsText(file).substr(0, 60));
    EXPECT_THROW(opened.pBuffer->GetValue(499, false), ChessException);
}

TEST(PackedTable, FlippedBytesAreAnErrorOrOtherValuesAndNothingElse) {
    const CTempFolder folder;
    const auto table = MateLikeTable<std::uint8_t>(500);
    const TBytes file = PackedFile<std::uint8_t, 0x4000>(table, true);
    int refused = 0;
    for (std::size_t at = 0; at < file.size(); ++at) {
        for (const std::uint8_t bits : TBytes{0x01, 0x80, 0xFF}) {
            TBytes flipped = file;
            flipped[at] ^= bits;
            WriteBytes(folder / "flipped", AsText(flipped));
            const TOutcome memory = ReadEverything(folder / "flipped", false);
            const TOutcome disk = ReadEverything(folder / "flipped", true);
            EXPECT_EQ(memory.bWhole, disk.bWhole) << at;
            EXPECT_TRUE(memory.values == disk.values) << at;
            refused += memory.bWhole ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 50);
}

TEST(PackedTable, HeadsThatNoFileCanMeanAreRefused) {
    const CTempFolder folder;
    const auto table = MateLikeTable<std::uint8_t>(3 * 0x4000);
    const TBytes file = PackedFile<std::uint8_t, 0x4000>(table, true);
    const auto opens = [&](std::size_t at, std::uint64_t value) {
        TBytes changed = file;
        StoreLittleEndian(&changed[at], value);
        WriteBytes(folder / "changed", AsText(changed));
        return ReadEverything(folder / "changed", false).bOpened ||
               ReadEverything(folder / "changed", true).bOpened;
    };
    const auto offset = [&](std::size_t block) {
        return LoadLittleEndian<std::uint64_t>(&file[32 + 8 * block]);
    };
    constexpr std::uint64_t Plain = std::uint64_t{1} << 63;
    EXPECT_TRUE(opens(0, Plain | file.size()));
    EXPECT_FALSE(opens(0, Plain | (file.size() + 1)));
    EXPECT_FALSE(opens(0, ~std::uint64_t{0}));
    EXPECT_FALSE(opens(8, std::uint64_t{1} << 63));
    EXPECT_FALSE(opens(8, ~std::uint64_t{0}));
    EXPECT_FALSE(opens(8, 4 * 0x4000)) << "the fourth offset would be a block's bytes";
    EXPECT_FALSE(opens(16, 4096));
    EXPECT_FALSE(opens(32, 0)) << "a block inside the head";
    EXPECT_FALSE(opens(40, offset(0))) << "a block of nothing";
    EXPECT_FALSE(opens(40, offset(2) + 1)) << "falling offsets";
    EXPECT_FALSE(opens(48, std::uint64_t{1} << 63));
    EXPECT_FALSE(opens(48, file.size()));
    const TPackedTableDemand otherType = {.letters = 1, .elementCount = 40960, .bDiskBased = true};
    WriteBytes(folder / "good", AsText(file));
    const auto opened = OpenPackedTable(folder / "good", otherType, nullptr);
    EXPECT_EQ(opened.pBuffer, nullptr);
    EXPECT_NE(opened.reason.find("40960"), std::string::npos);
    EXPECT_NE(OpenPackedTable(folder / "none", otherType, nullptr).reason, "");
}

TEST(ThreadsPackedTable, MoreReadersThanSlotsAllGetTheirValues) {
    const CTempFolder folder;
    const auto table = MateLikeTable<std::uint8_t>(20 * 0x4000);
    WriteBytes(folder / "table", AsText(PackedFile<std::uint8_t, 0x4000>(table, true)));
    for (const bool bDisk : {false, true}) {
        const auto opened = OpenPackedTable(
            folder / "table",
            {.letters = 4, .elementCount = 0, .bDiskBased = bDisk, .quota = LargeQuota}, nullptr);
        ASSERT_NE(opened.pBuffer, nullptr);
        std::atomic<int> wrong = 0;
        std::vector<std::jthread> readers;
        for (unsigned reader = 0; reader < 12; ++reader) {
            readers.emplace_back([&, reader] {
                std::mt19937 random(reader);
                for (int i = 0; i < 100; ++i) {
                    const std::size_t index = random() % table.size();
                    wrong += opened.pBuffer->GetValue(index, false) != table[index] ? 1 : 0;
                }
            });
        }
        readers.clear();
        EXPECT_EQ(wrong, 0);
    }
}

}  // namespace
}  // namespace tarnwick
