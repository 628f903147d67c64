#pragma once
// CFileWatch: whether somebody else changed a file that we read or wrote.
//
// Two questions. The window's timer asks often whether the file looks different (time and size: one
// call of the system). A save asks for certain whether it would overwrite what we have never seen, and
// compares the content, since a clock of two seconds' step hides a quick change.

#include <cstdint>
#include <filesystem>
#include <map>
#include <string_view>

namespace tarnwick {

class CFileWatch {
  public:
    /// This is the file's content as we read or wrote it just now.
    void Note(const std::filesystem::path& path, std::string_view content);
    /// Notes whatever the file holds now; nothing if it cannot be read.
    void NoteAsItIs(const std::filesystem::path& path);
    void Clear() { m_files.clear(); }
    bool IsNoted(const std::filesystem::path& path) const;

    /// Whether any noted file looks different since the last question, and has another content than was
    /// noted; so each change is told once. A file that is gone for the moment, as editors do when they
    /// save, is no change. Reads a file only if its time or size is new.
    bool HasChanged();

    /// Whether the file is there and has another content than was noted, or was never noted.
    bool IsForeign(const std::filesystem::path& path) const;

  private:
    struct TLook {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;
        bool operator==(const TLook&) const = default;
    };
    struct TNoted {
        TLook look;
        std::uint64_t contentHash = 0;
    };
    static bool LookAt(const std::filesystem::path& path, TLook& look);

    std::map<std::filesystem::path, TNoted> m_files;
};

}  // namespace tarnwick
