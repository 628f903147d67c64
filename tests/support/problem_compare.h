#pragma once

// Whether two problems agree in everything that a problem file can say about them.

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "problems/chess_problem.h"
#include "problems/problem_options.h"

namespace tarnwick {

inline bool SameMoves(const std::vector<TMove>& a, const std::vector<TMove>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const TMove& x, const TMove& y) { return x.SameAs(y); });
}

inline std::vector<TMove> LineOf(const TChessProblem& problem) {
    std::vector<TMove> moves;
    for (const auto& pBoard : problem.m_lineBoards) {
        moves.push_back(pBoard->m_lastMove);
    }
    return moves;
}

inline std::uint16_t WrittenOptions(const TChessProblem& problem) {
    unsigned mask = static_cast<unsigned>(TProblemOption::HasAnswers);
    for (const TOptionKeyword& keyword : OptionKeywords()) {
        if (keyword.written != nullptr) {
            mask |= keyword.bits;
        }
    }
    return static_cast<std::uint16_t>(problem.m_shOptions.Raw() & mask);
}

inline bool SameFields(const TChessboard& a, const TChessboard& b) {
    return std::memcmp(a.m_fields, b.m_fields, sizeof a.m_fields) == 0;
}

/// Names of the members in which the two differ; empty when they are the same problem.
inline std::string WrittenDifferences(const TChessProblem& a, const TChessProblem& b) {
    const bool bCounts = a.m_shOptions.Has(TProblemOption::GuiCheck) ||
                         a.m_shOptions.Has(TProblemOption::GuiCheckBestDefence);
    const bool bLine = a.m_type == TProblemType::Position;
    const struct {
        const char* name;
        bool bSame;
    } members[] = {
        {"id", a.m_id == b.m_id},
        {"type", a.m_type == b.m_type},
        {"plies", a.m_shPlies == b.m_shPlies},
        {"board plies", a.m_pBoard->m_shPlies == b.m_pBoard->m_shPlies &&
                            a.m_pBoard->m_shRootPlies == b.m_pBoard->m_shRootPlies},
        {"options", WrittenOptions(a) == WrittenOptions(b)},
        {"threads", a.m_threads == b.m_threads},
        {"gui check count", !bCounts || a.m_shGuiCheckCount == b.m_shGuiCheckCount},
        {"requires", a.m_requires == b.m_requires},
        {"description", a.m_description == b.m_description},
        {"tags", a.m_tags == b.m_tags},
        {"variants", a.m_variants == b.m_variants},
        {"sort indications", a.m_sortIndications == b.m_sortIndications},
        {"position", SameFields(*a.m_pBoard, *b.m_pBoard)},
        {"original position", SameFields(a.m_originalBoard, b.m_originalBoard)},
        {"answers", SameMoves(a.m_answers, b.m_answers)},
        {"line", !bLine || SameMoves(LineOf(a), LineOf(b))},
        {"last position", !bLine || SameFields(*a.m_pLastBoard, *b.m_pLastBoard)},
    };
    std::string differences;
    for (const auto& member : members) {
        if (!member.bSame) {
            differences += std::string(member.name) + "; ";
        }
    }
    return differences;
}

}  // namespace tarnwick
