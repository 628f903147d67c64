#pragma once

// Packed tables (".packed.lzw"): blocks of 8192 or 16384 elements, each packed for itself with LZW, so that
// one element costs the unpacking of half a block. packed_table_header.h has the layout of the file.
//
// Nothing that a file says is believed: head and offsets are checked when it is loaded, each code when its
// block is unpacked. A disk based table reads blocks by pread, without a lock (random_access_file.h).

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/user_dialog.h"
#include "platform/random_access_file.h"

#include "tables/block_slots.h"
#include "tables/lzw_block.h"
#include "tables/packed_table_header.h"
#include "tables/random_access_packed_buffer.h"

namespace tarnwick::RandomAccessLZWBuffer {

/// The reserved arguments are 0. Slots bounds how many readers unpack at once; without SeveralThreads there
/// is one thread, one slot and no lock.
template <typename TElement, std::uint32_t BlockSize, int Reserved1, int Slots, int SeveralThreads,
          int Reserved2>
class CRandomAccessLZWBuffer final : public CRandomAccessPackedBufferBase {
  public:
    /// The dictionary is that of all blocks, packed or read; LoadFromFile refuses a file with the other one.
    /// The dialog, which may be null, hears what goes wrong in DecompressAll and in writing.
    explicit CRandomAccessLZWBuffer(bool bPlainDictionary, TUserDialog* pDialog = nullptr);

    bool LoadFromFile(const std::filesystem::path& path, bool bDiskBased) override;
    bool SaveToFile(const std::filesystem::path& path, bool bPrepare, std::uint16_t flags) override;
    std::uint16_t GetValue(std::uint64_t index, bool bWholeBlock) override;
    bool Update(std::uint64_t index, std::uint16_t element) override;
    TUnpackedTable DecompressAll() override;
    std::uint16_t FindMaxValue(std::vector<std::uint64_t>& indexes, std::size_t limit) override;
    bool Pack(std::uint64_t elementCount, const void* pSource, bool bShrink, std::uint32_t minRoom,
              std::uint32_t reserve, std::uint32_t repeats) override;
    std::uint64_t GetPackedSize() const override;
    std::uint64_t GetMemoryUsed() const override;
    void PrepareSave() override {}
    void ClearUpdates() override {}
    void SetUserValue(std::uint32_t value) override { m_userValue = value; }
    std::uint32_t GetUserValue() const override { return m_userValue; }
    std::uint32_t GetBlockSize() const override { return BlockSize; }
    bool IsDiskBased() const override { return m_file.IsOpen(); }
    bool PackFile(const std::filesystem::path& path, const CRandomAccessFile& source,
                  std::uint64_t elementCount, std::uint16_t flags) override;
    std::uint32_t GetElementSize() const override { return sizeof(TElement); }

  private:
    static_assert(Reserved1 == 0 && Reserved2 == 0 && (SeveralThreads != 0 || Slots == 1));
    using TDecoder = CLzwBlockDecoder<TElement, BlockSize>;
    static constexpr std::uint32_t NoBlock = 0xFFFFFFFF;

    /// One reader's workplace.
    struct TWork {
        explicit TWork(bool bPlainDictionary) : decoder(bPlainDictionary) {}

        TDecoder decoder;
        std::vector<std::uint8_t> packed;  ///< The block, when disk based.
        std::uint32_t block = NoBlock;     ///< What the decoder stands in.
    };

    bool Load(const std::filesystem::path& path, bool bDiskBased);
    std::unique_ptr<TWork> MakeWork() const;
    TWork& WorkOf(std::size_t slot);
    void Clear();
    /// Begins a block; false if the disk fails.
    bool StartBlock(TWork& work, std::uint32_t block) const;
    /// The decoder stands at the end of the block. Throws ChessException if it is damaged.
    std::span<const TElement> WholeBlock(TWork& work, std::uint32_t block) const;
    [[noreturn]] void ThrowDamaged(std::uint32_t block) const;
    template <typename TBody>
    bool Write(TBody body) const;

    bool m_bPlainDictionary;
    TUserDialog* m_pDialog;
    std::string m_name;  ///< Of the file, for messages.
    TPackedTableHeader m_header;
    std::uint32_t m_userValue = 0;
    /// Head, offsets and, unless disk based, the blocks; then TDecoder::Slack bytes. Empty for no table.
    std::vector<std::uint8_t> m_packed;
    CRandomAccessFile m_file;
    CBlockSlots m_slots;
    /// By slot; null for one that nobody has used yet. Whoever has the slot may touch its place.
    std::array<std::unique_ptr<TWork>, Slots> m_works;
};

/// What reads a file is chosen by its head.
template <typename TElement, std::uint32_t BlockSize>
using CPackedTableReader = CRandomAccessLZWBuffer<TElement, BlockSize, 0, 8, 1, 0>;
/// All files are written with large blocks, and with the plain dictionary.
template <typename TElement>
using CPackedTableWriter = CRandomAccessLZWBuffer<TElement, LargePackedBlock, 0, 1, 0, 0>;

/// What is known of a table before its packed file is opened.
struct TPackedTableDemand {
    std::size_t letters = 0;         ///< Of its type; two-byte elements need four.
    std::uint64_t elementCount = 0;  ///< Of its type; 0 takes any file.
    bool bDiskBased = false;         ///< Whatever its size.
    std::uint64_t quota = 0;  ///< Bytes for all tables. A file beyond a quarter stays on disk.
};

struct TOpenedPackedTable {
    std::unique_ptr<CRandomAccessPackedBufferBase> pBuffer;  ///< Null if the file cannot be used.
    std::uint16_t flags = 0;                                 ///< TTableFlags of the head.
    std::string reason;  ///< Why there is no buffer, for the user.
};

/// Opens a packed file for reading by several threads. The dialog may be null.
TOpenedPackedTable OpenPackedTable(const std::filesystem::path& path,
                                   const TPackedTableDemand& demand, TUserDialog* pDialog);

/// For packing a table of such elements, 1 or 2 bytes each. The dialog may be null.
std::unique_ptr<CRandomAccessPackedBufferBase> MakePackedTableWriter(std::size_t elementSize,
                                                                     TUserDialog* pDialog);

}  // namespace tarnwick::RandomAccessLZWBuffer
