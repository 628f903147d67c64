#include "cli/answer_check.h"

#include <algorithm>
#include <iterator>

namespace tarnwick {
namespace {

std::vector<TMove> MovesNotIn(const std::vector<TMove>& moves, const std::vector<TMove>& others) {
    std::vector<TMove> missing;
    std::ranges::copy_if(moves, std::back_inserter(missing), [&others](TMove move) {
        return std::ranges::none_of(others, [move](TMove other) { return move.SameAs(other); });
    });
    return missing;
}

}  // namespace

TAnswerCheck CheckAnswers(const std::vector<TMove>& given, const TSolveResult& result, bool bAll) {
    TAnswerCheck check;
    const bool bNoMate = result.status == TSolveStatus::NoMate;
    if (given.empty() || (result.keys.empty() && !bNoMate)) {
        return check;
    }
    check.extra = MovesNotIn(result.keys, given);
    if (bNoMate || (bAll && result.bComplete && result.status == TSolveStatus::Mate)) {
        check.missing = MovesNotIn(given, result.keys);
    }
    const bool bAgree = check.missing.empty() && check.extra.empty();
    check.verdict = bAgree ? TAnswerVerdict::Agree : TAnswerVerdict::Differ;
    return check;
}

}  // namespace tarnwick
