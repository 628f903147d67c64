#pragma once
// What the window shows when a solve is over, as data: a box or none, the line below the board, and the
// key that is played on the board after a short flash.

#include <optional>
#include <string>
#include <vector>

#include "app/solving/solve_settings.h"

namespace tarnwick {

/// One picture of the flash: the two fields of the move, marked or not, for so long.
struct TFlashStep {
    bool bMarked = false;
    int ms = 0;
};

struct TResultView {
    std::string title;    ///< Of the box.
    std::string boxText;  ///< Empty: no box. A single key speaks for itself on the board.
    std::string statusText;
    std::vector<std::string> logLines;  ///< For the application log.
    std::optional<TMove> play;          ///< The key to play on the board, after the flash.
    std::vector<TFlashStep> flash;      ///< Empty without `play`.
};

/// bBatch: one of many, where nobody is to be asked and the flash is short. UTF-8, in the user's language.
TResultView ResultView(const TSolveOutcome& outcome, bool bBatch = false);

/// Marks and unmarks by turns, 800 ms altogether, or 100 ms in a batch.
std::vector<TFlashStep> FlashSteps(bool bBatch);

}  // namespace tarnwick
