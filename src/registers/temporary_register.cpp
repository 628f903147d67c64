#include "registers/temporary_register.h"

#include <algorithm>

namespace tarnwick {
namespace {

/// Plies too few to be worth memory once that has become short.
constexpr std::uint16_t ShortMoverPlies = 4;

TRecordValues WithResult(TRecordValues values, std::uint16_t nMoves, bool bThereIsMate) {
    if (!bThereIsMate) {
        values.m_second = std::max(values.m_second, nMoves);
    } else if (values.m_first == 0 || nMoves < values.m_first) {
        values.m_first = nMoves;
    }
    return values;
}

TRegisterResult ResultOf(std::uint16_t nMoves, TRecordValues values) {
    if (values.m_second != 0 && nMoves <= values.m_second) {
        return TRegisterResult::NoMate;
    }
    return values.m_first != 0 && nMoves >= values.m_first ? TRegisterResult::Mate
                                                           : TRegisterResult::Unknown;
}

bool IsContradiction(TRecordValues values) {
    return values.m_first != 0 && values.m_second >= values.m_first;
}

}  // namespace

template <int Layer>
TTemporaryChessboardRegister<Layer>::TTemporaryChessboardRegister(
    TChessboardRegister<bool>* pOwner) noexcept {
    m_pOwner = pOwner;
    bNoFile = true;
}

// --- Queries ---

template <int Layer>
TRecordValues TTemporaryChessboardRegister<Layer>::FindValues(
    const TChessboardRegisterItem& position, TPositionHash hash) const noexcept {
    const TRegisterReadGuard guard(m_tableLock);
    const TRecordNumber record = m_map.Find(position, hash);
    return record == NoRecord ? TRecordValues{} : m_map.Values(record);
}

template <int Layer>
TRegisterResult TTemporaryChessboardRegister<Layer>::QueryNoMate(
    std::uint16_t nMoves, const TChessboardRegisterItem& position,
    TPositionHash hash) const noexcept {
    const TRecordValues values = FindValues(position, hash);
    return values.m_second != 0 && nMoves <= values.m_second ? TRegisterResult::NoMate
                                                             : TRegisterResult::Unknown;
}

template <int Layer>
TRegisterResult TTemporaryChessboardRegister<Layer>::Query(std::uint16_t nMoves,
                                                           const TChessboardRegisterItem& position,
                                                           TPositionHash hash) const noexcept {
    return ResultOf(nMoves, FindValues(position, hash));
}

template <int Layer>
std::optional<TRegisterResult> TTemporaryChessboardRegister<Layer>::QuerySoon(
    std::uint16_t nMoves, const TChessboardRegisterItem& position,
    TPositionHash hash) const noexcept {
    if (!m_tableLock.LockReadSoon()) {
        return std::nullopt;
    }
    const TRecordNumber record = m_map.Find(position, hash);
    const TRecordValues values = record == NoRecord ? TRecordValues{} : m_map.Values(record);
    m_tableLock.UnlockRead();
    return ResultOf(nMoves, values);
}

template <int Layer>
TRegisterResult TTemporaryChessboardRegister<Layer>::QueryQuickerMate(
    std::uint16_t nMoves, std::uint16_t nMovesExtended, const TChessboardRegisterItem& position,
    TPositionHash hash) const noexcept {
    const TRecordValues values = FindValues(position, hash);
    if (values.m_second != 0 && nMoves <= values.m_second) {
        return TRegisterResult::NoMate;
    }
    if (values.m_first == 0) {
        return TRegisterResult::Unknown;
    }
    if (nMoves >= values.m_first) {
        return TRegisterResult::Mate;
    }
    return nMoves >= nMovesExtended ? TRegisterResult::QuickerMate : TRegisterResult::Unknown;
}

// --- Inserts ---

template <int Layer>
std::optional<TRecordValues> TTemporaryChessboardRegister<Layer>::InsertResult(
    std::uint16_t nMoves, const TChessboardRegisterItem& position, TPositionHash hash,
    bool bThereIsMate, TOnContradiction onContradiction) {
    const TRegisterWriteGuard guard(m_tableLock);
    if (!bKeepShortMovers && nMoves < ShortMoverPlies) {
        return {};
    }
    m_map.Prefetch(hash);
    std::uint64_t* pBucket = m_map.BucketOf(position);
    const TRecordNumber record = m_map.Find(position, hash);
    if (record == NoRecord) {
        m_map.Add(pBucket, position, hash, WithResult({}, nMoves, bThereIsMate));
        m_tableElements = m_map.RecordCount();
        return {};
    }
    TRecordValues values = WithResult(m_map.Values(record), nMoves, bThereIsMate);
    const bool bContradiction = IsContradiction(values);
    if (bContradiction && onContradiction == TOnContradiction::MateWins) {
        values.m_second =
            values.m_first == 1 ? std::uint16_t{0} : static_cast<std::uint16_t>(values.m_first - 2);
    }
    m_map.SetValues(record, values);
    if (bContradiction && onContradiction == TOnContradiction::Keep) {
        return values;
    }
    return {};
}

template <int Layer>
bool TTemporaryChessboardRegister<Layer>::InsertRaw(std::uint16_t nMoves,
                                                    const TChessboardRegisterItem& position,
                                                    TPositionHash hash, bool bFirst) {
    const TRegisterWriteGuard guard(m_tableLock);
    if (!bKeepShortMovers && nMoves < ShortMoverPlies) {
        return false;
    }
    m_map.Prefetch(hash);
    std::uint64_t* pBucket = m_map.BucketOf(position);
    const TRecordNumber record = m_map.Find(position, hash);
    TRecordValues values = record == NoRecord ? TRecordValues{} : m_map.Values(record);
    std::uint16_t& raised = bFirst ? values.m_first : values.m_second;
    raised = std::max(raised, nMoves);
    if (record != NoRecord) {
        m_map.SetValues(record, values);
        return false;
    }
    const bool bAdded = m_map.Add(pBucket, position, hash, values);
    m_tableElements = m_map.RecordCount();
    return bAdded;
}

template <int Layer>
bool TTemporaryChessboardRegister<Layer>::CanTakeMore() noexcept {
    const TRegisterWriteGuard guard(m_tableLock);
    return m_map.CanTakeMore();
}

// --- Removal ---

template <int Layer>
std::uint32_t TTemporaryChessboardRegister<Layer>::SweepTable(std::uint16_t maxFirst,
                                                              std::uint16_t maxSecond) noexcept {
    const TRegisterWriteGuard guard(m_tableLock);
    const std::uint32_t removed = m_map.Sweep(maxFirst, maxSecond);
    m_tableElements = m_map.RecordCount();
    return removed;
}

template <int Layer>
std::uint32_t TTemporaryChessboardRegister<Layer>::SetTableBuckets(std::uint32_t count,
                                                                   bool bKeepIfSame) {
    const TRegisterWriteGuard guard(m_tableLock);
    const bool bSame = m_map.BucketCount() == count;
    if (bSame && bKeepIfSame) {
        return 0;
    }
    const std::uint32_t lost = m_tableElements.exchange(0);
    if (bSame) {
        m_map.Clear(true, {});
    } else {
        m_map.SetBucketCount(count);
    }
    return lost;
}

template <int Layer>
std::uint32_t TTemporaryChessboardRegister<Layer>::ClearTable(bool bKeepBuckets,
                                                              const TClearProgress& onChunk) {
    const TRegisterWriteGuard guard(m_tableLock);
    const std::uint32_t removed = m_map.RecordCount();
    m_map.Clear(bKeepBuckets, [&](std::uint32_t fromChunk) {
        m_tableElements = m_map.RecordCount();
        if (onChunk) {
            onChunk(fromChunk);
        }
    });
    return removed;
}

// --- Saving and figures ---

template <int Layer>
bool TTemporaryChessboardRegister<Layer>::VisitInFileOrder(const TValuesWanted& wanted,
                                                           const TRecordVisitor& visit) const {
    const TRegisterReadGuard guard(m_tableLock);
    return m_map.VisitInFileOrder(wanted, visit);
}

template <int Layer>
std::uint32_t TTemporaryChessboardRegister<Layer>::BucketCount() const noexcept {
    const TRegisterReadGuard guard(m_tableLock);
    return m_map.BucketCount();
}

template <int Layer>
std::uint64_t TTemporaryChessboardRegister<Layer>::BytesUsed() const noexcept {
    const TRegisterReadGuard guard(m_tableLock);
    return m_map.BytesUsed();
}

template <int Layer>
std::optional<std::uint64_t> TTemporaryChessboardRegister<Layer>::BytesUsedSoon() const noexcept {
    if (!m_tableLock.LockReadSoon()) {
        return std::nullopt;
    }
    const std::uint64_t bytes = m_map.BytesUsed();
    m_tableLock.UnlockRead();
    return bytes;
}

template class TTemporaryChessboardRegister<0>;
template class TTemporaryChessboardRegister<1>;

}  // namespace tarnwick
