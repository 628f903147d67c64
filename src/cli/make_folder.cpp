#include "cli/make_folder.h"

#include "base/chess_exception.h"

namespace tarnwick {

void MakeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw ChessException(folder.string() + ": " + error.message());
    }
}

}  // namespace tarnwick
