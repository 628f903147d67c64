// Every form of a real table gives the same value at every index: whatever reads it, from memory or from disk.

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

#include "support/table_folder.h"
#include "tables/open_values.h"
#include "tables/table_contents.h"

namespace tarnwick {
namespace {

using RandomAccessLZWBuffer::CPackedTableReader;
using RandomAccessLZWBuffer::CRandomAccessPackedBufferBase;
using TBytes = std::vector<std::uint8_t>;

/// One index at which the store differs from the elements, or what it thinks the longest mates are; empty if all is
/// right.
template <typename TElement>
std::string FirstFault(const CTableStore& store, const std::vector<TElement>& elements) {
    for (std::size_t index = 1; index < elements.size(); ++index) {
        const unsigned expected =
            elements[index] == static_cast<TElement>(-1) ? NotGenerated : elements[index];
        if (store.ValueAt(index) != expected) {
            return "index " + std::to_string(index) + " has " +
                   std::to_string(store.ValueAt(index));
        }
    }
    TElement longest = 0;
    for (const TElement element : std::span(elements).subspan(1)) {
        longest = element == static_cast<TElement>(-1) ? longest : std::max(longest, element);
    }
    const TLargestValue largest = store.FindLargest(elements.size(), 1);
    const auto first = std::find(elements.begin() + 1, elements.end(), longest);
    const bool bFound = largest.value == longest && largest.indexes.size() == 1 &&
                        largest.indexes[0] == static_cast<std::uint64_t>(first - elements.begin());
    return bFound ? "" : "longest " + std::to_string(largest.value);
}

template <typename TElement>
std::uint16_t FlagsOf() {
    return sizeof(TElement) == 2 ? TwoByteElementsFlag : 0;
}

/// The packed file open in one way.
std::unique_ptr<CRandomAccessPackedBufferBase> Open(const std::filesystem::path& path,
                                                    std::size_t elements, bool bDiskBased) {
    auto opened = RandomAccessLZWBuffer::OpenPackedTable(path,
                                                         {.letters = 4,
                                                          .elementCount = elements,
                                                          .bDiskBased = bDiskBased,
                                                          .quota = std::uint64_t{1} << 30},
                                                         nullptr);
    EXPECT_NE(opened.pBuffer, nullptr) << opened.reason;
    return std::move(opened.pBuffer);
}

/// Packs the plain file in blocks of this size, reads it packed from disk and from memory, and expands it.
template <typename TElement, std::uint32_t BlockSize>
void ComparePacked(const CTempFolder& folder, const std::vector<TElement>& elements) {
    const auto path = folder / ("packed" + std::to_string(BlockSize));
    CPackedTableReader<TElement, BlockSize> writer(true, nullptr);
    ASSERT_TRUE(writer.PackFile(path, CRandomAccessFile(folder / "plain"), elements.size(),
                                FlagsOf<TElement>()));
    for (const bool bDiskBased : {false, true}) {
        const CPackedStore store(Open(path, elements.size(), bDiskBased));
        EXPECT_EQ(store.Buffer().GetBlockSize(), BlockSize);
        EXPECT_EQ(store.Buffer().IsDiskBased(), bDiskBased);
        EXPECT_EQ(FirstFault(store, elements), "") << BlockSize << " on disk " << bDiskBased;
    }
    auto expanded = Open(path, elements.size(), true)->DecompressAll();
    const CMemoryStore store(std::move(expanded.first), sizeof(TElement));
    EXPECT_EQ(FirstFault(store, elements), "") << BlockSize << " expanded";
}

/// All forms as the stores of the register have them.
template <typename TElement>
void CompareStores(const std::vector<TElement>& elements) {
    const CTempFolder folder;
    const TBytes bytes = FileBytes(elements);
    WriteBytes(folder / "plain", AsText(bytes));
    constexpr int Size = sizeof(TElement);
    EXPECT_EQ(FirstFault(CDiskStore(CRandomAccessFile(folder / "plain"), Size), elements), "");
    EXPECT_EQ(FirstFault(CMemoryStore(bytes, Size), elements), "");
    WriteLz4eFile(folder / "stream", bytes);
    EXPECT_EQ(
        FirstFault(CMemoryStore(ReadLz4eFile(folder / "stream", bytes.size()), Size), elements),
        "");
    ComparePacked<TElement, SmallPackedBlock>(folder, elements);
    ComparePacked<TElement, LargePackedBlock>(folder, elements);
}

/// All forms as generation and verification open them.
void CompareOpened(const CTableFolder& folder, const std::string& type) {
    const CTableIndex index(type);
    const CTableFolders folders(folder.Path(), {});
    const TBytes elements = folder.BytesOf(type);
    using TTurn = void (CTableFolder::*)(const std::string&) const;
    struct TForm {
        const char* name;
        TTurn turn;
    };
    for (const auto& [name, turn] :
         {TForm{"unpacked", nullptr}, TForm{"lz4", &CTableFolder::TurnIntoLz4},
          TForm{"packed", &CTableFolder::TurnIntoPackedLzw}}) {
        folder.WriteBytes(type, elements);
        if (turn != nullptr) {
            (folder.*turn)(type);
        }
        for (const std::uint64_t budget : {std::uint64_t{0}, std::uint64_t{1} << 30}) {
            const auto opened = OpenValues(folders, index, budget, true);
            EXPECT_EQ(FirstFault(*opened.pValues, elements), "") << name << " budget " << budget;
        }
        for (const auto mode : {TTableFileMode::Lz4, TTableFileMode::PackedLzw}) {
            std::filesystem::remove(folder.FileOf(type, mode));
        }
    }
}

TEST(TableForms, HaveTheSameValueAtEveryIndex) {
    const CTableFolder folder({"P", "BN"});
    for (const char* type : {"Q", "P", "BN"}) {
        SCOPED_TRACE(type);
        CompareStores(folder.BytesOf(type));
        CompareOpened(folder, type);
    }
}

/// As of a long mate: the pattern of a real table, with values that need two bytes.
TEST(TableForms, HaveTheSameTwoByteValues) {
    const CTableFolder folder({"P"});
    std::vector<std::uint16_t> elements;
    for (const std::uint8_t value : folder.BytesOf("P")) {
        elements.push_back(static_cast<std::uint16_t>(value * 36));
    }
    CompareStores(elements);
}

}  // namespace
}  // namespace tarnwick
