#pragma once

// A file for a fuzz target whose reader wants a path: memory that has a name as long as it is open. A disk, or the
// making and removing of files for each input, would be the bottleneck.

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string>

namespace tarnwick {

class CFileInMemory {
  public:
    /// Gives the one file of the process this content.
    explicit CFileInMemory(std::span<const std::uint8_t> bytes) {
        const bool bWritten =
            ::ftruncate(Descriptor(), static_cast<off_t>(bytes.size())) == 0 &&
            ::pwrite(Descriptor(), bytes.data(), bytes.size(), 0) == std::ssize(bytes);
        if (!bWritten) {
            std::abort();
        }
    }

    static const std::filesystem::path& Path() {
        static const std::filesystem::path path = "/proc/self/fd/" + std::to_string(Descriptor());
        return path;
    }

  private:
    static int Descriptor() {
        static const int descriptor = ::memfd_create("tarnwick-fuzz", MFD_CLOEXEC);
        return descriptor;
    }
};

}  // namespace tarnwick
