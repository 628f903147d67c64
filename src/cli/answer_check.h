#pragma once
// Compares the keys that were found with those that the problem's file gives.

#include <vector>

#include "chess/move.h"
#include "engine/jobs/start_solving.h"

namespace tarnwick {

enum class TAnswerVerdict {
    NotCompared,  ///< The file gives no answer, or the search ended without one.
    Agree,
    Differ
};

struct TAnswerCheck {
    TAnswerVerdict verdict = TAnswerVerdict::NotCompared;
    std::vector<TMove> missing;  ///< Given but not found, though all keys were looked for.
    std::vector<TMove> extra;    ///< Found but not given.
};

/// A search that ended before all keys were known agrees if each key that it found is given: nobody
/// knows about the others.
TAnswerCheck CheckAnswers(const std::vector<TMove>& given, const TSolveResult& result, bool bAll);

}  // namespace tarnwick
