#include "app/document/file_watch.h"

#include <optional>

#include "base/chess_exception.h"
#include "base/text_hash.h"

#include "problems/file_text.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// Nothing if the file cannot be read now.
std::optional<std::uint64_t> HashOfFile(const fs::path& path) {
    try {
        return HashOfText(ReadFileText(path));
    } catch (const ChessException&) {
        return std::nullopt;
    }
}

/// One name for one file, however the user came to it.
fs::path KeyOf(const fs::path& path) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(path, error);
    return error ? path : whole;
}

}  // namespace

bool CFileWatch::LookAt(const fs::path& path, TLook& look) {
    std::error_code error;
    look.size = fs::file_size(path, error);
    if (!error) {
        look.time = fs::last_write_time(path, error);
    }
    return !error;
}

void CFileWatch::Note(const fs::path& path, std::string_view content) {
    // No look yet: the file may have changed since it was read, so the first question compares the content.
    m_files.insert_or_assign(KeyOf(path), TNoted{.look = {}, .contentHash = HashOfText(content)});
}

void CFileWatch::NoteAsItIs(const fs::path& path) {
    try {
        Note(path, ReadFileText(path));
    } catch (const ChessException&) {
        m_files.erase(KeyOf(path));
    }
}

bool CFileWatch::IsNoted(const fs::path& path) const {
    return m_files.contains(KeyOf(path));
}

bool CFileWatch::HasChanged() {
    bool bChanged = false;
    for (auto& [path, noted] : m_files) {
        TLook look;
        if (!LookAt(path, look) || look == noted.look) {
            continue;
        }
        noted.look = look;
        const std::optional<std::uint64_t> hash = HashOfFile(path);
        bChanged |= hash && *hash != noted.contentHash;
    }
    return bChanged;
}

bool CFileWatch::IsForeign(const fs::path& path) const {
    std::error_code ignored;
    if (!fs::exists(path, ignored)) {
        return false;
    }
    const auto found = m_files.find(KeyOf(path));
    return found == m_files.end() || HashOfFile(path) != found->second.contentHash;
}

}  // namespace tarnwick
