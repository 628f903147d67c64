#include "app/settings/application_log.h"

#include <algorithm>
#include <exception>
#include <string>

#include "base/encoding.h"
#include "platform/append_line.h"
#include "platform/local_time.h"

#include "app/settings/home_folder.h"

namespace tarnwick {
namespace {

std::string OneLine(std::string_view format, std::string_view text) {
    std::string message(format);
    const std::size_t place = message.find("%s");
    if (place != std::string::npos) {
        message.replace(place, 2, text);
    }
    std::ranges::replace_if(
        message, [](char c) { return c == '\n' || c == '\r' || c == '\0'; }, ' ');
    return ToValidUtf8(message);
}

}  // namespace

void LogApplicationEvent(const std::filesystem::path& log, std::string_view format,
                         std::string_view text) noexcept {
    try {
        MakePrivateFolder(log.parent_path());
        AppendLine(log, LocalTimeText() + ", " + std::to_string(NumberOfThisProcess()) + ": " +
                            OneLine(format, text) + "\n");
    } catch (const std::exception&) {
        // No memory or no folder: the program goes on without this line.
    }
}

}  // namespace tarnwick
