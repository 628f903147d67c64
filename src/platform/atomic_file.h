#pragma once

// Saving a file so that no crash, kill, power failure or full disk leaves half of it.
//
// Everything that the user would miss is saved through here: problem files and saved stores. The
// file is replaced as a whole, so others who have the old one open keep reading the old content.
// Any thread; two saves of one file at the same time leave one of both contents, whole.

#include <filesystem>
#include <string_view>

namespace tarnwick {

enum class TBackup {
    None,
    /// The content before this save stays as PATH.BAK, replacing the backup before it.
    Keep
};

/// Replaces the content of the file, or makes it, in one step that also a power failure cannot cut.
///
/// A symbolic link is followed and stays a link; file and backup stand beside its target. Mode and,
/// where the system lets us, owner of an existing file are kept. A file without write permission is
/// refused, although its folder would let us replace it. A kill in the middle may leave a stray
/// ".tarnwick-..." in the folder and no other trace.
///
/// Throws ChessException naming the file and the reason. The file then has its old content; only if
/// the last step failed, the flush of the folder, it has the new one.
void SaveFileAtomically(const std::filesystem::path& path, std::string_view content,
                        TBackup backup = TBackup::None);

}  // namespace tarnwick
