#include "app/solving/progress_lines.h"

#include <gtest/gtest.h>

#include "base/encoding.h"

#include "app/solving/solving_indicator.h"

namespace tarnwick {
namespace {

/// A font in which every character is as wide as any other.
TPanelSpace Space(bool bLarge, int width, int mostLines) {
    return {
        .bLarge = bLarge,
        .width = width,
        .mostLines = mostLines,
        .textWidth = [](std::string_view text) { return static_cast<int>(FromUtf8(text).size()); }};
}

TProgress SomeProgress() {
    TProgress progress;
    progress.moveInHand = TMove{48, 56, TypeQueen, 0};
    progress.firstMoves = 8;
    progress.firstMovesDone = 3;
    progress.passes = {
        {.name = "0", .heuristics = "", .keysFound = 0, .bRunning = false},
        {.name = "1", .heuristics = "SH_AREKINGSNEAR", .keysFound = 2, .bRunning = false},
        {.name = "2", .heuristics = "", .keysFound = 0, .bRunning = true}};
    progress.bSafeMode = true;
    progress.tableBytes = std::uint64_t{1536} << 20;
    progress.threads = {0, 1, 2};
    progress.line = "1. a7-a8Q, Kh8-h7 SH:0h";
    progress.elapsedMs = 3723999;
    progress.registerElements = 1234567;
    progress.registerBytes = std::uint64_t{80} << 20;
    return progress;
}

TEST(ProgressLines, LargePanelTellsAll) {
    EXPECT_EQ(
        ProgressLines(SomeProgress(), Space(true, 60, 20)),
        (std::vector<std::string>{"a7-a8Q", "Safe mode ON  GR=1.5GB Thrds=3", "0 nothing found",
                                  "1 SH(SH_AREKINGSNEAR) solutions: 2", "2 running", "1:02:03",
                                  "1234567 (80MB)", "37.5%", "1. a7-a8Q, Kh8-h7 SH:0h"}));
}

TEST(ProgressLines, LittleRoomKeepsWhatIsNew) {
    TProgress progress = SomeProgress();
    progress.bPaused = true;
    progress.bSafeMode = false;
    progress.tableBytes.reset();
    EXPECT_EQ(ProgressLines(progress, Space(false, 60, 6)),
              (std::vector<std::string>{"a7-a8Q", " Thrds=3", "2 running", "1:02:03 (paused)",
                                        "1234567 (80MB)", "37.5%"}));
    const auto cut = ProgressLines(progress, Space(true, 18, 8));
    ASSERT_EQ(cut.size(), 8U);
    EXPECT_EQ(cut[2], "... ) solutions: 2") << "the oldest pass has gone";
    EXPECT_EQ(cut[7], "... Kh8-h7 SH:0h");
}

TEST(ProgressLines, BeforeTheFirstMoveTheEngineSaysWhatItDoes) {
    TProgress progress;
    progress.text = "Initial position type check...";
    const auto lines = ProgressLines(progress, Space(true, 60, 6));
    EXPECT_EQ(lines.front(), progress.text);
    EXPECT_EQ(lines.back(), "0.0%");
}

TEST(ProgressLines, ACutLineIsStillUtf8AndAsLongAsItMayBe) {
    const TPanelSpace space = Space(true, 10, 6);
    EXPECT_EQ(FitAtEnd("za\u017c\u00f3\u0142\u0107 g\u0119\u015bl\u0105", space),
              "... g\u0119\u015bl\u0105");
    EXPECT_EQ(FitAtEnd("1234567890", space), "1234567890");
    EXPECT_EQ(FitAtEnd("12345678901", space), "... 678901");
    EXPECT_EQ(FitAtEnd("12345678901", Space(true, 2, 6)), "... ") << "no room at all";
}

TEST(ProgressLines, TimesAndSizesAtTheirLimits) {
    EXPECT_EQ(ElapsedText(65999), "1:05");
    EXPECT_EQ(ElapsedText(3599999), "59:59");
    EXPECT_EQ(ElapsedText(3600000), "1:00:00");
    EXPECT_EQ(MemorySizeText((std::uint64_t{1024} << 20) - 1), "1023MB");
    EXPECT_EQ(MemorySizeText(std::uint64_t{1024} << 20), "1.0GB");
}

TEST(SolvingIndicator, RunsUntilTheLastSolveEnds) {
    CSolvingIndicator indicator;
    EXPECT_EQ(indicator.Icon(), IdleIcon);
    indicator.SolveStarted();
    indicator.SolveStarted();
    indicator.SolveEnded(true);
    EXPECT_TRUE(indicator.NeedsTimer());
    indicator.Seen();
    for (int i = 0; i < RunningFrames + 2; ++i) {
        indicator.Tick();
    }
    EXPECT_EQ(indicator.Icon(), FirstRunningFrame + 2);
    indicator.SolveEnded(false);
    EXPECT_FALSE(indicator.NeedsTimer());
    EXPECT_EQ(indicator.Icon(), FinishedIcon) << "the first one had a result";
    indicator.Seen();
    EXPECT_EQ(indicator.Icon(), IdleIcon);
    indicator.SolveStarted();
    indicator.SolveEnded(false);
    indicator.SolveEnded(false);  // one too many
    EXPECT_EQ(indicator.RunningSolves(), 0);
    EXPECT_EQ(indicator.State(), TIndicatorState::Idle);
}

}  // namespace
}  // namespace tarnwick
