#include "cli/tables_support.h"

#include <chrono>
#include <cstdlib>

#include "base/chess_exception.h"
#include "platform/memory_info.h"
#include "platform/stop_signals.h"

#include "chess/prepare_position.h"
#include "cli/text_style.h"
#include "tables/position_type.h"

namespace tarnwick {

std::filesystem::path DefaultTablesFolder() {
    const char* pDataHome = std::getenv("XDG_DATA_HOME");
    if (pDataHome != nullptr && std::filesystem::path(pDataHome).is_absolute()) {
        return std::filesystem::path(pDataHome) / "tarnwick";
    }
    const char* pHome = std::getenv("HOME");
    if (pHome == nullptr || *pHome == '\0') {
        throw ChessException("Name the folder of the tables with --data: there is no home folder.");
    }
    return std::filesystem::path(pHome) / ".local" / "share" / "tarnwick";
}

CTableFolders FoldersOf(const TTablesArguments& arguments) {
    return {arguments.data.empty() ? DefaultTablesFolder() : std::filesystem::path(arguments.data),
            std::filesystem::path()};
}

std::vector<std::string> TypesOf(const TTablesArguments& arguments) {
    std::vector<std::string> types;
    for (const std::string& type : arguments.types) {
        types.push_back(OrderedType(type));
    }
    for (const bool bWithPawns : {false, true}) {
        if (arguments.men != 0) {
            const auto all = AllTypes(arguments.men - 2, bWithPawns);
            types.insert(types.end(), all.begin(), all.end());
        }
    }
    if (types.empty()) {
        throw ChessException("Name a position type, like Qr, or a number of men with --men.");
    }
    return types;
}

int ThreadsOf(const TTablesArguments& arguments) {
    return arguments.threads > 0 ? arguments.threads : ProcessorsOfMachine().logical;
}

std::vector<TTableFile> FilesOf(const CTableFolders& folders, const std::string& type) {
    std::vector<TTableFile> files;
    const TTableName name = TableNameOf(type);
    for (const TTableFileMode mode : {TTableFileMode::Unpacked, TTableFileMode::Lz4,
                                      TTableFileMode::PackedLzw, TTableFileMode::PackedLz4}) {
        const auto path = folders.MakeFileName(name, mode, false, false);
        std::error_code none;
        const std::uintmax_t bytes = std::filesystem::file_size(path, none);
        if (!none) {
            files.push_back({mode, path, bytes});
        }
    }
    return files;
}

const char* NameOfMode(TTableFileMode mode) {
    constexpr std::array<const char*, 4> Names = {"unpacked", "lz4", "packed.lzw", "packed.lz4"};
    return Names[static_cast<std::size_t>(mode)];
}

TTable OpenTable(const CTableFolders& folders, const std::string& type) {
    TTable table{CTableIndex(type), nullptr};
    // Whoever reads all of it does so once: larger tables stay on the disk.
    constexpr std::uint64_t Budget = std::uint64_t{1} << 30;
    table.pValues = OpenValues(folders, table.index, Budget, false).pValues;
    if (!table.pValues) {
        throw ChessException("There is no table of " + type +
                             ". Make it: tarnwick-cli tables generate " + type +
                             " --with-dependencies");
    }
    return table;
}

std::optional<TChessboard> BoardOfIndex(const CTableIndex& index, std::uint64_t number) {
    TChessboard board = EmptyChessboard();
    board.m_shPlies = board.m_shRootPlies = 1;
    if (!index.PositionOfIndex(number, board) || !PreparePositionNoThrow(board, true) ||
        board.m_blackChecker != NoChecker) {
        return std::nullopt;
    }
    return board;
}

std::string BytesText(std::uint64_t bytes) {
    constexpr std::uint64_t Kilobyte = 1024;
    if (bytes < Kilobyte * Kilobyte) {
        return GroupedNumber((bytes + Kilobyte - 1) / Kilobyte) + " KB";
    }
    const std::uint64_t tenths = bytes * 10 / (Kilobyte * Kilobyte);
    return GroupedNumber(tenths / 10) + '.' + std::to_string(tenths % 10) + " MB";
}

CStopFlag::CStopFlag()
    : m_watcher([this](const std::stop_token& end) {
          while (!end.stop_requested()) {
              if (StopRequested()) {
                  m_control.Stop();
              }
              std::this_thread::sleep_for(std::chrono::milliseconds(50));
          }
      }) {}

}  // namespace tarnwick
