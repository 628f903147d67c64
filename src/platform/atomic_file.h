#pragma once

// Saving a file so that no crash, kill, power failure or full disk leaves half of it.
//
// Everything that the user would miss is saved through here: problem files and saved stores. The
// file is replaced as a whole, so others who have the old one open keep reading the old content.
// Any thread; two saves of one file at the same time leave one of both contents, whole.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

namespace tarnwick {

enum class TBackup {
    None,
    /// The content before this save stays as PATH.BAK, replacing the backup before it; as PATH.BAK2 to
    /// PATH.BAK9 if that name cannot be replaced.
    Keep
};

/// Replaces the content of the file, or makes it, in one step that also a power failure cannot cut.
///
/// A symbolic link is followed and stays a link; file and backup stand beside its target. Mode and,
/// where the system lets us, owner of an existing file are kept. A file without write permission is
/// refused, although its folder would let us replace it. A kill in the middle may leave a stray
/// ".tarnwick-..." in the folder and no other trace. The new content is read back and compared before it
/// takes the old one's place.
///
/// Throws ChessException naming the file and the reason. The file then has its old content; only if
/// the last step failed, the flush of the folder, it has the new one.
void SaveFileAtomically(const std::filesystem::path& path, std::string_view content,
                        TBackup backup = TBackup::None);

/// Keeps the present content as SaveFileAtomically does with TBackup::Keep, and saves nothing. Throws
/// ChessException naming the file and the reason.
void KeepBackupOf(const std::filesystem::path& path);

/// SaveFileAtomically for content that comes bit by bit and may not fit into memory: a new file beside the old one
/// takes what is appended, and Commit puts it into the old one's place. One thread at a time.
///
/// Construction, Append and Commit throw as SaveFileAtomically does, and a failed Append makes all that
/// follow fail. An object that goes away without a Commit takes the new file with it.
class CAtomicFileWriter {
  public:
    explicit CAtomicFileWriter(const std::filesystem::path& path, TBackup backup = TBackup::None);
    CAtomicFileWriter(const CAtomicFileWriter&) = delete;
    CAtomicFileWriter& operator=(const CAtomicFileWriter&) = delete;
    ~CAtomicFileWriter();

    /// Small pieces are gathered before they go to the system, so a failure may show only later.
    void Append(std::string_view bytes);

    /// Replaces bytes that were appended before, for heads whose content is known at the end.
    void Overwrite(std::uint64_t offset, std::string_view bytes);

    /// Flushes to the disk, keeps the backup, replaces the file. At most once, and the last call.
    void Commit();
    /// The same, but refuses a file that does not read back as these bytes.
    void Commit(std::string_view expected);

  private:
    struct TFiles;
    void Write(std::string_view bytes);
    void Commit(const std::string_view* pExpected);

    std::unique_ptr<TFiles> m_pFiles;
};

}  // namespace tarnwick
