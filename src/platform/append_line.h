#pragma once

// Lines for logs that several processes share.

#include <filesystem>
#include <string_view>

namespace tarnwick {

/// Appends the text, its line end included, in one write: lines of two processes do not mix. Makes a
/// missing file, for this user alone; its folder must exist. False, and at worst a part of the line
/// written, where the system refuses; never waits for a reader, as a pipe in the file's place would have
/// it. Any thread.
bool AppendLine(const std::filesystem::path& file, std::string_view text) noexcept;

/// The number by which the system knows this process.
int NumberOfThisProcess() noexcept;

}  // namespace tarnwick
