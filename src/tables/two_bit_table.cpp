#include "tables/two_bit_table.h"

#include <array>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/file_fault_texts.h"
#include "base/filled_text.h"
#include "platform/random_access_file.h"

#include "tables/table_file_texts.h"
#include "tables/table_index.h"

namespace tarnwick {

CTwoBitTable::CTwoBitTable(const std::filesystem::path& path, const std::filesystem::path& details,
                           std::uint64_t indexCount) {
    const CRandomAccessFile detailsFile(details);
    std::array<std::uint8_t, 1> flags{};
    if (!detailsFile.ReadAt(0, flags)) {
        throw ChessException(UserText(TextCannotOpenFile) + ToValidUtf8(details.string()));
    }
    m_elementSize = (flags[0] & TwoByteElementsFlag) != 0 ? 2 : 1;
    const CRandomAccessFile file(path);
    if (!file.IsOpen()) {
        throw ChessException(UserText(TextCannotOpenFile) + ToValidUtf8(path.string()));
    }
    if (file.Size() != indexCount / 4 || indexCount % 4 != 0) {
        throw ChessException(FilledText(TextDamagedTableFile, {ToValidUtf8(path.string())}));
    }
    m_bytes.resize(file.Size());
    if (!file.ReadAt(0, m_bytes)) {
        throw ChessException(FaultInFile(TextErrorReadingFile, ToValidUtf8(path.string()), 0));
    }
}

void CTwoBitTable::Add(std::uint64_t index, std::uint8_t value) {
    const std::lock_guard lock(m_mutex);
    m_bytes[index / 4] |= static_cast<std::uint8_t>((value & 3) << (index % 4 * 2));
}

}  // namespace tarnwick
