#pragma once
// TProblemState: everything of a problem that the user's commands can change, as one plain value.
//
// A problem record stays where it was made (its boards point to each other), so undo keeps such values
// instead. What a problem file cannot hold, like the options that are not written, is part of it too:
// undo gives back exactly what was there.

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "problems/chess_problem.h"

namespace tarnwick {

struct TProblemState {
    TProblemType type = TProblemType::DirectMate;
    std::uint16_t shPlies = 0;
    std::array<TFigureCode, FieldCount> fields{};
    std::array<TFigureCode, FieldCount> originalFields{};  ///< Of m_originalBoard.
    std::vector<TMove> line;
    std::vector<TMove> answers;
    std::vector<TMove> expectedSort;
    std::uint16_t shOptions = 0;
    std::uint8_t threads = ThreadsNotGiven;
    std::map<std::uint32_t, std::vector<std::string>> heuristicSettings;
    std::wstring description;
    std::set<std::wstring> tags;
    TVariantMap variants;
    TSortIndications sortIndications;

    /// Sort scores of moves do not count.
    bool operator==(const TProblemState& other) const;
};

TProblemState StateOf(const TChessProblem& problem);

/// Makes the problem what it was. Its number stays. The boards are prepared anew, so pointers to those
/// of the line are void; the starting board stays where it is.
void RestoreState(TChessProblem& problem, const TProblemState& state);

/// Gives the main variant its name in the present language. No edit: the file has it in English.
void TranslateMainVariant(TChessProblem& problem);

}  // namespace tarnwick
