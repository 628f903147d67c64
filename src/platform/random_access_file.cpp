#include "platform/random_access_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

namespace tarnwick {

CRandomAccessFile::CRandomAccessFile(const std::filesystem::path& path) noexcept
    : m_descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {
    struct stat state {};
    if (m_descriptor < 0) {
        return;
    }
    if (::fstat(m_descriptor, &state) != 0 || !S_ISREG(state.st_mode)) {
        ::close(std::exchange(m_descriptor, -1));
        return;
    }
    m_size = static_cast<std::uint64_t>(state.st_size);
}

CRandomAccessFile::~CRandomAccessFile() {
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

bool CRandomAccessFile::ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) const noexcept {
    constexpr auto LargestOffset = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
    if (m_descriptor < 0 || offset > LargestOffset || bytes.size() > LargestOffset - offset) {
        return false;
    }
    while (!bytes.empty()) {
        const ssize_t count =
            ::pread(m_descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        offset += static_cast<std::uint64_t>(count);
    }
    return true;
}

}  // namespace tarnwick
