#include "base/byte_source.h"

#include <system_error>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/file_fault_texts.h"

namespace tarnwick {

std::size_t ReadFully(TByteSource& source, std::span<std::uint8_t> bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::size_t count = source.Read(bytes.subspan(done));
        if (count == 0) {
            break;
        }
        done += count;
    }
    return done;
}

CFileSource::CFileSource(const std::filesystem::path& path) : m_name(ToValidUtf8(path.string())) {
    // Opening a folder succeeds, and a pipe has no size: only a plain file will do.
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error)) {
        m_file.open(path, std::ios::binary);
        m_size = std::filesystem::file_size(path, error);
    }
    if (!m_file.is_open() || error) {
        throw ChessException(UserText(TextCannotOpenFile) + m_name);
    }
}

std::size_t CFileSource::Read(std::span<std::uint8_t> bytes) {
    m_file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (m_file.bad()) {
        throw ChessException(FaultInFile(TextErrorReadingFile, m_name, m_offset));
    }
    const auto count = static_cast<std::size_t>(m_file.gcount());
    m_offset += count;
    return count;
}

void CFileSource::Seek(std::uint64_t offset) {
    m_file.clear();
    m_file.seekg(static_cast<std::streamoff>(offset));
    m_offset = offset;
}

}  // namespace tarnwick
