#include "platform/append_line.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarnwick {

bool AppendLine(const std::filesystem::path& file, std::string_view text) noexcept {
    const int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const int descriptor = ::open(file.c_str(), flags, S_IRUSR | S_IWUSR);
    if (descriptor < 0) {
        return false;
    }
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    const bool bClosed = ::close(descriptor) == 0;
    return written == static_cast<ssize_t>(text.size()) && bClosed;
}

int NumberOfThisProcess() noexcept {
    return ::getpid();
}

}  // namespace tarnwick
