#pragma once

// A folder of its own for a test that writes files; it goes away with the object.

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarnwick {

class CTempFolder {
  public:
    CTempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "tarnwick-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder: " + name);
        }
        m_path = name;
    }
    CTempFolder(const CTempFolder&) = delete;
    CTempFolder& operator=(const CTempFolder&) = delete;
    ~CTempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

    /// Number of names in the folder itself.
    [[nodiscard]] std::size_t Count() const {
        const std::filesystem::directory_iterator names(m_path);
        return static_cast<std::size_t>(std::distance(begin(names), end(names)));
    }

  private:
    std::filesystem::path m_path;
};

/// The bytes of a file; the empty text if it cannot be opened.
inline std::string ReadBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Writes the file plainly, as an editor or another program would.
inline void WriteBytes(const std::filesystem::path& path, std::string_view content) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

}  // namespace tarnwick
