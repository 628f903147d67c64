#include "app/solving/progress_lines.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/filled_text.h"

#include "app/solving/solving_texts.h"
#include "chess/figure_codes.h"
#include "chess/move_text.h"
#include "engine/engine_texts.h"

namespace tarnwick {
namespace {

constexpr const char* CutMark = "... ";

std::string TwoDigits(std::uint64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string OneDecimal(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%0.1f", number);
    return text.data();
}

/// "a7-a8Q": fields alone, as the man is seen on the board.
std::string FirstMoveText(const TProgress& progress) {
    if (!progress.text.empty() || !progress.moveInHand) {
        return progress.text;
    }
    return MoveToFullText(*progress.moveInHand, WhitePawn, false);
}

std::string ModeText(const TProgress& progress) {
    std::string text = progress.bSafeMode ? UserText(SafeModeText) : "";
    if (progress.tableBytes) {
        text += UserText(TablesText) + MemorySizeText(*progress.tableBytes);
    }
    return text + UserText(ThreadsText) + std::to_string(progress.threads.size());
}

std::string PassText(const TPassProgress& pass) {
    std::string text = pass.name;
    if (!pass.heuristics.empty()) {
        text += " SH(" + pass.heuristics + ")";
    }
    text += " ";
    if (pass.keysFound > 0) {
        return text + FilledText(UserText(PassFoundText), {std::to_string(pass.keysFound)});
    }
    return text + UserText(pass.bRunning ? PassRunsText : PassFoundNothingText);
}

/// At most `most`, the newest ones.
std::vector<std::string> PassLines(const TProgress& progress, std::size_t most) {
    std::vector<std::string> lines;
    const std::size_t count = progress.passes.size();
    for (std::size_t i = count - std::min(count, most); i < count; ++i) {
        lines.push_back(PassText(progress.passes[i]));
    }
    return lines;
}

/// Inside of a UTF-8 character, or what parts words.
bool MayNotBegin(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80 || c == ' ' || c == ',';
}

}  // namespace

std::string ElapsedText(std::uint64_t ms) {
    const std::uint64_t seconds = ms / 1000;
    const std::uint64_t minutes = seconds / 60;
    const std::string tail = ":" + TwoDigits(seconds % 60);
    return minutes < 60 ? std::to_string(minutes) + tail
                        : std::to_string(minutes / 60) + ":" + TwoDigits(minutes % 60) + tail;
}

std::string MemorySizeText(std::uint64_t bytes) {
    const std::uint64_t mib = bytes >> 20;
    return mib < 1024 ? std::to_string(mib) + "MB"
                      : OneDecimal(static_cast<double>(bytes) / (1 << 30)) + "GB";
}

std::string FitAtEnd(const std::string& text, const TPanelSpace& space) {
    if (space.textWidth(text) <= space.width) {
        return text;
    }
    // The width grows with the length, so that the longest end that fits is found by halving.
    std::size_t fits = text.size();
    std::size_t tooLong = 0;
    while (fits - tooLong > 1) {
        const std::size_t middle = (fits + tooLong) / 2;
        const bool bFits = space.textWidth(CutMark + text.substr(middle)) <= space.width;
        (bFits ? fits : tooLong) = middle;
    }
    while (fits < text.size() && MayNotBegin(text[fits])) {
        ++fits;
    }
    return CutMark + text.substr(fits);
}

std::vector<std::string> ProgressLines(const TProgress& progress, const TPanelSpace& space) {
    constexpr std::size_t LinesBesidePasses = 5;
    const std::string play = space.bLarge ? progress.line : "";
    const std::size_t others = LinesBesidePasses + (play.empty() ? 0 : 1);
    const auto room = static_cast<std::size_t>(std::max(space.mostLines, 0));
    const std::size_t forPasses = space.bLarge && room > others ? room - others : 1;

    std::vector<std::string> lines = {FirstMoveText(progress), ModeText(progress)};
    for (std::string& line : PassLines(progress, forPasses)) {
        lines.push_back(std::move(line));
    }
    lines.push_back(ElapsedText(progress.elapsedMs) +
                    (progress.bPaused ? UserText(PausedText) : ""));
    lines.push_back(std::to_string(progress.registerElements) + " (" +
                    MemorySizeText(progress.registerBytes) + ")");
    lines.push_back(OneDecimal(progress.Percent()) + "%");
    if (!play.empty()) {
        lines.push_back(play);
    }
    for (std::string& line : lines) {
        line = FitAtEnd(line, space);
    }
    return lines;
}

}  // namespace tarnwick
