#pragma once

// Where the program's own files stand.
//
// Whoever keeps the program with its problems in one folder starts it there, and everything stays there:
// the sign is an options.ini in the current folder; --home says the same aloud. Everybody else gets the
// folders that desktops have for this, settings and data apart. The user's home folder itself takes
// nothing: an options.ini that lies there is not taken for ours, as the name is common.

#include <filesystem>
#include <optional>
#include <string>

namespace tarnwick {

/// What the folders depend on. Empty text: the variable is not set.
struct TEnvironment {
    std::string home;  ///< HOME
    std::string
        xdgConfigHome;  ///< XDG_CONFIG_HOME; a relative path counts as not set, as everywhere.
    std::string xdgDataHome;  ///< XDG_DATA_HOME; likewise.
    std::filesystem::path currentFolder;
};

/// That of this process.
TEnvironment EnvironmentOfProcess();

/// Both are absolute; they need not exist.
struct THomeFolders {
    std::filesystem::path config;  ///< For options.ini.
    std::filesystem::path data;    ///< For the log, problems and whatever the program saves.

    [[nodiscard]] std::filesystem::path OptionsFile() const { return config / "options.ini"; }
    [[nodiscard]] std::filesystem::path LogFile() const { return data / "tarnwickApp.log"; }
    [[nodiscard]] std::filesystem::path ProblemFile() const { return data / "myChessProblems.cp"; }
    /// Problems for other instances of the program.
    [[nodiscard]] std::filesystem::path TemporaryFolder() const { return data / "tmp"; }
};

/// wanted is the argument of --home. Throws ChessException if there is no place: --home names the user's
/// home folder itself, or nothing says where that is.
THomeFolders FindHomeFolders(const TEnvironment& environment,
                             const std::optional<std::filesystem::path>& wanted);

/// Makes the folder, and the folders above it that are missing, for this user alone (mode 0700). A folder
/// that exists keeps its mode. Throws ChessException. The empty path is the current folder.
void MakePrivateFolder(const std::filesystem::path& folder);

}  // namespace tarnwick
