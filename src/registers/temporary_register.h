#pragma once
// TTemporaryChessboardRegister: one layer of the temporary register, a combined map under a lock of its
// own.
//
// Layer 0 is the exact one: `First` is the smallest number of plies in which mate is known, `Second` the
// greatest for which no mate is known. Layer 1 is doubtful data of one set of special heuristics:
// `Second` is the greatest number of plies for which a pass came to no mate under them, `First` the
// greatest depth limit up to which a bounded trial found no way out. 0 means nothing known.
//
// Any thread; every operation takes the table's lock.

#include <atomic>
#include <cstdint>
#include <optional>

#include "registers/chessboard_register.h"
#include "registers/register_combined_map.h"

namespace tarnwick {

template <int Layer>
class TTemporaryChessboardRegister : public TChessboardRegister<bool> {
  public:
    /// pOwner: the aggregate that a doubtful layer belongs to, or null.
    explicit TTemporaryChessboardRegister(TChessboardRegister<bool>* pOwner = nullptr) noexcept;

    std::uint32_t ElementCount() const noexcept override { return m_tableElements.load(); }

    /// Mate, NoMate or Unknown.
    TRegisterResult Query(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                          TPositionHash hash) const noexcept;
    /// The same for those who must not wait: nothing while the table is swept, cleared or written to a file.
    std::optional<TRegisterResult> QuerySoon(std::uint16_t nMoves,
                                             const TChessboardRegisterItem& position,
                                             TPositionHash hash) const noexcept;
    /// NoMate or Unknown: what a doubtful layer may say.
    TRegisterResult QueryNoMate(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                                TPositionHash hash) const noexcept;
    /// Query for a search that deepens towards a quicker mate with nMovesExtended plies.
    TRegisterResult QueryQuickerMate(std::uint16_t nMoves, std::uint16_t nMovesExtended,
                                     const TChessboardRegisterItem& position,
                                     TPositionHash hash) const noexcept;
    /// The two numbers as they stand; both 0 for a position that is not held.
    TRecordValues FindValues(const TChessboardRegisterItem& position,
                             TPositionHash hash) const noexcept;
    /// Brings the memory of a lookup near. Takes no lock.
    void Prefetch(TPositionHash hash) const noexcept { m_map.Prefetch(hash); }

    /// What an insert does when mate in First and no mate in Second >= First meet.
    enum class TOnContradiction {
        MateWins,  ///< Second becomes First - 2, or 0.
        Keep       ///< The values stay and are returned.
    };
    /// Stores a result of the search. Returns the record's values if they contradict each other and were
    /// kept. Throws std::bad_alloc with nothing changed.
    std::optional<TRecordValues> InsertResult(std::uint16_t nMoves,
                                              const TChessboardRegisterItem& position,
                                              TPositionHash hash, bool bThereIsMate,
                                              TOnContradiction onContradiction);
    /// Raises First (bFirst) or Second of the position to nMoves. True if the position is new. Throws
    /// std::bad_alloc with nothing changed.
    bool InsertRaw(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                   TPositionHash hash, bool bFirst);

    /// Whether the next new position will find memory.
    bool CanTakeMore() noexcept;

    /// Removes records with First at most maxFirst and Second at most maxSecond, as
    /// TRegisterCombinedMap::Sweep does; their number.
    std::uint32_t SweepTable(std::uint16_t maxFirst, std::uint16_t maxSecond) noexcept;

    /// Makes the table empty with so many buckets, a power of two. With bKeepIfSame a table of that size
    /// stays as it is. Returns the number of elements lost. Throws std::bad_alloc, the table then empty.
    std::uint32_t SetTableBuckets(std::uint32_t count, bool bKeepIfSame);
    /// Empties the table. onChunk(removed) is called, with the lock held, as memory goes back to the
    /// system: so many elements went since the call before. The element count has fallen by them.
    /// Returns the number of elements removed.
    std::uint32_t ClearTable(bool bKeepBuckets, const TClearProgress& onChunk = {});

    /// Visits the records whose values are wanted, in the order of files. Holds the read lock meanwhile:
    /// visit must not come back to this register. False if visit stopped it.
    bool VisitInFileOrder(const TValuesWanted& wanted, const TRecordVisitor& visit) const;

    std::uint32_t BucketCount() const noexcept;
    /// Memory of the table in bytes, with what finds the records.
    std::uint64_t BytesUsed() const noexcept;
    std::optional<std::uint64_t> BytesUsedSoon() const noexcept;

  private:
    TRegisterCombinedMap m_map;
    std::atomic<std::uint32_t> m_tableElements{0};
    mutable TRegisterLock m_tableLock;
};

extern template class TTemporaryChessboardRegister<0>;
extern template class TTemporaryChessboardRegister<1>;

}  // namespace tarnwick
