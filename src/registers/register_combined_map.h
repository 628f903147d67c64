#pragma once
// TRegisterCombinedMap: the table of one temporary register, from positions to two numbers of plies.
//
// Logically it is an array of buckets, chosen by BucketHash. A bucket begins as a vector of at most 8
// records in order of arrival; the ninth record turns it into a tree for good. Buckets decide the order
// in files and what a sweep removes, and nothing else: BucketHash is so uneven that looking positions up
// in buckets would be slow. Records stand in numbered slots (register_records.h) and are found through
// an index of their own (position_index.h).
//
// No lock of its own: any number of readers, or one writer. Only Prefetch may run beside a writer.

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/page_memory.h"

#include "registers/chessboard_register_item.h"
#include "registers/position_index.h"
#include "registers/register_records.h"

namespace tarnwick {

/// Called during a clearing with the number of records that went since the call before.
using TClearProgress = std::function<void(std::uint32_t removed)>;
/// Whether records with these values are to be visited.
using TValuesWanted = std::function<bool(TRecordValues values)>;
/// Gets a record; false stops the visit.
using TRecordVisitor =
    std::function<bool(const TChessboardRegisterItem& position, TRecordValues values)>;

class TRegisterCombinedMap {
  public:
    /// Records that a bucket holds as a vector.
    static constexpr std::uint32_t VectorCapacity = 8;

    /// Empties the map and gives it that many buckets, a power of two. Throws std::bad_alloc; the map is
    /// then without buckets.
    void SetBucketCount(std::uint32_t count);
    std::uint32_t BucketCount() const noexcept { return m_bucketCount; }

    /// Number of the record of the position, NoRecord if there is none.
    TRecordNumber Find(const TChessboardRegisterItem& position, TPositionHash hash) const noexcept {
        return m_index.Find(hash, [&](TRecordNumber record) {
            m_records.PrefetchValues(record);  // what the caller asks for next
            return m_records.Position(record) == position;
        });
    }
    TRecordValues Values(TRecordNumber record) const noexcept { return m_records.Values(record); }
    void SetValues(TRecordNumber record, TRecordValues values) noexcept;
    /// The bucket of a position, for Add. Brings it near, so ask before Find.
    std::uint64_t* BucketOf(const TChessboardRegisterItem& position) const noexcept;
    /// Adds a position that is not in the map to its bucket. A map without buckets stores nothing and
    /// returns false. Throws std::bad_alloc with nothing changed.
    bool Add(std::uint64_t* pBucket, const TChessboardRegisterItem& position, TPositionHash hash,
             TRecordValues values);
    /// Whether the next Add will find memory. An empty map says yes.
    bool CanTakeMore() noexcept;
    void Prefetch(TPositionHash hash) const noexcept { m_index.Prefetch(hash); }

    /// Removes records with First at most maxFirst and Second at most maxSecond; their number. Every such
    /// record of a tree bucket goes. In a vector bucket the record behind each removed one is passed
    /// over and stays, whatever it holds: a sweep is repeated with rising limits anyway.
    std::uint32_t Sweep(std::uint16_t maxFirst, std::uint16_t maxSecond) noexcept;

    /// Removes all records and gives their memory back. Without bKeepBuckets the map has no buckets
    /// afterwards. onChunk may be empty.
    void Clear(bool bKeepBuckets, const TClearProgress& onChunk);

    /// Visits the wanted records bucket by bucket, a vector in its order, a tree in the order of keys.
    /// False if visit stopped it. Needs four bytes a wanted record and throws std::bad_alloc.
    bool VisitInFileOrder(const TValuesWanted& wanted, const TRecordVisitor& visit) const;

    std::uint32_t RecordCount() const noexcept { return m_records.Count(); }
    /// Bytes of memory in use: records ever used at once, index, buckets.
    std::uint64_t BytesUsed() const noexcept;

  private:
    static constexpr std::size_t LengthClasses = 1024;

    std::span<std::uint64_t> Buckets() const noexcept;
    std::uint32_t& LengthCount(TRecordValues values) noexcept;
    bool MayHoldWithin(std::uint16_t limit) const noexcept;
    void RemoveRecord(TRecordNumber record, TPositionHash hash) noexcept;
    void LinkRecord(TRecordNumber record, std::uint64_t& bucket) noexcept;
    void TurnIntoTree(std::uint64_t& bucket) noexcept;
    std::uint32_t SweepTrees(std::uint16_t maxFirst, std::uint16_t maxSecond) noexcept;
    std::uint32_t SweepVectors(std::uint16_t maxFirst, std::uint16_t maxSecond) noexcept;
    std::uint32_t SweepVector(std::uint64_t& bucket, std::uint16_t maxFirst,
                              std::uint16_t maxSecond) noexcept;
    void RemoveTreeRecords(std::span<const TRecordNumber> records) noexcept;
    struct TTreeGroups;
    TTreeGroups GroupTreeRecords(const TValuesWanted& wanted) const;
    bool VisitVector(std::uint64_t bucket, const TValuesWanted& wanted,
                     const TRecordVisitor& visit) const;
    bool VisitTree(std::span<const TRecordNumber> records, const TRecordVisitor& visit) const;

    TRegisterRecords m_records;
    CPositionIndex m_index;
    CPageMemory m_bucketMemory;  ///< One 64-bit word a bucket.
    std::uint32_t m_bucketCount = 0;
    std::uint32_t m_vectorRecords = 0;  ///< Records in vector buckets.
    /// Records by their greater value, the last class taking all from there on: a sweep that would find
    /// nothing ends at once.
    std::array<std::uint32_t, LengthClasses> m_lengthCounts{};
};

}  // namespace tarnwick
