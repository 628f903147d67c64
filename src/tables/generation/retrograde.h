#pragma once
// CRetrograde: fills the table of one type, mate in 1 first, then mate in 2 and so on.
//
// Two elements are kept for each index: with White to move the moves to mate, with Black to move how many
// replies are not yet known to lose. One pass finds the mates in n:
//
//   1. Every position in which Black has just become lost in n - 1 is taken back by one white move: White
//      mates there in n, unless he does it sooner.
//   2. Every position with a mate in n is taken back by one black move: that reply loses. The position
//      whose last open reply it was is lost, and begins the next pass.
//
// Moves that leave the type (captures, promotions) and captures en passant are looked up in the tables of
// the other types: White's once at the start, one figure of promotion after another, as an upper bound that
// waits in the table until its pass comes; Black's at the start, since one reply that saves him settles the
// position, and again when no other reply is open, since the longest mate counts.
//
// Like men are computed in one order, and the other orders are copied at the end.

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "platform/page_memory.h"

#include "tables/generation/type_graph.h"
#include "tables/run_control.h"

namespace tarnwick {

/// In place of a figure of White: from now on until the end Black promotes, to any figure.
inline constexpr std::size_t BlackPromotes = 4;

/// How far a generation is, told a few times a second by the thread that began it.
struct TGenerationProgress {
    bool bPreparing = true;   ///< Counting replies and looking up captures; else working in passes.
    double prepared = 0;      ///< 0 to 1.
    unsigned pass = 0;        ///< The mate in so many moves that is being looked for.
    std::uint64_t found = 0;  ///< Positions with a mate so far, like men in one order.
};

struct TGenerationSettings {
    int threads = 1;
    const CRunControl* pControl = nullptr;  ///< Not null.
    std::function<void(const TGenerationProgress&)> report = [](const TGenerationProgress&) {};
};

/// Called before the promotions of a step are looked up, no other thread being at work: which figure White
/// promotes to, as its place in PromotionTypes, or BlackPromotes.
using TBeforePromotions = std::function<void(std::size_t step)>;

/// Element: std::uint8_t for mates of at most 253 moves, std::uint16_t for any.
template <typename Element>
class CRetrograde {
  public:
    /// A value of the table while it is made: no mate known.
    static constexpr Element Unset = static_cast<Element>(~Element{0});

    /// Throws std::bad_alloc when the table and its companion do not fit into memory.
    CRetrograde(
        const CTypeNode& node, TGenerationSettings settings,
        TBeforePromotions beforePromotions = [](std::size_t) {});

    enum class TEnd : std::uint8_t {
        Complete,
        Stopped,
        NeedsWiderElements,  ///< There is a mate too long for the element.
    };
    /// Works until the table is complete or the settings' control stops it. After a stop it may be called again
    /// and goes on, and so may an object that was loaded from what another one saved.
    TEnd Run();

    /// The finished table with its flags at index 0; of a stopped one the mates so far, NotGenerated
    /// (all bits set) elsewhere. Ends the work: Run may not follow.
    CPageMemory TakeTable();

    /// Passes that are done.
    unsigned Passes() const { return m_nPass; }

    // What a stopped run needs to go on: as opaque pieces of bytes, in a fixed order.
    void Save(const std::function<void(const void*, std::size_t)>& write) const;
    /// False if the bytes do not fit this type; the object is then as new. read returns whether it filled the
    /// whole piece.
    bool Load(const std::function<bool(void*, std::size_t)>& read);
    /// Begins anew: what was loaded turned out to be damaged.
    void Forget();

  private:
    class CPreparedShare;

    /// A double step of a black pawn beside a white one: this reply is answered by the shorter of the
    /// table's mate and the one that begins en passant.
    struct TSteppedReply {
        std::uint64_t before;     ///< Index with Black to move.
        std::uint64_t after;      ///< Index behind the step.
        std::uint64_t enPassant;  ///< Moves to mate by the capture; 0 for none.
    };

    bool Prepare();
    bool PreparePromotions(std::size_t figure, CPreparedShare& share);
    bool PrepareAllElse(CPreparedShare& share);
    void PreparePromotion(std::uint64_t index, std::size_t pawn, std::size_t figure);
    void PrepareBlack(std::uint64_t index, const TTablePlace& place,
                      std::vector<TSteppedReply>& stepped);
    void PrepareWhite(std::uint64_t index, const TTablePlace& place);
    void PrepareWhiteMove(std::uint64_t index, const TMenMove& move, const TMen& after);
    std::uint64_t PlacesBeforePromotion() const;
    bool Pass();
    void TakeBackFrom(std::uint64_t begin, std::uint64_t end);
    void CloseRepliesTo(std::uint64_t begin, std::uint64_t end);
    void TakeBackWhite(std::uint64_t index);
    void TakeBackBlack(std::uint64_t index);
    void SettleSteppedReplies();
    void SetMate(std::uint64_t index, unsigned value);
    void CloseReply(std::uint64_t index);
    void SetLost(std::uint64_t index, unsigned moves);
    void CopyOrders();

    bool IsFirstOrder(const TTablePlace& place) const;
    /// Of a folded place, its like men in their first order.
    std::uint64_t IndexOf(TTablePlace place) const;
    std::uint64_t MovedIndex(std::uint64_t index, const TMen& men, int man, int to,
                             bool bWhite) const;
    void SetMateBeforeKingMove(const TMen& men, int from);
    bool ForAll(std::uint64_t pieceSize,
                const std::function<void(std::uint64_t, std::uint64_t)>& work);
    std::atomic_ref<Element> White(std::uint64_t index) const {
        return std::atomic_ref<Element>(static_cast<Element*>(m_white.Data())[index]);
    }
    std::atomic_ref<std::uint8_t> Black(std::uint64_t index) const {
        return std::atomic_ref<std::uint8_t>(static_cast<std::uint8_t*>(m_black.Data())[index]);
    }
    void SetState(std::uint64_t index, std::uint8_t state) {
        Black(index).store(state, std::memory_order_relaxed);
    }

    const CTypeNode& m_node;
    const CTableIndex& m_type;
    TGenerationSettings m_settings;
    TBeforePromotions m_beforePromotions;
    CPageMemory
        m_white;  ///< Element by index: moves to mate, Unset, 0 where no such position arises.
    CPageMemory m_black;  ///< Byte by index: see the states in the source.
    std::vector<TSteppedReply> m_stepped;
    std::mutex m_steppedLock;
    bool m_bPrepared = false;
    unsigned m_nPass = 0;
    std::atomic<unsigned> m_nLastWaiting{0};  ///< Greatest number of moves that anything waits for.
    std::atomic<bool> m_bMoved{false};        ///< The pass has found something.
    std::atomic<std::uint64_t> m_nFound{0};
};

extern template class CRetrograde<std::uint8_t>;
extern template class CRetrograde<std::uint16_t>;

}  // namespace tarnwick
