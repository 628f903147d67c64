#include "tables/table_files.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "base/encoding.h"
#include "base/filled_text.h"

#include "tables/table_file_texts.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// By TTableFileMode.
constexpr std::array<std::string_view, 4> Suffixes = {"", ".lz4", ".packed.lzw", ".packed.lz4"};

std::string_view SuffixOf(TTableFileMode mode) {
    return Suffixes.at(static_cast<std::size_t>(mode));
}

/// The form whose suffix the name has: the longest one, as ".packed.lz4" ends with ".lz4" too.
TTableFileMode ModeOfName(std::string_view name) {
    TTableFileMode found = TTableFileMode::Unpacked;
    for (std::size_t i = 0; i < Suffixes.size(); ++i) {
        if (name.ends_with(Suffixes[i]) && Suffixes[i].size() > SuffixOf(found).size()) {
            found = static_cast<TTableFileMode>(i);
        }
    }
    return found;
}

/// A path of the options and of whole file names, in the host's separators.
fs::path HostPath(std::wstring_view name) {
    std::string text = ToUtf8(name);
    std::ranges::replace(text, '\\', '/');
    return fs::path(text).make_preferred();
}

std::string SubFolderOf(const TTableName& name) {
    return std::to_string(name.men) + "pieces" + (name.bPawns ? "+pawns" : "-pawns");
}

}  // namespace

std::string StemOfTable(std::string_view type) {
    std::string stem;
    bool bInBrackets = false;
    bool bFixed = false;
    for (std::size_t i = 0; i < type.size(); ++i) {
        const char sign = type[i];
        stem += sign;
        bInBrackets = sign == '(' || (bInBrackets && sign != ')');
        bFixed = bFixed || sign == '+';
        const bool bMan = !bInBrackets && (!bFixed || (i > 0 && type[i - 1] == '+'));
        if (bMan && sign >= 'a' && sign <= 'z') {
            stem += '_';
        }
    }
    return stem;
}

CTableFolders::CTableFolders(fs::path programFolder, fs::path precalcPath)
    : m_programFolder(std::move(programFolder)), m_precalcPath(std::move(precalcPath)) {}

fs::path CTableFolders::MakeFileName(const TTableName& name, TTableFileMode mode, bool bDetails,
                                     bool bAlternative) const {
    if (!name.wholeFileName.empty()) {
        fs::path path = m_programFolder / HostPath(name.wholeFileName);
        if (ModeOfName(path.string()) != mode) {
            path += "_SKIPTHIS";
        }
        return path;
    }
    if (bAlternative && !name.bFixedMen && m_precalcPath.empty()) {
        return {};
    }
    const fs::path place = PlaceOf(name, bAlternative);
    const fs::path subFolder = place / SubFolderOf(name);
    std::string file = StemOfTable(name.type) + ".precalc";
    file += bDetails ? ".details" : "";
    file += SuffixOf(mode);
    return (Exists(subFolder) ? subFolder : place) / file;
}

fs::path CTableFolders::MaxMateFile(const TTableName& name) const {
    return m_programFolder / "MaxMateIndexesCache" / (StemOfTable(name.type) + ".idx");
}

fs::path CTableFolders::FolderOfNewTable(const TTableName& name) const {
    return PlaceOf(name, false) / SubFolderOf(name);
}

fs::path CTableFolders::PlaceOf(const TTableName& name, bool bAlternative) const {
    if (name.bFixedMen) {
        return m_programFolder / "CustomPrecalc";
    }
    return bAlternative ? m_precalcPath : m_programFolder / "Precalc";
}

bool CTableFolders::Exists(const fs::path& folder) const {
    const std::lock_guard lock(m_mutex);
    if (m_found.contains(folder)) {
        return true;
    }
    std::error_code error;
    const bool bExists = fs::is_directory(folder, error);
    if (bExists) {
        m_found.insert(folder);
    }
    return bExists;
}

fs::path MakePackedFileName(const fs::path& name, bool bLzw) {
    std::string text = name.string();
    if (text.find(".LZ4") != std::string::npos) {
        text.resize(text.rfind('.'));
    }
    return text.append(bLzw ? SuffixOf(TTableFileMode::PackedLzw)
                            : SuffixOf(TTableFileMode::PackedLz4));
}

std::optional<std::uint8_t> ReadTableFlags(const CRandomAccessFile& file) {
    std::array<std::uint8_t, 1> flags{};
    return file.ReadAt(0, flags) ? std::optional(flags[0]) : std::nullopt;
}

TTableFileKind CheckTableFileSize(const CRandomAccessFile& file, const fs::path& path,
                                  std::uint64_t indexCount, int elementSize, TUserDialog& dialog) {
    if (file.IsOpen() && file.Size() == indexCount >> 2) {
        return TTableFileKind::TwoBit;
    }
    const std::uint64_t expected = indexCount * static_cast<std::uint64_t>(elementSize);
    if (file.IsOpen() && file.Size() == expected) {
        return TTableFileKind::Elements;
    }
    const std::string size = file.IsOpen() ? std::to_string(file.Size()) : "-1";
    dialog.Tell(FilledText(TextImproperTableFile,
                           {ToValidUtf8(path.string()), size, std::to_string(expected)}));
    return TTableFileKind::Improper;
}

}  // namespace tarnwick
