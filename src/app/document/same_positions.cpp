#include "app/document/same_positions.h"

namespace tarnwick {

std::string_view PlacementOf(const TChessboard& board) {
    return {reinterpret_cast<const char*>(board.m_fields), sizeof board.m_fields};
}

TProblemsByPosition ProblemsByPosition(const TProblemList& list) {
    TProblemsByPosition problems;
    for (const TChessProblem* pProblem : list.Problems()) {
        problems[PlacementOf(*pProblem->m_pBoard)].push_back(pProblem);
    }
    return problems;
}

}  // namespace tarnwick
