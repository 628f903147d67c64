#pragma once
// CTableStore: the values of one loaded table, by the place where they are kept. The register of a type asks
// here without knowing whether memory, a disk or a packed buffer stands behind it.
//
// ValueAt is for any thread. A value that cannot be read is NotGenerated: the search then does without.

#include <cstdint>
#include <memory>
#include <mutex>
#include <variant>
#include <vector>

#include "platform/page_memory.h"
#include "platform/random_access_file.h"

#include "tables/random_access_packed_buffer.h"
#include "tables/table_values.h"
#include "tables/two_bit_table.h"

namespace tarnwick {

/// The largest value of a table and where it stands.
struct TLargestValue {
    unsigned value = 0;
    std::vector<std::uint64_t> indexes;  ///< Ascending.
};

class CTableStore : public CTableValues {
  public:
    /// Bytes of memory that the quota counts; `count`: indices of the type. Elements are counted as bytes.
    virtual std::uint64_t ResidentSize(std::uint64_t count) const { return count; }
    /// Writes a stored value, for repairs; a thread that asks meanwhile gets the old value or the new one. Throws
    /// ChessException where this kind of table, or a table of such small elements, cannot be changed.
    virtual void SetValueAt(std::uint64_t index, unsigned value) = 0;
    /// The largest value, NotGenerated and index 0 apart, with up to `limit` of its places.
    virtual TLargestValue FindLargest(std::uint64_t count, std::size_t limit) const = 0;
    /// The elements, where they lie in memory in one piece; null elsewhere.
    virtual const std::uint8_t* Elements() const { return nullptr; }
    /// Whether the values are lengths of mates; of a two-bit table only its generator knows what they mean.
    virtual bool HasLengths() const { return true; }
    virtual bool IsOnDisk() const { return false; }
    virtual bool IsPacked() const { return false; }
};

/// A table held whole; elements of 1 or 2 bytes, little-endian.
class CMemoryStore final : public CTableStore {
  public:
    /// Whoever read the table brings its memory along.
    using TOwner =
        std::variant<CPageMemory, std::vector<std::uint8_t>, std::unique_ptr<std::uint8_t[]>>;

    CMemoryStore(TOwner owner, int elementSize);
    unsigned ValueAt(std::uint64_t index) const override;
    int ElementSize() const override { return m_elementSize; }
    void SetValueAt(std::uint64_t index, unsigned value) override;
    TLargestValue FindLargest(std::uint64_t count, std::size_t limit) const override;
    const std::uint8_t* Elements() const override { return m_pElements; }

  private:
    std::uint16_t& TwoBytesAt(std::uint64_t index) const;

    TOwner m_owner;
    std::uint8_t* m_pElements;
    int m_elementSize;
};

/// Each value is read from the file when it is asked for.
class CDiskStore final : public CTableStore {
  public:
    CDiskStore(CRandomAccessFile file, int elementSize)
        : m_file(std::move(file)), m_elementSize(elementSize) {}
    unsigned ValueAt(std::uint64_t index) const override;
    void ReadValues(std::uint64_t first, std::span<std::uint16_t> values) const override;
    int ElementSize() const override { return m_elementSize; }
    void SetValueAt(std::uint64_t index, unsigned value) override;
    TLargestValue FindLargest(std::uint64_t count, std::size_t limit) const override;
    std::uint64_t ResidentSize(std::uint64_t) const override { return 0; }
    bool IsOnDisk() const override { return true; }
    const CRandomAccessFile& File() const { return m_file; }

  private:
    CRandomAccessFile m_file;
    int m_elementSize;
};

class CTwoBitStore final : public CTableStore {
  public:
    explicit CTwoBitStore(std::unique_ptr<CTwoBitTable> pTable) : m_pTable(std::move(pTable)) {}
    unsigned ValueAt(std::uint64_t index) const override { return m_pTable->ValueAt(index); }
    void SetValueAt(std::uint64_t index, unsigned value) override {
        m_pTable->Add(index, static_cast<std::uint8_t>(value));
    }
    TLargestValue FindLargest(std::uint64_t, std::size_t) const override { return {}; }
    std::uint64_t ResidentSize(std::uint64_t count) const override { return count / 4; }
    bool HasLengths() const override { return false; }

  private:
    std::unique_ptr<CTwoBitTable> m_pTable;
};

/// Packed blocks, in memory or on disk.
class CPackedStore final : public CTableStore {
  public:
    using TBuffer = RandomAccessLZWBuffer::CRandomAccessPackedBufferBase;

    explicit CPackedStore(std::unique_ptr<TBuffer> pBuffer) : m_pBuffer(std::move(pBuffer)) {}
    unsigned ValueAt(std::uint64_t index) const override;
    void SetValueAt(std::uint64_t index, unsigned value) override;
    TLargestValue FindLargest(std::uint64_t count, std::size_t limit) const override;
    int ElementSize() const override { return static_cast<int>(m_pBuffer->GetElementSize()); }
    std::uint64_t ResidentSize(std::uint64_t) const override { return m_pBuffer->GetMemoryUsed(); }
    bool IsPacked() const override { return true; }
    TBuffer& Buffer() const { return *m_pBuffer; }

  private:
    std::unique_ptr<TBuffer> m_pBuffer;
};

}  // namespace tarnwick
