#include "platform/run_program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarnwick {
namespace {

std::optional<std::string> Shell(const std::string& script, std::string_view input = {},
                                 int limitMs = 20000) {
    return RunProgram(
        {.words = {"sh", "-c", script}, .input = input, .maxOutput = 1 << 24, .limitMs = limitMs});
}

TEST(RunProgram, PassesBytesThroughWhateverTheirNumber) {
    std::string bytes;
    for (int i = 0; i < 3000000; ++i) {
        bytes += static_cast<char>(i * 7 % 251);
    }
    EXPECT_EQ(Shell("cat", bytes), bytes);
    EXPECT_EQ(Shell("cat"), "");
}

TEST(RunProgram, ProgramThatDoesNotReadIsNoHarm) {
    EXPECT_EQ(Shell("printf done", std::string(1 << 20, 'x')), "done");
}

TEST(RunProgram, FailuresGiveNothing) {
    EXPECT_EQ(Shell("printf half; exit 3"), std::nullopt);
    EXPECT_EQ(Shell("kill -9 $$"), std::nullopt);
    EXPECT_EQ(RunProgram({.words = {"/nowhere/no-program"}, .input = {}}), std::nullopt);
    EXPECT_EQ(RunProgram({.words = {"sh", "-c", "printf 12345"}, .input = {}, .maxOutput = 4}),
              std::nullopt);
}

TEST(RunProgram, ProgramThatNeverEndsIsKilled) {
    EXPECT_EQ(Shell("exec sleep 600", {}, 50), std::nullopt);
}

TEST(RunProgram, ArgumentsAreNoShellWords) {
    EXPECT_EQ(RunProgram({.words = {"printf", "%s", "$HOME; `x` \"'"}, .input = {}}),
              "$HOME; `x` \"'");
}

TEST(RunProgram, FolderOfThisProgramHoldsIt) {
    EXPECT_TRUE(std::filesystem::exists(FolderOfThisProgram() / "tarnwick_platform_tests"));
}

}  // namespace
}  // namespace tarnwick
