// Lookups in precalculated tables as the search makes them: from the board to the plies.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "chess/prepare_position.h"
#include "tables/register/held_tables.h"

namespace tarnwick {
namespace {

/// A table of this type, its values at random, in a folder of its own. Where the values stand counts, not what they
/// are.
class CProbedTable {
  public:
    explicit CProbedTable(const std::string& type)
        : m_index(type),
          m_folder(std::filesystem::temp_directory_path() / ("tarnwick-probe-" + type)) {
        std::mt19937 random(1);
        std::vector<char> bytes(m_index.GetIndexCount());
        for (char& value : bytes) {
            value = static_cast<char>(random() % 40);
        }
        bytes[0] = CompactPawnsFlag;
        std::filesystem::create_directories(m_folder / "Precalc");
        const TTableName name{.type = type, .men = static_cast<int>(type.size()) + 2};
        std::ofstream file(
            CTableFolders(m_folder, {}).MakeFileName(name, TTableFileMode::Unpacked, false, false),
            std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        for (std::size_t i = 0; i < 4096;) {
            TChessboard board = EmptyChessboard();
            if (m_index.PositionOfIndex(random() % m_index.GetIndexCount(), board) &&
                PreparePositionNoThrow(board, true)) {
                board.m_shPlies = 41;
                m_boards.push_back(board);
                ++i;
            }
        }
    }
    ~CProbedTable() { std::filesystem::remove_all(m_folder); }

    const CTableIndex& Index() const { return m_index; }
    const std::vector<TChessboard>& Boards() const { return m_boards; }
    TTableOptions Options() const {
        TTableOptions options;
        options.bGlobalRegisterForceDiskAccess = false;
        options.programFolder = m_folder;
        return options;
    }

  private:
    CTableIndex m_index;
    std::filesystem::path m_folder;
    std::vector<TChessboard> m_boards;
};

void IndexOfPosition(benchmark::State& state, const char* type) {
    const CProbedTable table(type);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(table.Index().IndexOfPosition(table.Boards()[i++ % 4096]));
    }
}
BENCHMARK_CAPTURE(IndexOfPosition, Q, "Q");
BENCHMARK_CAPTURE(IndexOfPosition, Qr, "Qr");
BENCHMARK_CAPTURE(IndexOfPosition, Pp, "Pp");

/// Finding the register in the thread's hands, and the value in it.
void Probe(benchmark::State& state, const char* type) {
    const CProbedTable table(type);
    TGlobalRegisterSet registers(table.Options());
    CHeldTables held(&registers);
    std::size_t i = 0;
    for (auto _ : state) {
        const TChessboard& board = table.Boards()[i++ % 4096];
        const TGlobalRegister* pRegister = held.Find(board, {});
        benchmark::DoNotOptimize(pRegister->IsMateByIndex(board));
    }
}
BENCHMARK_CAPTURE(Probe, Q, "Q");
BENCHMARK_CAPTURE(Probe, Qr, "Qr");
BENCHMARK_CAPTURE(Probe, Pp, "Pp");

}  // namespace
}  // namespace tarnwick
