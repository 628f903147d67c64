// Packed tables: what a random value costs, packing, unpacking. The table is of four million elements that
// follow the places of four men as those of a table of four men do.
//
// "Near" asks as a search does: some positions that differ by moves of the kings, then other ones. Their indices
// stand near each other, so most of them are in a block that is unpacked already.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <random>
#include <vector>

#include "tables/lz4e_stream.h"
#include "tables/random_access_lzw_buffer.h"

namespace tarnwick {
namespace {

using namespace RandomAccessLZWBuffer;
namespace fs = std::filesystem;

constexpr std::uint64_t Elements = 10ULL * 64 * 64 * 64;

int Distance(std::uint64_t from, std::uint64_t to) {
    const int files = std::abs(static_cast<int>(from % 8) - static_cast<int>(to % 8));
    const int ranks = std::abs(static_cast<int>(from / 8) - static_cast<int>(to / 8));
    return std::max(files, ranks);
}

/// No mate where men share fields or kings touch; else the farther the men are from each other, the longer the mate,
/// and one more or less as it happens.
const std::vector<std::uint8_t>& Table() {
    static const std::vector<std::uint8_t> table = [] {
        std::mt19937 random(1);
        std::vector<std::uint8_t> values(Elements);
        for (std::uint64_t i = 1; i < Elements; ++i) {
            const std::uint64_t white = i % 10;
            const std::uint64_t king = i / 10 % 64;
            const std::uint64_t man = i / 640 % 64;
            const std::uint64_t other = i / 40960;
            const bool bNone = king == man || man == other || king == other ||
                               Distance(white, king) < 2 || Distance(other, king) < 2;
            const int mate = 4 + Distance(white, king) + Distance(man, king) / 2 +
                             Distance(other, white) / 2 + (random() % 4 == 0 ? 1 : 0);
            values[i] = static_cast<std::uint8_t>(bNone ? 0 : mate);
        }
        return values;
    }();
    return table;
}

/// The table as a file, made once; it goes away with the program.
struct TPackedFile {
    TPackedFile() : path(fs::temp_directory_path() / "tarnwick-bench.packed.lzw") {
        const auto pWriter = MakePackedTableWriter(1, nullptr);
        pWriter->Pack(Elements, Table().data(), false, 0, 0, 1);
        pWriter->SaveToFile(path, true, 0);
    }
    ~TPackedFile() { fs::remove(path); }

    fs::path path;
};

std::unique_ptr<CRandomAccessPackedBufferBase> OpenTable(bool bDiskBased) {
    static const TPackedFile file;
    return OpenPackedTable(file.path,
                           {.letters = 2,
                            .elementCount = Elements,
                            .bDiskBased = bDiskBased,
                            .quota = 1ULL << 40},
                           nullptr)
        .pBuffer;
}

void BM_RandomValue(benchmark::State& state) {
    const auto pBuffer = OpenTable(state.range(0) != 0);
    std::mt19937_64 random(2);
    for (auto _ : state) {
        benchmark::DoNotOptimize(pBuffer->GetValue(random() % Elements, false));
    }
    state.counters["packed_percent"] =
        static_cast<double>(pBuffer->GetPackedSize()) * 100 / static_cast<double>(Elements);
}
BENCHMARK(BM_RandomValue)->ArgName("disk")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_NearValues(benchmark::State& state) {
    const auto pBuffer = OpenTable(false);
    std::mt19937_64 random(2);
    std::uint64_t centre = 0;
    int asked = 0;
    for (auto _ : state) {
        if (asked++ % 64 == 0) {
            centre = 2000 + random() % (Elements - 4000);
        }
        benchmark::DoNotOptimize(pBuffer->GetValue(centre - 2000 + random() % 4000, false));
    }
}
BENCHMARK(BM_NearValues)->Unit(benchmark::kMicrosecond);

void BM_DecompressAll(benchmark::State& state) {
    const auto pBuffer = OpenTable(false);
    for (auto _ : state) {
        benchmark::DoNotOptimize(pBuffer->DecompressAll().second);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Elements));
}
BENCHMARK(BM_DecompressAll)->Unit(benchmark::kMillisecond);

void BM_Pack(benchmark::State& state) {
    const auto pWriter = MakePackedTableWriter(1, nullptr);
    for (auto _ : state) {
        benchmark::DoNotOptimize(pWriter->Pack(Elements, Table().data(), false, 0, 0, 1));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Elements));
}
BENCHMARK(BM_Pack)->Unit(benchmark::kMillisecond);

void BM_PackLz4e(benchmark::State& state) {
    std::size_t packed = 0;
    for (auto _ : state) {
        packed = PackLz4eStream(Table()).size();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Elements));
    state.counters["packed_percent"] =
        static_cast<double>(packed) * 100 / static_cast<double>(Elements);
}
BENCHMARK(BM_PackLz4e)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace tarnwick
