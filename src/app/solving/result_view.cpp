#include "app/solving/result_view.h"

#include "chess/move_text.h"
#include "engine/engine_texts.h"

namespace tarnwick {
namespace {

std::string KeyTextsOf(const TSolveOutcome& outcome) {
    std::string text;
    for (const TMove key : outcome.result.keys) {
        text += (text.empty() ? "" : ", ") + MoveToDisplayText(key, outcome.board);
    }
    return text;
}

/// Who has pressed Stop needs no box to be told so.
std::string BoxText(const TSolveOutcome& outcome) {
    if (outcome.bEndedByError) {
        return outcome.result.message;
    }
    if (outcome.result.status == TSolveStatus::Stopped) {
        return "";
    }
    return ResultText(outcome.result, outcome.options, outcome.moves, outcome.notes);
}

std::string StatusText(const TSolveOutcome& outcome) {
    const TSolveResult& result = outcome.result;
    if (result.status == TSolveStatus::Refused) {
        return result.message;
    }
    const std::string keys = KeyTextsOf(outcome);
    if (result.status == TSolveStatus::Stopped) {
        return UserText(StoppedByUserText) + (keys.empty() ? "" : ": " + keys);
    }
    return PanelText(result, outcome.problemNumber, outcome.moves, keys, outcome.notes);
}

std::string EndText(const TSolveOutcome& outcome) {
    return outcome.bEndedByError ? outcome.result.message
                                 : ThreadEndText(outcome.problemNumber, outcome.result);
}

}  // namespace

std::vector<TFlashStep> FlashSteps(bool bBatch) {
    if (bBatch) {
        return {{true, 100}};
    }
    return {{true, 200}, {false, 200}, {true, 200}, {false, 200}};
}

TResultView ResultView(const TSolveOutcome& outcome, bool bBatch) {
    TResultView view;
    view.title = ResultTitle();
    view.boxText = bBatch ? "" : BoxText(outcome);
    view.statusText = StatusText(outcome);
    view.logLines = {EndLine(outcome.result, outcome.options), EndText(outcome)};
    if (outcome.result.status == TSolveStatus::Mate && !outcome.result.keys.empty()) {
        view.play = outcome.result.keys.front();
        view.flash = FlashSteps(bBatch);
    }
    return view;
}

}  // namespace tarnwick
