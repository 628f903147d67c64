#pragma once
// CRowRules: what positions must be worth by their successors, for whole rows of a table at once.
//
// These are rules of their own beside those of generation and those of the board. Nothing is asked of a
// single move: a row of positions in which Black stands in check with White to move is struck out by the
// sets of attacked fields, and with it every black move that leads there. Likewise for White.
//
// Two kinds of rows are used, in codes that the element type of the table holds:
//
//   - Worth, White to move: NoReply where the position cannot arise, else the moves to mate, NoMate, or
//     Unsure. Black's replies keep the largest.
//   - Replies, Black to move: the moves in which White mates who has just moved here, Never, or Ask.
//     White keeps the smallest.
//
// Unsure and Ask come from types that have no table but a verdict by material, and from lengths that the
// element does not hold: there the rules of the board must be asked.
//
// Castling is unknown to tables. A double step of Black beside a white pawn is answered by the shorter of the
// table's mate and the one that begins en passant; after one of White beside a black pawn the board is asked.

#include <atomic>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/page_memory.h"

#include "tables/generation/type_graph.h"
#include "tables/run_control.h"
#include "tables/verification/expected_plies.h"
#include "tables/verification/row_layout.h"

namespace tarnwick {

/// The table of a type; null where there is none.
using TTypeLookup = std::function<const TFoundTable*(const std::string& type)>;

/// A move of a letter, by its fields alone: the kings may forbid it.
struct TRowMove {
    std::size_t letter = 0;
    int to = 0;
    int captured = NoMan;   ///< Letter of the man that is taken.
    TFieldSet between = 0;  ///< Fields on which no king may stand.
    bool bPromotes = false;
    bool bDoubleStep = false;
};

/// Element: that of the table to be checked.
template <typename Element>
class CRowRules {
  public:
    using TRow = std::array<Element, MaxRowCells>;

    static constexpr Element NoReply = 0;
    static constexpr Element NoMate = std::numeric_limits<Element>::max();
    static constexpr Element Unsure = NoMate - 1;
    static constexpr Element Ask = 0;
    static constexpr Element Never = NoMate;

    /// Opens the tables of all types that two moves may lead to. Throws what the lookup throws, and
    /// std::bad_alloc where there is no memory for the Replies of the whole table.
    CRowRules(const CTypeNode& root, const TTypeLookup& lookup);

    /// All tables can be read in rows: they lie in memory or, unpacked, on the disk.
    bool IsUsable() const { return m_bUsable; }
    const CRowLayout& Layout() const { return m_pRoot->layout; }
    /// Computes and keeps the Replies of the table, and first those of the types that White's captures
    /// lead to. False after a stop. report gets the share that is done, 0 to 1, on the calling thread.
    bool Prepare(int threads, const CRunControl& control,
                 const std::function<void(double)>& report);
    /// Whether like men's orders hold the same values; after Prepare.
    bool DoOrdersAgree() const { return m_bOrdersAgree; }

    /// The stored values of the root's row that begins at this index, as Worth.
    void StoredAt(std::uint64_t begin, const TLetterFields& fields, TRow& row) const {
        WorthAt(*m_pRoot, begin, fields, row.data());
    }
    /// What they must be: the best of White's moves, as Replies. After Prepare; cells that are no positions
    /// hold anything.
    void Expected(const TLetterFields& fields, TRow& row) const;

  private:
    struct TTypeRows {
        explicit TTypeRows(const CTypeNode& theNode) : node(theNode), layout(theNode.Index()) {}

        const CTypeNode& node;
        CRowLayout layout;
        const std::uint8_t* pElements = nullptr;  ///< Null: no table, or one on the disk.
        const CTableStore* pOnDisk =
            nullptr;  ///< Complete; its rows are read when they are wanted.
        int elementSize = 1;
        TFieldSet verdictKings = 0;  ///< Without a table: black kings for which the board is asked.
        CPageMemory replies;         ///< Kept Replies by index, or none.
        bool bReady = false;         ///< They are computed.

        const Element* Kept() const { return static_cast<const Element*>(replies.Data()); }
    };
    enum class TKind : std::uint8_t {
        Worth,
        Replies
    };

    TTypeRows& Add(const CTypeNode& node, const TTypeLookup& lookup);
    void AddAllReached(const TTypeLookup& lookup);
    void KeepReplies(TTypeRows& type);
    void ComputeRow(TTypeRows& type, std::uint64_t begin);
    const TTypeRows& RowsOf(const CTypeNode& node) const { return *m_types.at(&node); }

    // Rows of any type.
    const Element* Row(TKind kind, const TTypeRows& type, const TLetterFields& fields,
                       Element* pBuffer) const;
    void WorthAt(const TTypeRows& type, std::uint64_t begin, const TLetterFields& fields,
                 Element* pRow) const;
    void Replies(const TTypeRows& type, const TLetterFields& fields, Element* pRow) const;
    void RowThrough(TKind kind, const TTypeRows& type, const TTypeLink& link,
                    const TLetterFields& fields, Element* pRow) const;
    void ColumnOf(const TTypeRows& type, const TLetterFields& fields, int whiteKing,
                  std::array<Element, FieldCount>& column) const;

    // Black's replies, each kind added to the largest so far.
    void AddKingReplies(const TTypeRows& type, const TLetterFields& fields,
                        Element* pLargest) const;
    void AddReply(const TTypeRows& type, const TLetterFields& fields, const TRowMove& move,
                  Element* pLargest) const;
    void ShortenByEnPassant(const TTypeRows& type, const TLetterFields& after, std::size_t stepped,
                            Element* pRow) const;
    void CloseReplies(const TTypeRows& type, const TLetterFields& fields, Element* pRow) const;

    // White's moves.
    void TryKing(const TLetterFields& fields, Element* pBest) const;
    void TryMove(const TLetterFields& fields, const TRowMove& move, Element* pBest) const;
    template <typename TAdd>
    void ForEachResult(TKind kind, const TTypeRows& type, const TLetterFields& fields,
                       const TRowMove& move, const TAdd& add) const;

    std::unordered_map<const CTypeNode*, std::unique_ptr<TTypeRows>> m_types;
    TTypeRows* m_pRoot = nullptr;
    std::vector<TTypeRows*> m_kept;  ///< Those with Replies, the root last.
    bool m_bUsable = true;
    std::atomic<bool> m_bOrdersAgree{true};
};

extern template class CRowRules<std::uint8_t>;
extern template class CRowRules<std::uint16_t>;

}  // namespace tarnwick
