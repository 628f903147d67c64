#pragma once
// TAggregatedTemporaryChessboardRegister: what one solving job remembers of its subpositions.
//
// The exact layer (the base class) holds what is certain. For each set of special heuristics that a pass
// used there is a doubtful layer, which holds only under that set. When memory runs short, the doubtful
// data of finished passes go first, then everything about short subpositions, in rising order of length.
//
// All search threads use one object at a time. Locks from the outside in: the process-wide one of
// EmptySomeDataWhenRegisterFull; the aggregate's (m_lock), which guards the set of doubtful layers and
// their use counts; each table's own; the log's. Inserts never fail for the caller: what finds no memory
// is dropped, and room is made for the next one.

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "registers/register_info_log.h"
#include "registers/temporary_register.h"

namespace tarnwick {

/// What the register needs to know of its surroundings.
struct TRegisterSettings {
    bool m_bCheckTempRegCoherency = true;  ///< In safe mode, show contradicting records.
    bool m_bRegisterInfoLog = false;
    std::filesystem::path m_logFolder = ".";
    /// Shows a message box, title and text, and waits until it is closed. Any thread, no lock held.
    std::function<void(const std::string& title, const std::string& text)> m_tellError;
    /// Has the shown register size painted anew during a long clearing. The register is locked.
    std::function<void()> m_repaint;
};

/// Buckets for a job whose root has so many plies.
constexpr std::uint32_t BucketCountForPlies(std::uint16_t rootPlies) {
    return rootPlies < 15 ? 16384 : 524288;
}

/// Which layers Clear empties.
enum class TClearMode : std::int8_t {
    DoubtfulOnly = -1,
    All = 0,
    ExactOnly = 1  ///< The bucket array of the exact layer stays.
};

class TAggregatedTemporaryChessboardRegister final : public TTemporaryChessboardRegister<0> {
  public:
    using TDoubtfulRegister = TTemporaryChessboardRegister<1>;

    explicit TAggregatedTemporaryChessboardRegister(TRegisterSettings settings);
    ~TAggregatedTemporaryChessboardRegister() override;

    /// Elements of the exact table, of all doubtful layers and of the base class's maps.
    std::uint32_t ElementCount() const noexcept override;
    std::uint32_t DoubtfulCount() const noexcept override { return m_doubtfulElements.load(); }
    std::uint32_t RemoveUnheldDoubtful() noexcept override;
    void UpdateLimits(const TRegisterLimits& limits) noexcept override;

    /// In safe mode contradicting records are shown instead of being resolved.
    void SetSafeMode(bool bSafeMode) noexcept { m_bSafeMode = bSafeMode; }

    // --- Queries. Never throw, never allocate. The forms without a hash compute it. ---

    /// Mate, NoMate, NoMateUnderHeuristics or Unknown.
    TRegisterResult FindResult(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                               TPositionHash hash, std::uint32_t heuristics,
                               std::uint32_t heurParams) const noexcept;
    TRegisterResult FindResult(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                               std::uint32_t heuristics, std::uint32_t heurParams) const noexcept {
        return FindResult(nMoves, position, HashOf(position), heuristics, heurParams);
    }
    /// Mate, NoMate or Unknown, of what is proved, for those who must not wait: nothing while the register is
    /// busy with something long.
    std::optional<TRegisterResult> FindProvedSoon(
        std::uint16_t nMoves, const TChessboardRegisterItem& position) const noexcept {
        return QuerySoon(nMoves, position, HashOf(position));
    }
    /// FindResult, with QuickerMate: a mate is known that is longer than nMoves but not than
    /// nMovesExtended allows (nMoves >= nMovesExtended, which holds only when that sum wrapped round).
    TRegisterResult FindResultForQuickerMate(std::uint16_t nMoves, std::uint16_t nMovesExtended,
                                             const TChessboardRegisterItem& position,
                                             TPositionHash hash, std::uint32_t heuristics,
                                             std::uint32_t heurParams) const noexcept;
    /// The length in plies of the known mate within nMoves plies, or the result below 1 that FindResult
    /// gives for nMoves (0, -1, -2).
    int FindShortestMate(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                         std::uint32_t heuristics, std::uint32_t heurParams) const noexcept;
    /// Whether a bounded trial with this depth limit, at a node with nodePlies left, is known to find no
    /// way out.
    bool IsTrialSettled(std::uint16_t depthLimit, std::uint16_t nodePlies,
                        const TChessboardRegisterItem& position, TPositionHash hash,
                        std::uint32_t heuristics, std::uint32_t heurParams) const noexcept;

    // --- Inserts. Never throw. ---

    /// Stores a settled result in the exact layer, after making room if the register is full.
    void StoreResult(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                     TPositionHash hash, bool bThereIsMate) noexcept;
    /// The same for a record of a file: a contradiction is always resolved, never shown.
    void StoreLoadedResult(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                           TPositionHash hash, bool bThereIsMate) noexcept;
    /// Stores that the search came to no mate in nMoves plies under these heuristics.
    void InsertDoubtful(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                        TPositionHash hash, std::uint32_t heuristics,
                        std::uint32_t heurParams) noexcept;
    /// bNoMate: as InsertDoubtful. Otherwise a bounded trial up to nMoves - 1 plies found no way out.
    void InsertDoubtfulResult(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                              TPositionHash hash, std::uint32_t heuristics,
                              std::uint32_t heurParams, bool bNoMate) noexcept;

    // --- Removal. ---

    /// Sweeps all layers: exact records with no number above n, doubtful ones also with Second at most
    /// n - 2. Returns how many went.
    std::uint32_t RemoveNMovers(std::uint16_t n) noexcept;
    /// Ends a hold; without one, empties the doubtful layer (which stays known) and returns how many
    /// elements went.
    std::uint32_t RemoveDoubtful(std::uint32_t heuristics, std::uint32_t heurParams) noexcept;
    /// Keeps the doubtful data of a pass until RemoveDoubtful.
    void HoldDoubtful(std::uint32_t heuristics, std::uint32_t heurParams);
    /// Makes room. bFromSearchNode: called where an allocation failed. Does nothing within 16 ms of
    /// the end of the last one.
    void EmptySomeDataWhenRegisterFull(bool bFromSearchNode) noexcept;
    /// Empties layers. Unless bSilent, counts fall and the repaint callback is called during a clearing
    /// that takes longer than 600 ms.
    void Clear(TClearMode mode, bool bSilent);
    /// The size of all tables, a power of two, now and for later layers. With bKeepIfSame a table of that
    /// size keeps its records; otherwise it is emptied. Throws std::bad_alloc.
    void SetBucketCount(std::uint32_t count, bool bKeepIfSame);

    // --- For saving and loading. ---

    /// Key of a doubtful layer in maps and files: heurParams in the upper half, heuristics in the lower.
    static std::int64_t KeyOf(std::uint32_t heuristics, std::uint32_t heurParams) noexcept {
        return static_cast<std::int64_t>(std::uint64_t{heurParams} << 32 | heuristics);
    }
    static std::uint32_t HeuristicsOf(std::int64_t key) noexcept {
        return static_cast<std::uint32_t>(key);
    }
    static std::uint32_t HeurParamsOf(std::int64_t key) noexcept {
        return static_cast<std::uint32_t>(static_cast<std::uint64_t>(key) >> 32);
    }
    /// Keys of all doubtful layers, ascending as signed numbers.
    std::vector<std::int64_t> DoubtfulKeys() const;
    /// The layer, null if there is none. Valid until the next Clear, SetBucketCount or end of the job.
    const TDoubtfulRegister* FindDoubtful(std::int64_t key) const noexcept;

    /// Memory of all layers in bytes.
    std::uint64_t TotalBytesUsed() const noexcept;
    /// The same for a display, which must not wait: nothing while the register is busy with something long.
    std::optional<std::uint64_t> TotalBytesUsedSoon() const noexcept;

  private:
    struct TDoubtfulLayer;

    void MakeRoom() noexcept override { EmptySomeDataWhenRegisterFull(false); }
    bool HasRoomForExact() noexcept;
    void StoreExact(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                    TPositionHash hash, bool bThereIsMate,
                    TOnContradiction onContradiction) noexcept;
    void ShowContradiction(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                           bool bThereIsMate, TRecordValues values) const;
    TDoubtfulRegister* LayerOf(std::int64_t key) const noexcept;
    TRegisterResult FindDoubtfulResult(std::uint16_t nMoves,
                                       const TChessboardRegisterItem& position, TPositionHash hash,
                                       std::int64_t key) const noexcept;
    void EnsureLayer(std::int64_t key);
    bool InsertIntoLayer(std::int64_t key, std::uint16_t nMoves,
                         const TChessboardRegisterItem& position, TPositionHash hash, bool bFirst);
    bool IsDoubtfulWanted(std::uint16_t nMoves, bool bMayBeShort) noexcept;
    std::uint32_t RemoveDoubtfulOfKey(std::int64_t key) noexcept;
    std::uint32_t EmptyLayer(TDoubtfulLayer& layer, bool bKeepBuckets,
                             const TClearProgress& onChunk);
    TClearProgress RepaintNowAndThen() const;
    void OnFailedInsert() noexcept;
    void EmptyUnderLock(bool bFromSearchNode) noexcept;
    void RemoveRisingLengths(bool bFromSearchNode, std::uint64_t removed, bool bEnough) noexcept;
    bool IsEnoughRemoved(bool bFromSearchNode, std::uint64_t removed) const noexcept;
    bool CanAllLayersTakeMore() noexcept;
    void StopKeepingShortMovers() noexcept;
    std::int64_t FreeRoom() const noexcept;
    void Log(const char* message, std::uint32_t param1 = 0, std::uint32_t param2 = 0) noexcept;

    const TRegisterSettings m_settings;
    TRegisterInfoLog m_log;
    std::atomic<bool> m_bSafeMode{false};
    // Both maps: changed under the write side of m_lock, read under either side.
    std::map<std::int64_t, std::unique_ptr<TDoubtfulLayer>> m_layers;
    std::map<std::int64_t, std::uint32_t> m_useCounts;
    /// The layer asked last: nearly all queries of a pass are for one. Valid under m_lock; null if
    /// unknown.
    mutable std::atomic<TDoubtfulLayer*> m_pLastLayer{nullptr};
    std::atomic<std::uint32_t> m_doubtfulElements{0};
    std::int64_t m_lastEmptyingMs;    ///< Guarded by the lock of emptying.
    std::uint32_t m_bucketCount = 0;  ///< For new layers. Guarded by m_lock.
};

}  // namespace tarnwick
