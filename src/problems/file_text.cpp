#include "problems/file_text.h"

#include <fstream>

#include "base/encoding.h"

#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t ChunkBytes = std::size_t{1} << 16;

/// Reads to the end in pieces: a pipe does not know its length beforehand, and a file may grow.
bool ReadToEnd(std::ifstream& file, std::string& text) {
    while (file) {
        const std::size_t before = text.size();
        text.resize(before + ChunkBytes);
        file.read(text.data() + before, ChunkBytes);
        text.resize(before + static_cast<std::size_t>(file.gcount()));
    }
    return !file.bad();
}

}  // namespace

TProblemFileError::TProblemFileError(std::string file, int nLine, const std::string& userText)
    : ChessException(userText), m_file(std::move(file)), m_nLine(nLine) {}

TProblemFileError::~TProblemFileError() = default;

std::string ReadFileText(const fs::path& path) {
    std::string text;
    std::error_code error;
    const bool bFolder = fs::is_directory(path, error);
    const std::uintmax_t size = bFolder ? 0 : fs::file_size(path, error);
    if (!error) {
        text.reserve(static_cast<std::size_t>(size) + ChunkBytes);  // no copies of a large file
    }
    std::ifstream file;
    if (!bFolder) {
        file.open(path, std::ios::binary);
    }
    if (!file.is_open() || !ReadToEnd(file, text)) {
        throw ChessException(UserText(ErrorOpeningFileText) + FileNameForMessage(path));
    }
    return text;
}

std::string FileNameForMessage(const fs::path& path) {
    return ToValidUtf8(path.string());
}

}  // namespace tarnwick
