#pragma once
// What the commands of `tables` share.

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "cli/tables_command.h"
#include "tables/open_values.h"
#include "tables/run_control.h"
#include "tables/table_files.h"

namespace tarnwick {

/// Where tables lie unless --data says otherwise: $XDG_DATA_HOME/tarnwick, or ~/.local/share/tarnwick.
std::filesystem::path DefaultTablesFolder();
CTableFolders FoldersOf(const TTablesArguments& arguments);

/// The types of the command, ordered. Throws ChessException where there is none or one is none.
std::vector<std::string> TypesOf(const TTablesArguments& arguments);
int ThreadsOf(const TTablesArguments& arguments);

/// A file of a table that is there.
struct TTableFile {
    TTableFileMode mode = TTableFileMode::Unpacked;
    std::filesystem::path path;
    std::uint64_t bytes = 0;
};
/// All forms of the type's table that are there, in the order in which they would be read.
std::vector<TTableFile> FilesOf(const CTableFolders& folders, const std::string& type);
/// "unpacked", "lz4", "packed.lzw", "packed.lz4".
const char* NameOfMode(TTableFileMode mode);

/// The table with its index, wherever it is kept, partial ones too. Throws ChessException if there is none.
struct TTable {
    CTableIndex index;
    std::shared_ptr<CTableValues> pValues;
};
TTable OpenTable(const CTableFolders& folders, const std::string& type);

/// The position of an index with White to move and all that follows from the fields; nothing where the index
/// names no position that can arise.
std::optional<TChessboard> BoardOfIndex(const CTableIndex& index, std::uint64_t number);

/// "1.2 MB", "384 KB".
std::string BytesText(std::uint64_t bytes);

/// Stops soon after Ctrl-C.
class CStopFlag {
  public:
    CStopFlag();
    const CRunControl& Control() const { return m_control; }

  private:
    CRunControl m_control;
    std::jthread m_watcher;
};

}  // namespace tarnwick
