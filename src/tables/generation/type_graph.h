#pragma once
// CTypeGraph: a type with all types that captures and promotions lead to, and the values of those.
//
// Each type is a node with its index arithmetic and, from the first question on, its table. A link says
// what a move out of a type does to the letters: which one is gone, which pawn is another figure now, and
// where the remaining men stand in the other type's order.

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "tables/generation/edge_slice.h"
#include "tables/generation/men_moves.h"
#include "tables/table_index.h"
#include "tables/table_values.h"

namespace tarnwick {

class CTypeNode;

struct TTypeLink {
    /// Null where White has its king alone: no mate.
    CTypeNode* pNode = nullptr;
    /// For each letter of the other type: the letter of this type whose man it is.
    std::array<std::uint8_t, MaxTypeLetters> source{};
};

/// Finds or makes the values of a type. Throws ChessException naming the type when there are none.
using TTableFinder = std::function<std::shared_ptr<CTableValues>(const std::string& type)>;

class CTypeNode {
  public:
    CTypeNode(std::string type, const TTableFinder& finder);

    const CTableIndex& Index() const { return m_index; }
    std::size_t Letters() const { return m_index.Letters(); }
    /// After a move: the captured letter and the promoted pawn, NoMan where there is none, and what the
    /// pawn has become, as its place in PromotionTypes.
    const TTypeLink& After(int captured, int promoted, std::size_t figure) const {
        return m_links[LinkNumber(captured, promoted, figure)];
    }
    /// Calls visit(link) for every link, those without a node included.
    template <typename TVisit>
    void ForEachLink(const TVisit& visit) const {
        std::ranges::for_each(m_links, visit);
    }
    /// Moves of White to mate from a place of this type, 0 for none. Any thread. Throws ChessException where
    /// the type's table has no value, or can no longer be read: a number in its place would spoil all tables
    /// that are made from this one.
    unsigned ValueAt(const TTablePlace& place) const;

    /// Parts of a table that is too large to be held. Not while another thread asks for values.
    void HoldSlice(CEdgeSlice::TLetters onEdge, int threads);
    void DropSlices() { m_slices.clear(); }
    std::uint64_t BytesOfSlice(CEdgeSlice::TLetters onEdge) const;

  private:
    friend class CTypeGraph;

    std::size_t LinkNumber(int captured, int promoted, std::size_t figure) const {
        const std::size_t promotions = Letters() * 4 + 1;
        const std::size_t promotion =
            promoted == NoMan ? 0 : 1 + static_cast<std::size_t>(promoted) * 4 + figure;
        return static_cast<std::size_t>(captured + 1) * promotions + promotion;
    }
    const CTableValues& Values() const;

    CTableIndex m_index;
    std::vector<TTypeLink> m_links;
    const TTableFinder& m_finder;
    mutable std::once_flag m_found;
    mutable std::shared_ptr<CTableValues> m_pValues;  ///< From the first question on.
    std::vector<std::unique_ptr<CEdgeSlice>> m_slices;
};

class CTypeGraph {
  public:
    /// The finder is asked for a type at its first value, from any thread, once.
    CTypeGraph(const std::string& type, TTableFinder finder);

    CTypeNode& Root() { return *m_pRoot; }
    const CTypeNode& Root() const { return *m_pRoot; }
    /// Bytes of all tables with fewer men, at a byte an element.
    std::uint64_t BytesOfSmallerTables() const;

  private:
    CTypeNode& NodeOf(const std::string& type);
    void MakeLinks(CTypeNode& node);
    void SetLink(CTypeNode& node, int captured, int promoted, std::size_t figure);

    TTableFinder m_finder;
    std::map<std::string, std::unique_ptr<CTypeNode>> m_nodes;
    CTypeNode* m_pRoot = nullptr;
};

/// The place of the men in the type that the link leads to.
inline TTablePlace PlaceThrough(const TTypeLink& link, const TTablePlace& place) {
    TTablePlace other{place.whiteKing, place.blackKing, {}};
    for (std::size_t i = 0; i < link.pNode->Letters(); ++i) {
        other.men[i] = place.men[link.source[i]];
    }
    return other;
}

}  // namespace tarnwick
