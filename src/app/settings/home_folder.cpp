#include "app/settings/home_folder.h"

#include <cstdlib>
#include <system_error>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "app/settings/settings_texts.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr const char* ProgramName = "tarnwick";

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// Without "." and ".." and an ending slash, so that equal folders compare equal.
fs::path Plain(const fs::path& path) {
    std::error_code error;
    fs::path plain = fs::weakly_canonical(path, error);
    plain = (error ? path : plain).lexically_normal();
    return plain.has_filename() ? plain : plain.parent_path();
}

bool IsUsersHome(const TEnvironment& environment, const fs::path& folder) {
    return !environment.home.empty() && Plain(folder) == Plain(environment.home);
}

/// The folder that the variable names, or the usual one in the user's home; the program's own in it.
fs::path DesktopFolder(const TEnvironment& environment, const fs::path& variable,
                       const char* usual) {
    if (variable.is_absolute()) {
        return variable / ProgramName;
    }
    if (!fs::path(environment.home).is_absolute()) {
        throw ChessException(UserText(NoHomeFolderText));
    }
    return fs::path(environment.home) / usual / ProgramName;
}

[[noreturn]] void ThrowCannotMake(const fs::path& folder, const std::string& reason) {
    throw ChessException(UserText(CannotMakeFolderText) + ToValidUtf8(folder.string()) + ": " +
                         reason);
}

}  // namespace

TEnvironment EnvironmentOfProcess() {
    std::error_code ignored;
    return {.home = Variable("HOME"),
            .xdgConfigHome = Variable("XDG_CONFIG_HOME"),
            .xdgDataHome = Variable("XDG_DATA_HOME"),
            .currentFolder = fs::current_path(ignored)};
}

THomeFolders FindHomeFolders(const TEnvironment& environment,
                             const std::optional<fs::path>& wanted) {
    if (wanted) {
        const fs::path folder = (environment.currentFolder / *wanted).lexically_normal();
        if (IsUsersHome(environment, folder)) {
            throw ChessException(UserText(HomeIsUsersHomeText));
        }
        return {.config = folder, .data = folder};
    }
    std::error_code ignored;
    const fs::path& current = environment.currentFolder;
    if (!current.empty() && fs::is_regular_file(current / "options.ini", ignored) &&
        !IsUsersHome(environment, current)) {
        return {.config = current, .data = current};
    }
    return {.config = DesktopFolder(environment, environment.xdgConfigHome, ".config"),
            .data = DesktopFolder(environment, environment.xdgDataHome, ".local/share")};
}

void MakePrivateFolder(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error)) {
        return;
    }
    MakePrivateFolder(folder.parent_path());
    const bool bMade = fs::create_directory(folder, error);
    if (error) {
        ThrowCannotMake(folder, error.message());
    }
    // Not made and no error: another instance was quicker.
    if (bMade) {
        fs::permissions(folder, fs::perms::owner_all, error);
    }
}

}  // namespace tarnwick
