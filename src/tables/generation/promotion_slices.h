#pragma once
// CPromotionSlices: holds the parts of other types' tables into which the promotions of a type lead, as far as
// a budget of bytes allows, one step of the preparation after another.
//
// What does not fit is read from the disk value by value: the result is the same, only later. White's
// promotions come first in the budget of each step, since each of them asks for all replies of Black.

#include <vector>

#include "tables/generation/type_graph.h"

namespace tarnwick {

class CPromotionSlices {
  public:
    /// The graph must outlive this.
    CPromotionSlices(CTypeGraph& graph, std::uint64_t budget, int threads);

    /// Drops what was held and reads what this step needs: White's promotions to one figure with Black's replies,
    /// or, for BlackPromotes, those of Black. No other thread may ask the graph for values meanwhile.
    void Hold(std::size_t step);

  private:
    struct TWanted {
        CTypeNode* pNode = nullptr;
        CEdgeSlice::TLetters onEdge = 0;

        bool operator==(const TWanted&) const = default;
    };

    void WantPromotions(CTypeNode& node, CEdgeSlice::TLetters onEdge, TFigureCode pawn,
                        std::size_t figure, std::vector<TWanted>& wanted) const;

    CTypeGraph& m_graph;
    std::uint64_t m_budget;
    int m_threads;
    std::vector<CTypeNode*> m_holders;
};

}  // namespace tarnwick
