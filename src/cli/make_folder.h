#pragma once

#include <filesystem>

namespace tarnwick {

/// Sees to it that the folder is there. Throws ChessException naming it if it cannot be made.
void MakeFolder(const std::filesystem::path& folder);

}  // namespace tarnwick
