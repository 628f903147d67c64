#pragma once

// The log of what the program did and found odd, for its user and for whoever helps him.

#include <filesystem>
#include <string_view>

namespace tarnwick {

/// Appends one line: local time, process number, and the format with its first "%s" replaced by the text.
///
///     2024-03-09 17:05:00, 4711: Program opened (/usr/bin/tarnwick)
///
/// Line ends in format and text become blanks, bytes that are no UTF-8 become U+FFFD, so an entry is always
/// one line of text. The line goes out in one piece, and the file is open for that moment only, so two
/// instances can share it. Makes the folder if need be. A log that cannot be written is no fault of the
/// caller: all failures are ignored. Any thread.
void LogApplicationEvent(const std::filesystem::path& log, std::string_view format,
                         std::string_view text = {}) noexcept;

}  // namespace tarnwick
