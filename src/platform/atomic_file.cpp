// The steps of a save, and what a crash behind each of them leaves:
//   1. write the content to a new file in the same folder    old file, stray new file
//   2. flush it to the disk, read it back and compare        old file, stray new file
//   3. link the old file to the backup's name                old file, and the same as backup
//   4. rename the new file over the old one                  old or new file, never between
//   5. flush the folder, which holds the names               new file, also after a power failure
// The flush before the rename matters: a file system may write names before data, and a power failure
// would then leave the new name on an empty file.

#include "platform/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/language.h"
#include "platform/platform_texts.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr int MaxLinksFollowed = 40;  // as the kernel's own limit
constexpr int MaxBackupNames = 9;
constexpr mode_t PermissionBits = 07777;
/// Large enough that a write's fixed cost does not count.
constexpr std::size_t BufferSize = 256 * 1024;

[[noreturn]] void ThrowCannotSave(const fs::path& path, const std::string& reason) {
    throw ChessException(UserText(TextCannotSaveFile) + ToValidUtf8(path.string()) + ": " + reason);
}

[[noreturn]] void ThrowCannotSave(const fs::path& path, int error) {
    ThrowCannotSave(path, std::generic_category().message(error));
}

/// A file descriptor that is closed at the end of its scope.
class CDescriptor {
  public:
    explicit CDescriptor(int number) : m_nNumber(number) {}
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;
    ~CDescriptor() {
        if (m_nNumber >= 0) {
            ::close(m_nNumber);
        }
    }

    [[nodiscard]] int Number() const { return m_nNumber; }

    /// Closes now, for the errors that some file systems report only here (0 if none).
    int Close() {
        const int number = m_nNumber;
        m_nNumber = -1;
        return ::close(number) == 0 || errno == EINTR ? 0 : errno;
    }

  private:
    int m_nNumber;
};

/// A name that is removed at the end of its scope. After a rename there is nothing to remove.
class CStrayName {
  public:
    explicit CStrayName(fs::path path) : m_path(std::move(path)) {}
    CStrayName(const CStrayName&) = delete;
    CStrayName& operator=(const CStrayName&) = delete;
    ~CStrayName() { ::unlink(m_path.c_str()); }

  private:
    fs::path m_path;
};

/// The file at the end of a chain of symbolic links. It need not exist.
fs::path FollowLinks(const fs::path& path) {
    fs::path target = path;
    std::error_code error;
    for (int i = 0; i < MaxLinksFollowed; ++i) {
        const fs::path next = fs::read_symlink(target, error);
        if (error) {
            return target;  // no link: a plain file, or nothing yet
        }
        target = target.parent_path() / next;
    }
    ThrowCannotSave(path, ELOOP);
}

fs::path FolderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : fs::path(".");
}

/// A name in the folder that no other save uses. It is short, as the file's own name may already
/// have the greatest length.
fs::path StrayNameIn(const fs::path& folder) {
    static thread_local std::mt19937_64 random{std::random_device{}()};
    return folder / (".tarnwick-" + std::to_string(::getpid()) + "-" + std::to_string(random()));
}

/// The state of the file that is to be replaced; nothing if there is none.
std::optional<struct stat> OldFileState(const fs::path& path, const fs::path& target) {
    struct stat state {};
    if (::stat(target.c_str(), &state) != 0) {
        if (errno == ENOENT) {
            return std::nullopt;
        }
        ThrowCannotSave(path, errno);
    }
    if (!S_ISREG(state.st_mode)) {
        ThrowCannotSave(path, UserText(TextNotAPlainFile));
    }
    if (::access(target.c_str(), W_OK) != 0) {
        ThrowCannotSave(path, errno);
    }
    return state;
}

/// Gives the new file the owner and mode of the old one. The owner comes first, as a change of it
/// clears mode bits; only root may change it, and the mode is what protects the content.
int CopyOwnerAndMode(int descriptor, const struct stat& old) {
    if (::fchown(descriptor, old.st_uid, old.st_gid) != 0 && errno != EPERM) {
        return errno;
    }
    return ::fchmod(descriptor, old.st_mode & PermissionBits) == 0 ? 0 : errno;
}

int WriteAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// Step 2: 0 if the file holds exactly this content, EIO if another, else the error of reading.
int CompareContent(int descriptor, std::string_view content) {
    std::vector<char> buffer(BufferSize);
    off_t offset = 0;
    while (true) {
        const ssize_t count = ::pread(descriptor, buffer.data(), buffer.size(), offset);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return count < 0 ? errno : (content.empty() ? 0 : EIO);
        }
        const std::string_view read(buffer.data(), static_cast<std::size_t>(count));
        if (!content.starts_with(read)) {
            return EIO;
        }
        content.remove_prefix(read.size());
        offset += count;
    }
}

/// Step 1, but for the content: makes the new file with the rights of the old one. Throws if it cannot.
int MakeNewFile(const fs::path& path, const fs::path& name, const std::optional<struct stat>& old) {
    // Nobody else may look into the successor of a private file, also while it is written.
    const mode_t mode = old ? S_IRUSR | S_IWUSR : mode_t{0666};
    // Read too, for the comparison of step 2.
    const int descriptor = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    const int error = descriptor < 0 ? errno : 0;
    if (error != 0) {
        ThrowCannotSave(path, error);
    }
    return descriptor;
}

/// PATH.BAK, then PATH.BAK2 and so on.
fs::path BackupName(const fs::path& target, int number) {
    fs::path backup = target;
    backup += ".BAK" + (number == 1 ? "" : std::to_string(number));
    return backup;
}

/// Step 3. A file system without hard links gets a copy. A name that cannot be replaced, because it is
/// a folder say, makes way for one with a number.
int KeepBackup(const fs::path& target) {
    const fs::path name = StrayNameIn(FolderOf(target));
    // Also removes the second link that a rename leaves when both names are the same file already,
    // as they are after a crash between the steps 3 and 4.
    const CStrayName remover(name);
    if (::link(target.c_str(), name.c_str()) != 0) {
        std::error_code error;
        fs::copy_file(target, name, error);
        if (error) {
            return error.value();
        }
    }
    for (int number = 1; number <= MaxBackupNames; ++number) {
        if (::rename(name.c_str(), BackupName(target, number).c_str()) == 0) {
            return 0;
        }
    }
    return errno;
}

/// Step 5. Some file systems cannot flush a folder and say EINVAL; a folder that may be written but
/// not read cannot be opened. Both leave the flush to the system.
int FlushFolder(const fs::path& folder) {
    const CDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.Number() < 0) {
        return errno == EACCES ? 0 : errno;
    }
    return ::fsync(descriptor.Number()) == 0 || errno == EINVAL ? 0 : errno;
}

}  // namespace

struct CAtomicFileWriter::TFiles {
    TFiles(const fs::path& shownPath, TBackup wantedBackup)
        : path(shownPath),
          target(FollowLinks(path)),
          backup(wantedBackup),
          old(OldFileState(path, target)),
          name(StrayNameIn(FolderOf(target))),
          file(MakeNewFile(path, name, old)),
          remover(name) {}

    fs::path path;    ///< As the caller named the file, for messages.
    fs::path target;  ///< The file itself, behind all links.
    TBackup backup;
    std::optional<struct stat> old;
    fs::path name;  ///< The new file until it is renamed.
    CDescriptor file;
    CStrayName remover;
    std::string buffer;
    int error = 0;  ///< Of the first failure, which all later calls report again.
};

CAtomicFileWriter::CAtomicFileWriter(const fs::path& path, TBackup backup)
    : m_pFiles(std::make_unique<TFiles>(path, backup)) {
    const int error = m_pFiles->old ? CopyOwnerAndMode(m_pFiles->file.Number(), *m_pFiles->old) : 0;
    if (error != 0) {
        ThrowCannotSave(path, error);
    }
}

CAtomicFileWriter::~CAtomicFileWriter() = default;

void CAtomicFileWriter::Append(std::string_view bytes) {
    if (m_pFiles->buffer.size() + bytes.size() > BufferSize) {
        Write(m_pFiles->buffer);
        m_pFiles->buffer.clear();
    }
    if (bytes.size() < BufferSize) {
        m_pFiles->buffer += bytes;
    } else {
        Write(bytes);
    }
}

void CAtomicFileWriter::Write(std::string_view bytes) {
    if (m_pFiles->error == 0) {
        m_pFiles->error = WriteAll(m_pFiles->file.Number(), bytes);
    }
    if (m_pFiles->error != 0) {
        ThrowCannotSave(m_pFiles->path, m_pFiles->error);
    }
}

void CAtomicFileWriter::Overwrite(std::uint64_t offset, std::string_view bytes) {
    Write(m_pFiles->buffer);
    m_pFiles->buffer.clear();
    const int descriptor = m_pFiles->file.Number();
    const off_t end = ::lseek(descriptor, 0, SEEK_CUR);
    ::lseek(descriptor, static_cast<off_t>(offset), SEEK_SET);
    Write(bytes);
    ::lseek(descriptor, end, SEEK_SET);
}

void CAtomicFileWriter::Commit() {
    Commit(nullptr);
}

void CAtomicFileWriter::Commit(std::string_view expected) {
    Commit(&expected);
}

void CAtomicFileWriter::Commit(const std::string_view* pExpected) {
    Write(m_pFiles->buffer);
    int error = ::fsync(m_pFiles->file.Number()) == 0 ? 0 : errno;
    if (error == 0 && pExpected != nullptr) {
        error = CompareContent(m_pFiles->file.Number(), *pExpected);
    }
    const int closeError = m_pFiles->file.Close();
    error = error != 0 ? error : closeError;
    if (error == 0 && m_pFiles->old && m_pFiles->backup == TBackup::Keep) {
        error = KeepBackup(m_pFiles->target);
    }
    if (error == 0 && ::rename(m_pFiles->name.c_str(), m_pFiles->target.c_str()) != 0) {
        error = errno;
    }
    if (error == 0) {
        error = FlushFolder(FolderOf(m_pFiles->target));
    }
    if (error != 0) {
        ThrowCannotSave(m_pFiles->path, error);
    }
}

void SaveFileAtomically(const fs::path& path, std::string_view content, TBackup backup) {
    CAtomicFileWriter writer(path, backup);
    writer.Append(content);
    writer.Commit(content);
}

void KeepBackupOf(const fs::path& path) {
    if (const int error = KeepBackup(FollowLinks(path)); error != 0) {
        ThrowCannotSave(path, error);
    }
}

}  // namespace tarnwick
