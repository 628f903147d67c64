#pragma once

// What a user is told who starts the program while it runs already.
//
// Both may work, even on one file: it is saved whole, and a change from outside is noticed. So a second
// instance is never refused; it is only told of, as loudly as the options say.

#include <filesystem>
#include <optional>
#include <string>

#include "app/settings/options.h"

namespace tarnwick {

struct TSecondInstanceNotice {
    std::optional<std::string> box;  ///< To be shown before the window opens.
    std::string statusLine;          ///< Put in front of the status text; ends with a line end.
};

/// For a second instance. Reads the file by itself, as the box comes before everything else. Where the file
/// does not name a language the box is in Polish, the language that has all texts.
TSecondInstanceNotice SecondInstanceNotice(const std::filesystem::path& optionsFile);

}  // namespace tarnwick
