#pragma once

// A file for a fuzz target whose reader wants a path. It stands in memory where there is such a folder, as a disk
// would be the bottleneck, and goes away with the object.

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>

namespace tarnwick {

class CFileInMemory {
  public:
    explicit CFileInMemory(std::span<const std::uint8_t> bytes) {
        std::ofstream(Path(), std::ios::binary | std::ios::trunc)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }
    CFileInMemory(const CFileInMemory&) = delete;
    CFileInMemory& operator=(const CFileInMemory&) = delete;
    ~CFileInMemory() { std::filesystem::remove(Path()); }

    /// One for each process: one object at a time.
    static const std::filesystem::path& Path() {
        static const std::filesystem::path path = [] {
            const std::filesystem::path memory = "/dev/shm";
            return (is_directory(memory) ? memory : std::filesystem::temp_directory_path()) /
                   ("tarnwick-fuzz-" + std::to_string(::getpid()));
        }();
        return path;
    }
};

}  // namespace tarnwick
