#pragma once
// TChessboardRegister<bool>: the store of solved positions of one problem, and the base of all
// registers.
//
// As an object of its own it holds what solving has found out about the main line of the problem in
// hand, few positions with a move each, and is mirrored in files through TRegisterFiles. As a base it
// gives every temporary register its counters, limits, lock and link to its owner.
//
// Any thread may call any operation; each takes the lock itself. The counters are read without it.

#include <array>
#include <atomic>
#include <cstdint>
#include <map>
#include <vector>

#include "chess/chessboard.h"
#include "chess/chessboard_id.h"
#include "chess/move.h"
#include "registers/chessboard_register_item.h"
#include "registers/register_limits.h"
#include "registers/register_lock.h"
#include "registers/register_result.h"

namespace tarnwick {

/// What stands with a position, byte for byte as in the file of solved positions (numbers little-endian).
///
/// With odd plies (White to move) the answer says whether White mates within them. With even plies it
/// says whether Black has a defence that holds that long; the move is that defence.
template <typename TAnswer>
struct TSubproblemRegisterInfo {
    static constexpr std::uint16_t MoveMarker = 971;

    std::uint16_t m_plies = 0;  ///< Equal to the key of the outer map.
    std::uint16_t m_moveMarker = MoveMarker;
    TMove m_move{};  ///< All zero if nobody gave one.
    TAnswer m_answer{};
    std::uint8_t m_padding[3] = {};
};
static_assert(sizeof(TSubproblemRegisterInfo<bool>) == 12);

/// What is known about the problem as a whole: a block of 48 bytes, kept as it was read but for the bytes
/// named here, and a list of moves.
struct TSolvedProblemSummary {
    static constexpr int BlockSize = 48;
    static constexpr int SolvedByte = 2;        ///< Not 0: solved.
    static constexpr int SolvedMovesByte = 3;   ///< Not 0: solved, and the moves are present.
    static constexpr int FieldByte = 26;        ///< A field number.
    static constexpr int MoveCountOffset = 44;  ///< 32-bit number of moves.
    static constexpr int MarkerOffsets[2] = {16, 40};  ///< 32-bit words, 971 in a fresh block.

    TSolvedProblemSummary() noexcept;  ///< A fresh block, no moves.
    bool IsSolved() const noexcept {
        return m_block[SolvedByte] != 0 || m_block[SolvedMovesByte] != 0;
    }

    std::array<std::uint8_t, BlockSize> m_block{};
    std::vector<TMove> m_moves;
};

template <typename TAnswer>
class TChessboardRegister;

/// Where a register of solved positions is mirrored. The register's owner sets one; without it nothing
/// is read or written.
class TRegisterFiles {
  public:
    virtual ~TRegisterFiles() = default;

    /// Reads the answers of the register's root position through Insert and InsertDefence with bSave
    /// false. A file that is missing or ends too early is no error. Lets ChessException of an insert
    /// pass. The register then removes nothing that is dominated.
    virtual void LoadAnswers(TChessboardRegister<bool>& target) = 0;
    /// Reads the summary into target.Summary(). False if there is none or it ends too early.
    virtual bool LoadSummary(TChessboardRegister<bool>& target) = 0;
    /// Writes all answers. False if that failed. Called with the register's write lock held by this
    /// thread, which may read the register.
    virtual bool SaveAnswers(const TChessboardRegister<bool>& source) = 0;

  protected:
    TRegisterFiles() = default;
    TRegisterFiles(const TRegisterFiles&) = default;
    TRegisterFiles& operator=(const TRegisterFiles&) = default;
};

template <>
class TChessboardRegister<bool> {
  public:
    using TInfo = TSubproblemRegisterInfo<bool>;
    using TInnerMap = std::map<TChessboardRegisterItem, TInfo, TRegisterItemOrder>;
    /// Plies to positions. Odd plies and even ones (defences) share it.
    using TOuterMap = std::map<std::uint16_t, TInnerMap>;

    TChessboardRegister() = default;
    TChessboardRegister(const TChessboardRegister&) = delete;
    TChessboardRegister& operator=(const TChessboardRegister&) = delete;
    virtual ~TChessboardRegister() = default;

    /// Elements of this register; the aggregate counts all its layers.
    virtual std::uint32_t ElementCount() const noexcept { return m_elements.load(); }
    /// The second counter; the aggregate's is that of the doubtful layer.
    virtual std::uint32_t DoubtfulCount() const noexcept { return m_secondCount.load(); }
    /// Removes doubtful data that nobody holds; the number of removed elements.
    virtual std::uint32_t RemoveUnheldDoubtful() noexcept { return 0; }

    /// Makes the register that of another root: clears it and, unless bNoFile, reads its files. Nothing
    /// happens for the root that it has. Throws what TChessboardId::Build throws, with nothing changed,
    /// and what the inserts of file records throw, with those before them kept.
    void SetRootPosition(const TChessboard& position);

    /// Records whether White mates within nMoves plies (odd). bSave also writes the file.
    ///
    /// Dropped without a word: fewer than 4 plies while bKeepShortMovers is false, an answer that
    /// follows from what is held, anything when the register stays full. Throws ChessException
    /// "Incoherent information in TChessboardRegister::Insert()" when the opposite is held; nothing is
    /// changed then.
    void Insert(std::uint16_t nMoves, const TChessboardRegisterItem& position, bool bThereIsMate,
                const TMove* pMove, bool bSave);
    /// The same for whether Black has a defence of nMoves plies (even), *pMove being the defence.
    /// Defences are not counted as elements.
    void InsertDefence(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                       bool bDefenceExists, const TMove* pMove, bool bSave);

    /// Yes: mate within nMoves (odd) plies; No: none.
    TSolvedAnswer FindAnswer(std::uint16_t nMoves, const TChessboardRegisterItem& position) const;
    /// Yes: Black has a defence of nMoves (even) plies; No: none. Unless the answer is unknown, the
    /// entry's move is stored through pMove if that is not null.
    TSolvedAnswer FindDefenceAnswer(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                                    TMove* pMove) const;

    /// At construction and at every change of the user's memory ratio. The aggregate passes them on.
    virtual void UpdateLimits(const TRegisterLimits& limits) noexcept;
    std::uint64_t MemoryLimit() const noexcept { return m_memoryLimit.load(); }
    std::uint64_t DataBudget() const noexcept { return m_dataBudget.load(); }
    std::uint32_t MaxElements() const noexcept { return m_maxElements.load(); }

    /// Empties maps and counters, takes the mark "solved" and the moves off the summary, and lets short
    /// movers in again. Limits and files stay.
    void ClearMaps();

    // For the owner and its files. Maps and summary: the caller sees to it that nobody inserts.
    void SetFiles(TRegisterFiles* pFiles) noexcept { m_pFiles = pFiles; }
    const TOuterMap& Answers() const noexcept { return m_answers; }
    const TChessboardId& RootId() const noexcept { return m_rootId; }
    TSolvedProblemSummary& Summary() noexcept { return m_summary; }
    const TSolvedProblemSummary& Summary() const noexcept { return m_summary; }

    bool bNoFile = false;          ///< Nothing is read from or written to disk.
    bool bRemoveDominated = true;  ///< An insert erases what it makes superfluous.
    /// Results of fewer than 4 plies are stored. Cleared under memory pressure.
    std::atomic<bool> bKeepShortMovers{true};

  protected:
    /// What an insert must respect: the whole aggregate's count if this register belongs to one.
    std::uint32_t CountAgainstLimit() const noexcept;
    /// Room for further elements, if this register or its owner can make any. No lock held.
    virtual void MakeRoom() noexcept;

    mutable TRegisterLock m_lock;
    TChessboardRegister<bool>* m_pOwner = nullptr;  ///< The aggregate, not owned; null for none.

  private:
    TSolvedAnswer FindUnlocked(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                               TMove* pMove) const;
    void InsertUnlocked(std::uint16_t nMoves, const TChessboardRegisterItem& position, bool bAnswer,
                        const TMove* pMove, bool bSave);
    void RemoveDominated(std::uint16_t nMoves, const TChessboardRegisterItem& position,
                         bool bAnswer);
    bool MayInsert(std::uint16_t nMoves) noexcept;
    void LoadFiles();

    TOuterMap m_answers;
    TChessboardRegisterItem m_root;
    TChessboardId m_rootId;
    TSolvedProblemSummary m_summary;
    TRegisterFiles* m_pFiles = nullptr;
    std::atomic<std::uint32_t> m_elements{0};
    std::atomic<std::uint32_t> m_secondCount{0};
    std::atomic<std::uint64_t> m_memoryLimit{0};
    std::atomic<std::uint64_t> m_dataBudget{0};
    std::atomic<std::uint32_t> m_maxElements{0};
};

}  // namespace tarnwick
