#pragma once

// Another program of ours or of the system, run to its end like a function: text in, text out.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

struct TProgramRun {
    std::vector<std::string>
        words;               ///< The program, a path or a name that PATH knows, and its arguments.
    std::string_view input;  ///< What it reads from its standard input.
    std::size_t maxOutput = std::size_t{1} << 28;  ///< Bytes.
    int limitMs = 60000;
};

/// What the program wrote to its standard output; nothing if it could not be started, did not end with
/// status 0, wrote more than the most, or took longer than the limit and was killed. Its errors go where
/// this program's go. Throws ChessException only where no temporary file can be made for the input.
std::optional<std::string> RunProgram(const TProgramRun& run);

/// The folder of the running program; empty if the system does not tell.
std::filesystem::path FolderOfThisProgram();

}  // namespace tarnwick
