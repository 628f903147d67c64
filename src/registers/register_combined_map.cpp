// A bucket is one word: bit 63 marks a tree; the others are 0 then, as the records of trees are found by
// looking through all records. For a vector bits 32 to 35 are its size and the lower half is its last
// record; the links of its records form a ring in order of arrival, the last one linking to the first.
//
// Tried and dropped: real vectors and trees behind pointers. A lookup then follows five pointers or more
// in the crowded buckets, and the nodes cost more memory than the index.

#include "registers/register_combined_map.h"

#include <algorithm>
#include <new>
#include <set>

namespace tarnwick {
namespace {

constexpr std::uint64_t TreeMark = std::uint64_t{1} << 63;

constexpr bool IsTree(std::uint64_t bucket) {
    return (bucket & TreeMark) != 0;
}
constexpr std::uint32_t VectorSize(std::uint64_t bucket) {
    return static_cast<std::uint32_t>(bucket >> 32) & 0xF;
}
constexpr TRecordNumber LastOf(std::uint64_t bucket) {
    return static_cast<TRecordNumber>(bucket);
}
constexpr std::uint64_t VectorBucket(std::uint32_t size, TRecordNumber last) {
    return size == 0 ? 0 : std::uint64_t{size} << 32 | last;
}

bool IsWithin(TRecordValues values, std::uint16_t maxFirst, std::uint16_t maxSecond) {
    return values.m_first <= maxFirst && values.m_second <= maxSecond;
}

}  // namespace

// --- Adding ---

void TRegisterCombinedMap::SetBucketCount(std::uint32_t count) {
    Clear(false, {});
    m_bucketMemory = CPageMemory(std::size_t{count} * sizeof(std::uint64_t), false);
    m_bucketCount = count;
}

std::span<std::uint64_t> TRegisterCombinedMap::Buckets() const noexcept {
    return {static_cast<std::uint64_t*>(m_bucketMemory.Data()), m_bucketCount};
}

std::uint32_t& TRegisterCombinedMap::LengthCount(TRecordValues values) noexcept {
    const std::size_t length = std::max(values.m_first, values.m_second);
    return m_lengthCounts[std::min(length, LengthClasses - 1)];
}

void TRegisterCombinedMap::SetValues(TRecordNumber record, TRecordValues values) noexcept {
    --LengthCount(m_records.Values(record));
    ++LengthCount(values);
    m_records.SetValues(record, values);
}

std::uint64_t* TRegisterCombinedMap::BucketOf(
    const TChessboardRegisterItem& position) const noexcept {
    if (m_bucketCount == 0) {
        return nullptr;
    }
    std::uint64_t* pBucket = &Buckets()[BucketHash(position) & (m_bucketCount - 1)];
    __builtin_prefetch(pBucket, 1);
    return pBucket;
}

bool TRegisterCombinedMap::Add(std::uint64_t* pBucket, const TChessboardRegisterItem& position,
                               TPositionHash hash, TRecordValues values) {
    if (pBucket == nullptr) {
        return false;
    }
    m_records.ReserveOne();
    m_index.ReserveOne();
    const TRecordNumber record = m_records.Take();
    m_records.Position(record) = position;
    m_records.SetValues(record, values);
    m_index.Insert(hash, record);
    LinkRecord(record, *pBucket);
    ++LengthCount(values);
    return true;
}

bool TRegisterCombinedMap::CanTakeMore() noexcept {
    if (m_records.Count() == 0) {
        return true;
    }
    try {
        m_records.ReserveOne();
        m_index.ReserveOne();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void TRegisterCombinedMap::LinkRecord(TRecordNumber record, std::uint64_t& bucket) noexcept {
    if (!IsTree(bucket) && VectorSize(bucket) == VectorCapacity) {
        TurnIntoTree(bucket);
    }
    if (IsTree(bucket)) {
        m_records.SetLink(record, TRegisterRecords::TreeLink);
        return;
    }
    const std::uint32_t size = VectorSize(bucket);
    if (size == 0) {
        m_records.SetLink(record, record);
    } else {
        m_records.SetLink(record, m_records.Link(LastOf(bucket)));
        m_records.SetLink(LastOf(bucket), record);
    }
    bucket = VectorBucket(size + 1, record);
    ++m_vectorRecords;
}

void TRegisterCombinedMap::TurnIntoTree(std::uint64_t& bucket) noexcept {
    TRecordNumber record = LastOf(bucket);
    for (std::uint32_t i = 0; i < VectorCapacity; ++i) {
        const TRecordNumber next = m_records.Link(record);
        m_records.SetLink(record, TRegisterRecords::TreeLink);
        record = next;
    }
    m_vectorRecords -= VectorCapacity;
    bucket = TreeMark;
}

// --- Sweeping ---

bool TRegisterCombinedMap::MayHoldWithin(std::uint16_t limit) const noexcept {
    const std::size_t classes = std::min<std::size_t>(limit + std::size_t{1}, LengthClasses);
    return std::any_of(m_lengthCounts.begin(),
                       m_lengthCounts.begin() + static_cast<std::ptrdiff_t>(classes),
                       [](std::uint32_t count) { return count != 0; });
}

void TRegisterCombinedMap::RemoveRecord(TRecordNumber record, TPositionHash hash) noexcept {
    m_index.Erase(hash, record);
    --LengthCount(m_records.Values(record));
    m_records.Free(record);
}

std::uint32_t TRegisterCombinedMap::Sweep(std::uint16_t maxFirst,
                                          std::uint16_t maxSecond) noexcept {
    if (!MayHoldWithin(std::max(maxFirst, maxSecond))) {
        return 0;
    }
    std::uint32_t removed = 0;
    if (m_vectorRecords != 0) {
        removed += SweepVectors(maxFirst, maxSecond);
    }
    if (m_vectorRecords != m_records.Count()) {
        removed += SweepTrees(maxFirst, maxSecond);
    }
    return removed;
}

std::uint32_t TRegisterCombinedMap::SweepTrees(std::uint16_t maxFirst,
                                               std::uint16_t maxSecond) noexcept {
    // Every removal touches two or three lines of memory far apart. In batches they come all at once.
    std::array<TRecordNumber, 64> batch;
    std::size_t size = 0;
    std::uint32_t removed = 0;
    for (std::uint32_t chunk = 0; chunk < m_records.ChunkCount(); ++chunk) {
        const std::span<const TRecordValues> values = m_records.ChunkValues(chunk);
        for (std::uint32_t i = 0; i < values.size(); ++i) {
            if (!IsWithin(values[i], maxFirst, maxSecond)) {
                continue;
            }
            const TRecordNumber record = chunk << TRegisterRecords::ChunkBits | i;
            if (m_records.Link(record) != TRegisterRecords::TreeLink) {
                continue;
            }
            m_records.PrefetchPosition(record);
            batch[size++] = record;
            if (size == batch.size()) {
                RemoveTreeRecords(batch);
                removed += static_cast<std::uint32_t>(std::exchange(size, 0));
            }
        }
    }
    RemoveTreeRecords({batch.data(), size});
    return removed + static_cast<std::uint32_t>(size);
}

void TRegisterCombinedMap::RemoveTreeRecords(std::span<const TRecordNumber> records) noexcept {
    std::array<TPositionHash, 64> hashes;
    for (std::size_t i = 0; i < records.size(); ++i) {
        hashes[i] = HashOf(m_records.Position(records[i]));
        m_index.Prefetch(hashes[i]);
    }
    for (std::size_t i = 0; i < records.size(); ++i) {
        RemoveRecord(records[i], hashes[i]);
    }
}

std::uint32_t TRegisterCombinedMap::SweepVectors(std::uint16_t maxFirst,
                                                 std::uint16_t maxSecond) noexcept {
    std::uint32_t removed = 0;
    for (std::uint64_t& bucket : Buckets()) {
        if (!IsTree(bucket) && VectorSize(bucket) != 0) {
            removed += SweepVector(bucket, maxFirst, maxSecond);
        }
    }
    m_vectorRecords -= removed;
    return removed;
}

std::uint32_t TRegisterCombinedMap::SweepVector(std::uint64_t& bucket, std::uint16_t maxFirst,
                                                std::uint16_t maxSecond) noexcept {
    const std::uint32_t size = VectorSize(bucket);
    std::array<TRecordNumber, VectorCapacity> records;
    TRecordNumber record = LastOf(bucket);
    for (std::uint32_t i = 0; i < size; ++i) {
        record = m_records.Link(record);
        records[i] = record;
    }
    std::uint32_t kept = 0;
    for (std::uint32_t i = 0; i < size; ++i) {
        if (IsWithin(m_records.Values(records[i]), maxFirst, maxSecond)) {
            RemoveRecord(records[i], HashOf(m_records.Position(records[i])));
            if (++i == size) {
                break;
            }
        }
        records[kept++] = records[i];  // after a removal: its neighbour, untested
    }
    for (std::uint32_t i = 0; kept != size && i < kept; ++i) {
        m_records.SetLink(records[i], records[(i + 1) % kept]);
    }
    bucket = VectorBucket(kept, kept == 0 ? 0 : records[kept - 1]);
    return size - kept;
}

// --- Clearing ---

void TRegisterCombinedMap::Clear(bool bKeepBuckets, const TClearProgress& onChunk) {
    if (bKeepBuckets && !m_records.HasChunks()) {
        return;  // nothing came since the last time: passes end often with nothing to remember
    }
    m_index.Clear();
    m_lengthCounts = {};
    m_vectorRecords = 0;
    if (bKeepBuckets) {
        m_bucketMemory.Reset();
    } else {
        m_bucketMemory = CPageMemory();
        m_bucketCount = 0;
    }
    while (m_records.HasChunks()) {
        const std::uint32_t removed = m_records.DropLastChunk();
        if (onChunk) {
            onChunk(removed);
        }
    }
}

// --- Visiting ---

/// The wanted records of tree buckets, grouped by bucket: those of bucket b begin at m_begin[b].
struct TRegisterCombinedMap::TTreeGroups {
    std::vector<std::uint32_t> m_begin;  ///< One more than there are buckets.
    std::vector<TRecordNumber> m_records;
};

TRegisterCombinedMap::TTreeGroups TRegisterCombinedMap::GroupTreeRecords(
    const TValuesWanted& wanted) const {
    const auto visitWanted = [&](const auto& use) {
        for (std::uint32_t chunk = 0; chunk < m_records.ChunkCount(); ++chunk) {
            const std::span<const TRecordValues> values = m_records.ChunkValues(chunk);
            for (std::uint32_t i = 0; i < values.size(); ++i) {
                const TRecordNumber record = chunk << TRegisterRecords::ChunkBits | i;
                if (m_records.Link(record) == TRegisterRecords::TreeLink && wanted(values[i])) {
                    use(record, BucketHash(m_records.Position(record)) & (m_bucketCount - 1));
                }
            }
        }
    };
    TTreeGroups groups;
    groups.m_begin.resize(m_bucketCount + std::size_t{1});
    std::uint32_t total = 0;
    visitWanted([&](TRecordNumber, std::uint32_t bucket) {
        ++groups.m_begin[bucket];
        ++total;
    });
    groups.m_records.resize(total);
    // Each bucket's end first; filling from behind then leaves its beginning.
    for (std::size_t bucket = 1; bucket < groups.m_begin.size(); ++bucket) {
        groups.m_begin[bucket] += groups.m_begin[bucket - 1];
    }
    visitWanted([&](TRecordNumber record, std::uint32_t bucket) {
        groups.m_records[--groups.m_begin[bucket]] = record;
    });
    return groups;
}

bool TRegisterCombinedMap::VisitVector(std::uint64_t bucket, const TValuesWanted& wanted,
                                       const TRecordVisitor& visit) const {
    TRecordNumber record = LastOf(bucket);
    for (std::uint32_t i = 0; i < VectorSize(bucket); ++i) {
        record = m_records.Link(record);
        const TRecordValues values = m_records.Values(record);
        if (wanted(values) && !visit(m_records.Position(record), values)) {
            return false;
        }
    }
    return true;
}

bool TRegisterCombinedMap::VisitTree(std::span<const TRecordNumber> records,
                                     const TRecordVisitor& visit) const {
    // The order of keys may go round in circles, which a search tree survives and std::sort does not.
    const auto isBefore = [this](TRecordNumber a, TRecordNumber b) {
        return TRegisterItemOrder()(m_records.Position(a), m_records.Position(b));
    };
    const std::set<TRecordNumber, decltype(isBefore)> tree(records.rbegin(), records.rend(),
                                                           isBefore);
    return std::all_of(tree.begin(), tree.end(), [&](TRecordNumber record) {
        return visit(m_records.Position(record), m_records.Values(record));
    });
}

bool TRegisterCombinedMap::VisitInFileOrder(const TValuesWanted& wanted,
                                            const TRecordVisitor& visit) const {
    const TTreeGroups groups = GroupTreeRecords(wanted);
    for (std::uint32_t i = 0; i < m_bucketCount; ++i) {
        const std::uint32_t begin = groups.m_begin[i];
        const std::span<const TRecordNumber> treeRecords(groups.m_records.data() + begin,
                                                         groups.m_begin[i + 1] - begin);
        const std::uint64_t bucket = Buckets()[i];
        const bool bGoOn =
            IsTree(bucket) ? VisitTree(treeRecords, visit) : VisitVector(bucket, wanted, visit);
        if (!bGoOn) {
            return false;
        }
    }
    return true;
}

std::uint64_t TRegisterCombinedMap::BytesUsed() const noexcept {
    return m_records.BytesUsed() + m_index.BytesUsed() + m_bucketMemory.Size();
}

}  // namespace tarnwick
