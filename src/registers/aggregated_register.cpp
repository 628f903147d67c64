#include "registers/aggregated_register.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>

#include "platform/clock.h"

namespace tarnwick {
namespace {

/// Held by the one thread that makes room, in whichever job.
std::mutex g_emptying;

constexpr std::int64_t MsBetweenEmptyings = 16;
constexpr std::int64_t MsBetweenRepaints = 600;
/// Records of fewer plies are not stored under memory pressure. (With this many the last move but one
/// is still to come, and a search finds the answer sooner than the register.)
constexpr std::uint16_t ShortestPlies = 3;
constexpr std::uint16_t LongestSweptPlies = 255;
constexpr std::uint32_t FewRemoved = 4096;
constexpr std::uint32_t ManyRemoved = 262144;

/// Whether the next small allocation would succeed. Written through a volatile pointer, as compilers may
/// leave out an allocation that nobody uses.
bool CanAllocate() noexcept {
    void* volatile probe = ::operator new(1024, std::nothrow);
    ::operator delete(probe);
    return probe != nullptr;
}

}  // namespace

struct TAggregatedTemporaryChessboardRegister::TDoubtfulLayer {
    TDoubtfulLayer(std::int64_t key, TChessboardRegister<bool>* pOwner)
        : m_key(key), m_register(pOwner) {}

    const std::int64_t m_key;
    TDoubtfulRegister m_register;
};

TAggregatedTemporaryChessboardRegister::TAggregatedTemporaryChessboardRegister(
    TRegisterSettings settings)
    : m_settings(std::move(settings)),
      m_log(m_settings.m_bRegisterInfoLog, m_settings.m_logFolder),
      m_lastEmptyingMs(NowMs() - 100) {}

TAggregatedTemporaryChessboardRegister::~TAggregatedTemporaryChessboardRegister() = default;

std::uint32_t TAggregatedTemporaryChessboardRegister::ElementCount() const noexcept {
    return TTemporaryChessboardRegister<0>::ElementCount() + m_doubtfulElements.load() +
           TChessboardRegister<bool>::ElementCount();
}

void TAggregatedTemporaryChessboardRegister::UpdateLimits(const TRegisterLimits& limits) noexcept {
    const TRegisterWriteGuard guard(m_lock);
    TChessboardRegister<bool>::UpdateLimits(limits);
    for (const auto& [key, layer] : m_layers) {
        layer->m_register.UpdateLimits(limits);
    }
}

void TAggregatedTemporaryChessboardRegister::Log(const char* message, std::uint32_t param1,
                                                 std::uint32_t param2) noexcept {
    m_log.Write(message, static_cast<std::int32_t>(param1), static_cast<std::int32_t>(param2),
                TChessboardRegister<bool>::ElementCount(), m_doubtfulElements.load());
}

// --- Queries ---

TAggregatedTemporaryChessboardRegister::TDoubtfulRegister*
TAggregatedTemporaryChessboardRegister::LayerOf(std::int64_t key) const noexcept {
    TDoubtfulLayer* last = m_pLastLayer.load(std::memory_order_acquire);
    if (last != nullptr && last->m_key == key) {
        return &last->m_register;
    }
    const auto found = m_layers.find(key);
    if (found == m_layers.end()) {
        return nullptr;
    }
    m_pLastLayer.store(found->second.get(), std::memory_order_release);
    return &found->second->m_register;
}

TRegisterResult TAggregatedTemporaryChessboardRegister::FindResult(
    std::uint16_t nMoves, const TChessboardRegisterItem& position, TPositionHash hash,
    std::uint32_t heuristics, std::uint32_t heurParams) const noexcept {
    const TRegisterReadGuard guard(m_lock);
    const TRegisterResult exact = Query(nMoves, position, hash);
    return exact != TRegisterResult::Unknown
               ? exact
               : FindDoubtfulResult(nMoves, position, hash, KeyOf(heuristics, heurParams));
}

TRegisterResult TAggregatedTemporaryChessboardRegister::FindResultForQuickerMate(
    std::uint16_t nMoves, std::uint16_t nMovesExtended, const TChessboardRegisterItem& position,
    TPositionHash hash, std::uint32_t heuristics, std::uint32_t heurParams) const noexcept {
    const TRegisterReadGuard guard(m_lock);
    const TRegisterResult exact = QueryQuickerMate(nMoves, nMovesExtended, position, hash);
    return exact != TRegisterResult::Unknown
               ? exact
               : FindDoubtfulResult(nMoves, position, hash, KeyOf(heuristics, heurParams));
}

TRegisterResult TAggregatedTemporaryChessboardRegister::FindDoubtfulResult(
    std::uint16_t nMoves, const TChessboardRegisterItem& position, TPositionHash hash,
    std::int64_t key) const noexcept {
    const TDoubtfulRegister* layer = LayerOf(key);
    if (layer == nullptr ||
        layer->QueryNoMate(nMoves, position, hash) == TRegisterResult::Unknown) {
        return TRegisterResult::Unknown;
    }
    return TRegisterResult::NoMateUnderHeuristics;
}

int TAggregatedTemporaryChessboardRegister::FindShortestMate(
    std::uint16_t nMoves, const TChessboardRegisterItem& position, std::uint32_t heuristics,
    std::uint32_t heurParams) const noexcept {
    const TPositionHash hash = HashOf(position);
    const auto find = [&](std::uint16_t plies) {
        return FindResult(plies, position, hash, heuristics, heurParams);
    };
    const TRegisterResult result = find(nMoves);
    if (result != TRegisterResult::Mate) {
        return static_cast<int>(result);
    }
    std::uint16_t shortest = nMoves;
    while (shortest > 2 &&
           find(static_cast<std::uint16_t>(shortest - 2)) == TRegisterResult::Mate) {
        shortest = static_cast<std::uint16_t>(shortest - 2);
    }
    return shortest;
}

bool TAggregatedTemporaryChessboardRegister::IsTrialSettled(
    std::uint16_t depthLimit, std::uint16_t nodePlies, const TChessboardRegisterItem& position,
    TPositionHash hash, std::uint32_t heuristics, std::uint32_t heurParams) const noexcept {
    const TRegisterReadGuard guard(m_lock);
    const TDoubtfulRegister* layer = LayerOf(KeyOf(heuristics, heurParams));
    if (layer == nullptr) {
        return false;
    }
    const TRecordValues values = layer->FindValues(position, hash);
    return values.m_first > depthLimit && values.m_second < nodePlies;
}

// --- Inserts into the exact layer ---

bool TAggregatedTemporaryChessboardRegister::HasRoomForExact() noexcept {
    if (ElementCount() < MaxElements()) {
        return true;
    }
    if (MaxElements() == 0) {
        return false;
    }
    EmptySomeDataWhenRegisterFull(false);
    return ElementCount() < MaxElements();
}

void TAggregatedTemporaryChessboardRegister::OnFailedInsert() noexcept {
    Log("Exception caught in method TChessboardRegister::Insert");
    if (MaxElements() != 0) {
        EmptySomeDataWhenRegisterFull(false);
    }
}

void TAggregatedTemporaryChessboardRegister::StoreExact(std::uint16_t nMoves,
                                                        const TChessboardRegisterItem& position,
                                                        TPositionHash hash, bool bThereIsMate,
                                                        TOnContradiction onContradiction) noexcept {
    if (!HasRoomForExact()) {
        return;
    }
    try {
        const std::optional<TRecordValues> contradiction =
            InsertResult(nMoves, position, hash, bThereIsMate, onContradiction);
        if (contradiction && m_settings.m_bCheckTempRegCoherency && m_settings.m_tellError) {
            ShowContradiction(nMoves, position, bThereIsMate, *contradiction);
        }
    } catch (...) {
        OnFailedInsert();
    }
}

void TAggregatedTemporaryChessboardRegister::StoreResult(std::uint16_t nMoves,
                                                         const TChessboardRegisterItem& position,
                                                         TPositionHash hash,
                                                         bool bThereIsMate) noexcept {
    StoreExact(nMoves, position, hash, bThereIsMate,
               m_bSafeMode ? TOnContradiction::Keep : TOnContradiction::MateWins);
}

void TAggregatedTemporaryChessboardRegister::StoreLoadedResult(
    std::uint16_t nMoves, const TChessboardRegisterItem& position, TPositionHash hash,
    bool bThereIsMate) noexcept {
    StoreExact(nMoves, position, hash, bThereIsMate, TOnContradiction::MateWins);
}

void TAggregatedTemporaryChessboardRegister::ShowContradiction(
    std::uint16_t nMoves, const TChessboardRegisterItem& position, bool bThereIsMate,
    TRecordValues values) const {
    std::string text = FenOf(position, nMoves);
    text += "\n\nnMoves=" + std::to_string(nMoves);
    text += ", bThereIsMate=" + std::to_string(static_cast<int>(bThereIsMate));
    text += "\nMovesMate=" + std::to_string(values.m_first);
    text += ", MovesNoMate=" + std::to_string(values.m_second);
    m_settings.m_tellError("Error", text);
}

// --- Inserts into the doubtful layers ---

bool TAggregatedTemporaryChessboardRegister::IsDoubtfulWanted(std::uint16_t nMoves,
                                                              bool bMayBeShort) noexcept {
    if (ElementCount() >= MaxElements()) {
        if (MaxElements() == 0) {
            return false;
        }
        EmptySomeDataWhenRegisterFull(false);
    }
    return bMayBeShort || bKeepShortMovers || nMoves != ShortestPlies;
}

void TAggregatedTemporaryChessboardRegister::InsertDoubtful(std::uint16_t nMoves,
                                                            const TChessboardRegisterItem& position,
                                                            TPositionHash hash,
                                                            std::uint32_t heuristics,
                                                            std::uint32_t heurParams) noexcept {
    InsertDoubtfulResult(nMoves, position, hash, heuristics, heurParams, true);
}

void TAggregatedTemporaryChessboardRegister::InsertDoubtfulResult(
    std::uint16_t nMoves, const TChessboardRegisterItem& position, TPositionHash hash,
    std::uint32_t heuristics, std::uint32_t heurParams, bool bNoMate) noexcept {
    if (!IsDoubtfulWanted(nMoves, !bNoMate)) {
        return;
    }
    const std::int64_t key = KeyOf(heuristics, heurParams);
    try {
        if (!InsertIntoLayer(key, nMoves, position, hash, !bNoMate)) {
            EnsureLayer(key);
            InsertIntoLayer(key, nMoves, position, hash, !bNoMate);
        }
    } catch (...) {
        OnFailedInsert();
    }
}

/// False if there is no layer of that key.
bool TAggregatedTemporaryChessboardRegister::InsertIntoLayer(
    std::int64_t key, std::uint16_t nMoves, const TChessboardRegisterItem& position,
    TPositionHash hash, bool bFirst) {
    const TRegisterReadGuard guard(m_lock);
    TDoubtfulRegister* layer = LayerOf(key);
    if (layer == nullptr) {
        return false;
    }
    if (layer->InsertRaw(nMoves, position, hash, bFirst)) {
        ++m_doubtfulElements;
    }
    return true;
}

void TAggregatedTemporaryChessboardRegister::EnsureLayer(std::int64_t key) {
    const TRegisterWriteGuard guard(m_lock);
    if (m_layers.contains(key)) {
        return;
    }
    auto layer = std::make_unique<TDoubtfulLayer>(key, this);
    layer->m_register.UpdateLimits({MemoryLimit(), DataBudget(), MaxElements()});
    if (m_bucketCount != 0) {
        layer->m_register.SetTableBuckets(m_bucketCount, true);
    }
    m_layers.emplace(key, std::move(layer));
}

// --- Removal ---

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveNMovers(std::uint16_t n) noexcept {
    Log("TAggregatedTemporaryChessboardRegister::RemoveNMovers start.", n);
    Log("TTemporaryChessboardRegister::RemoveNMovers start.", n);
    std::uint32_t removed = SweepTable(n, n);
    Log("TTemporaryChessboardRegister::RemoveNMovers complete.", n);
    {
        // A doubtful result took a longer search than an exact one of the same length: it waits for the
        // next limit.
        const std::uint16_t maxSecond =
            n < 2 ? std::uint16_t{0} : static_cast<std::uint16_t>(n - 2);
        const TRegisterWriteGuard guard(m_lock);
        for (const auto& [key, layer] : m_layers) {
            const std::uint32_t fromLayer = layer->m_register.SweepTable(n, maxSecond);
            m_doubtfulElements -= fromLayer;
            removed += fromLayer;
        }
    }
    Log("TAggregatedTemporaryChessboardRegister::RemoveNMovers complete.", n);
    return removed;
}

std::uint32_t TAggregatedTemporaryChessboardRegister::EmptyLayer(TDoubtfulLayer& layer,
                                                                 bool bKeepBuckets,
                                                                 const TClearProgress& onChunk) {
    return layer.m_register.ClearTable(bKeepBuckets, [&](std::uint32_t removed) {
        m_doubtfulElements -= removed;
        if (onChunk) {
            onChunk(removed);
        }
    });
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveDoubtful(
    std::uint32_t heuristics, std::uint32_t heurParams) noexcept {
    return RemoveDoubtfulOfKey(KeyOf(heuristics, heurParams));
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveDoubtfulOfKey(
    std::int64_t key) noexcept {
    const TRegisterWriteGuard guard(m_lock);
    Log("RemoveDoubtful start.", HeuristicsOf(key), HeurParamsOf(key));
    std::uint32_t removed = 0;
    try {
        std::uint32_t& useCount = m_useCounts[key];
        const auto layer = m_layers.find(key);
        if (useCount != 0) {
            --useCount;
        } else if (layer != m_layers.end()) {
            removed = EmptyLayer(*layer->second, true, {});
        }
    } catch (const std::bad_alloc&) {
        // No memory to note that nobody holds the layer: it is emptied at another time.
    }
    Log("RemoveDoubtful complete.", HeuristicsOf(key), HeurParamsOf(key));
    return removed;
}

void TAggregatedTemporaryChessboardRegister::HoldDoubtful(std::uint32_t heuristics,
                                                          std::uint32_t heurParams) {
    const TRegisterWriteGuard guard(m_lock);
    ++m_useCounts[KeyOf(heuristics, heurParams)];
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveUnheldDoubtful() noexcept {
    const TRegisterWriteGuard guard(m_lock);
    std::uint32_t removed = 0;
    for (const auto& [key, useCount] : m_useCounts) {
        if (useCount == 0) {
            removed += RemoveDoubtfulOfKey(key);
        }
    }
    return removed;
}

TClearProgress TAggregatedTemporaryChessboardRegister::RepaintNowAndThen() const {
    if (!m_settings.m_repaint) {
        return {};
    }
    return [this, last = NowMs()](std::uint32_t) mutable {
        const std::int64_t now = NowMs();
        if (now - last >= MsBetweenRepaints) {
            last = now;
            m_settings.m_repaint();
        }
    };
}

void TAggregatedTemporaryChessboardRegister::Clear(TClearMode mode, bool bSilent) {
    const TRegisterWriteGuard guard(m_lock);
    const TClearProgress onChunk = bSilent ? TClearProgress() : RepaintNowAndThen();
    if (mode != TClearMode::DoubtfulOnly) {
        ClearTable(mode == TClearMode::ExactOnly, onChunk);
        ClearMaps();
    }
    if (mode != TClearMode::ExactOnly) {
        m_pLastLayer = nullptr;
        for (const auto& [key, layer] : m_layers) {
            EmptyLayer(*layer, false, onChunk);
        }
        m_layers.clear();
        m_doubtfulElements = 0;
    }
}

void TAggregatedTemporaryChessboardRegister::SetBucketCount(std::uint32_t count, bool bKeepIfSame) {
    const TRegisterWriteGuard guard(m_lock);
    m_bucketCount = count;
    SetTableBuckets(count, bKeepIfSame);
    for (const auto& [key, layer] : m_layers) {
        const std::uint32_t before = layer->m_register.ElementCount();
        m_doubtfulElements -= before;
        layer->m_register.SetTableBuckets(count, bKeepIfSame);
        m_doubtfulElements += layer->m_register.ElementCount();
    }
}

// --- Making room ---

std::int64_t TAggregatedTemporaryChessboardRegister::FreeRoom() const noexcept {
    return std::int64_t{MaxElements()} - std::int64_t{ElementCount()};
}

void TAggregatedTemporaryChessboardRegister::EmptySomeDataWhenRegisterFull(
    bool bFromSearchNode) noexcept {
    Log("EmptySomeDataWhenRegisterFull started");
    const std::lock_guard guard(g_emptying);
    // Several threads find the register full at once; the first one has done the work for all.
    if (NowMs() <= m_lastEmptyingMs + MsBetweenEmptyings) {
        return;
    }
    if (bFromSearchNode && FreeRoom() >= MaxElements() / 4) {
        return;
    }
    EmptyUnderLock(bFromSearchNode);
    Log("EmptySomeDataWhenRegisterFull complete");
    m_lastEmptyingMs = NowMs();
}

void TAggregatedTemporaryChessboardRegister::EmptyUnderLock(bool bFromSearchNode) noexcept {
    std::uint64_t removed = RemoveUnheldDoubtful();
    bool bEnough = removed > (bFromSearchNode ? ManyRemoved : FewRemoved);
    if (!bEnough && bKeepShortMovers) {
        removed += RemoveNMovers(ShortestPlies);
        bEnough = removed > FewRemoved;
        if (removed < MaxElements() / 3) {
            StopKeepingShortMovers();
        }
    }
    RemoveRisingLengths(bFromSearchNode, removed, bEnough);
}

void TAggregatedTemporaryChessboardRegister::StopKeepingShortMovers() noexcept {
    const TRegisterWriteGuard guard(m_lock);
    bKeepShortMovers = false;
    for (const auto& [key, layer] : m_layers) {
        layer->m_register.bKeepShortMovers = false;
    }
}

bool TAggregatedTemporaryChessboardRegister::IsEnoughRemoved(bool bFromSearchNode,
                                                             std::uint64_t removed) const noexcept {
    const std::uint32_t bound = bFromSearchNode
                                    ? std::max<std::uint32_t>(MaxElements() / 12, 2 * ManyRemoved)
                                    : std::max<std::uint32_t>(MaxElements() / 25, FewRemoved);
    return removed > bound || FreeRoom() >= MaxElements() / 5;
}

/// Memory may end long before MaxElements. Tables take theirs in large pieces, so that a small allocation
/// succeeding says little about them.
bool TAggregatedTemporaryChessboardRegister::CanAllLayersTakeMore() noexcept {
    const TRegisterReadGuard guard(m_lock);
    return CanTakeMore() && std::all_of(m_layers.begin(), m_layers.end(), [](const auto& layer) {
               return layer.second->m_register.CanTakeMore();
           });
}

void TAggregatedTemporaryChessboardRegister::RemoveRisingLengths(bool bFromSearchNode,
                                                                 std::uint64_t removed,
                                                                 bool bEnough) noexcept {
    for (std::uint16_t n = ShortestPlies + 2; n <= LongestSweptPlies; n += 2) {
        if (bEnough && CanAllocate() && CanAllLayersTakeMore()) {
            return;
        }
        removed += RemoveNMovers(n);
        removed += RemoveNMovers(n - 1);
        bEnough = bEnough || IsEnoughRemoved(bFromSearchNode, removed);
    }
    Log("!!!! EmptySomeDataWhenRegisterFull failed.");
}

// --- Saving and figures ---

std::vector<std::int64_t> TAggregatedTemporaryChessboardRegister::DoubtfulKeys() const {
    const TRegisterReadGuard guard(m_lock);
    std::vector<std::int64_t> keys;
    for (const auto& [key, layer] : m_layers) {
        keys.push_back(key);
    }
    return keys;
}

const TAggregatedTemporaryChessboardRegister::TDoubtfulRegister*
TAggregatedTemporaryChessboardRegister::FindDoubtful(std::int64_t key) const noexcept {
    const TRegisterReadGuard guard(m_lock);
    return LayerOf(key);
}

std::uint64_t TAggregatedTemporaryChessboardRegister::TotalBytesUsed() const noexcept {
    const TRegisterReadGuard guard(m_lock);
    std::uint64_t bytes = BytesUsed();
    for (const auto& [key, layer] : m_layers) {
        bytes += layer->m_register.BytesUsed();
    }
    return bytes;
}

std::optional<std::uint64_t> TAggregatedTemporaryChessboardRegister::TotalBytesUsedSoon()
    const noexcept {
    if (!m_lock.LockReadSoon()) {
        return std::nullopt;
    }
    std::optional<std::uint64_t> bytes = BytesUsedSoon();
    for (auto layer = m_layers.begin(); bytes && layer != m_layers.end(); ++layer) {
        const std::optional<std::uint64_t> more = layer->second->m_register.BytesUsedSoon();
        bytes = more ? std::optional(*bytes + *more) : std::nullopt;
    }
    m_lock.UnlockRead();
    return bytes;
}

}  // namespace tarnwick
