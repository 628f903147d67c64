#pragma once
// Where a command writes and how: results to standard output, everything else through the dialog.

#include <ostream>

#include "chess/board_text.h"
#include "cli/console_dialog.h"
#include "cli/text_style.h"

namespace tarnwick {

struct TConsole {
    std::ostream& out;        ///< Standard output. Commands flush it after each result.
    CTextStyle style;         ///< For texts that go to `out`.
    TBoardStyle boardStyle;   ///< What a board looks like unless the user says otherwise.
    CConsoleDialog dialog{};  ///< Messages and progress, on standard error.
};

}  // namespace tarnwick
