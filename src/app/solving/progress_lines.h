#pragma once
// The lines of the progress panel. How wide a text is only the window knows, so that it brings the
// function that measures; all else is done here.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/solving/progress_snapshot.h"

namespace tarnwick {

struct TPanelSpace {
    bool bLarge = false;
    int width = 0;      ///< In the unit of textWidth.
    int mostLines = 0;  ///< At least 6, which the small panel needs.
    std::function<int(std::string_view utf8)> textWidth;
};

/// The small panel: first move in hand, mode and threads, the pass that runs, time, positions in the
/// register, percent of the pass. The large one: all passes, and the line of play that the peeked thread
/// has in hand. What finds no room are the oldest passes. UTF-8, in the user's language; no line is wider
/// than the panel.
std::vector<std::string> ProgressLines(const TProgress& progress, const TPanelSpace& space);

/// The whole text, or "... " and as much of its end as fits: of a line of play the end is what changes.
std::string FitAtEnd(const std::string& text, const TPanelSpace& space);

/// "1:05", "2:01:05".
std::string ElapsedText(std::uint64_t ms);
/// "512MB", and "1.5GB" from 1024 MiB up.
std::string MemorySizeText(std::uint64_t bytes);

}  // namespace tarnwick
