// In a folder that all users share somebody may lay a link or a folder of his own under the name that we
// will want. So the folder is opened without following a link, judged by its descriptor, and the lock's file
// is opened relative to that descriptor: what was judged is what is used.

#include "platform/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace tarnwick {
namespace {

constexpr const char* LockName = "tarnwick.lock";
constexpr mode_t OwnerOnly = S_IRWXU;
constexpr mode_t ForOthers = S_IRWXG | S_IRWXO;

/// A descriptor of the folder if it is safe, else -1.
int OpenPrivateFolder(const std::filesystem::path& folder) noexcept {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0) {
        return -1;
    }
    struct stat state {};
    const bool bSafe = ::fstat(descriptor, &state) == 0 && state.st_uid == ::getuid() &&
                       (state.st_mode & ForOthers) == 0;
    if (!bSafe) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

bool IsPrivateFolder(const std::filesystem::path& folder) {
    const int descriptor = OpenPrivateFolder(folder);
    if (descriptor < 0) {
        return false;
    }
    ::close(descriptor);
    return true;
}

}  // namespace

std::filesystem::path FolderOfInstanceLock(const std::filesystem::path& runtimeFolder,
                                           const std::filesystem::path& temporaryFolder) {
    if (runtimeFolder.is_absolute() && IsPrivateFolder(runtimeFolder)) {
        return runtimeFolder;
    }
    std::filesystem::path own = temporaryFolder / ("tarnwick-" + std::to_string(::getuid()));
    ::mkdir(own.c_str(), OwnerOnly);  // fails where it exists; whose it is, is asked now
    return IsPrivateFolder(own) ? own : std::filesystem::path();
}

CInstanceLock::CInstanceLock(const std::filesystem::path& folder) noexcept {
    const int folderDescriptor = OpenPrivateFolder(folder);
    if (folderDescriptor < 0) {
        return;
    }
    const int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    m_nDescriptor = ::openat(folderDescriptor, LockName, flags, S_IRUSR | S_IWUSR);
    ::close(folderDescriptor);
    if (m_nDescriptor >= 0 && ::flock(m_nDescriptor, LOCK_EX | LOCK_NB) != 0) {
        m_bSecond = errno == EWOULDBLOCK;
    }
}

CInstanceLock::~CInstanceLock() {
    if (m_nDescriptor >= 0) {
        ::close(m_nDescriptor);
    }
}

}  // namespace tarnwick
