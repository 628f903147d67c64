#include "tables/generation/promotion_slices.h"

#include <algorithm>
#include <new>

#include "tables/generation/retrograde.h"

namespace tarnwick {

CPromotionSlices::CPromotionSlices(CTypeGraph& graph, std::uint64_t budget, int threads)
    : m_graph(graph), m_budget(budget), m_threads(threads) {}

void CPromotionSlices::Hold(std::size_t step) {
    for (CTypeNode* pNode : m_holders) {
        pNode->DropSlices();
    }
    m_holders.clear();
    std::vector<TWanted> wanted;
    const auto wantBlacks = [&](CTypeNode& node, CEdgeSlice::TLetters onEdge) {
        for (std::size_t figure = 0; figure < 4; ++figure) {
            WantPromotions(node, onEdge, BlackPawn, figure, wanted);
        }
    };
    if (step == BlackPromotes) {
        wantBlacks(m_graph.Root(), 0);
    } else {
        WantPromotions(m_graph.Root(), 0, WhitePawn, step, wanted);
        for (const TWanted& white : std::vector<TWanted>(wanted)) {
            wantBlacks(*white.pNode, white.onEdge);
        }
    }
    std::uint64_t left = m_budget;
    for (const TWanted& one : wanted) {
        const std::uint64_t bytes = one.pNode->BytesOfSlice(one.onEdge);
        if (bytes == 0 || bytes > left) {
            continue;
        }
        left -= bytes;
        m_holders.push_back(one.pNode);
        try {
            one.pNode->HoldSlice(one.onEdge, m_threads);
        } catch (const std::bad_alloc&) {
            return;  // The disk has it all.
        }
    }
}

/// Where the promotion of each pawn of this code leads; the men that stood on their edge before stay there.
void CPromotionSlices::WantPromotions(CTypeNode& node, CEdgeSlice::TLetters onEdge,
                                      TFigureCode pawn, std::size_t figure,
                                      std::vector<TWanted>& wanted) const {
    for (std::size_t letter = 0; letter < node.Letters(); ++letter) {
        if (node.Index().ManOf(letter) != pawn) {
            continue;
        }
        const TTypeLink& link = node.After(NoMan, static_cast<int>(letter), figure);
        if (link.pNode == nullptr) {
            continue;
        }
        TWanted after{link.pNode, 0};
        for (std::size_t i = 0; i < link.pNode->Letters(); ++i) {
            const std::size_t source = link.source[i];
            if (source == letter || (onEdge >> source & 1U) != 0) {
                after.onEdge |= 1U << i;
            }
        }
        if (std::ranges::find(wanted, after) == wanted.end()) {
            wanted.push_back(after);
        }
    }
}

}  // namespace tarnwick
