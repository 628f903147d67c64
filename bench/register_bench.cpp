// The temporary register at 10 million positions: lookups, inserts, memory, and life at the memory limit.
// Everything goes through the aggregate, so the locks and the limits are in the figures.
//
// "Prefetched" means what the search does: the hash is known and the line under way some positions ahead
// of the question. Positions are one set of men on random fields, as the lines of one problem give them.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <array>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "registers/aggregated_register.h"

namespace tarnwick {
namespace {

constexpr std::uint64_t RegisterSize = 10'000'000;
constexpr std::size_t QueryCount = 1 << 20;
constexpr std::size_t PrefetchDistance = 6;

constexpr std::array<TFigureCode, 14> Men = {
    WhiteKing, WhiteQueen, WhiteRook,   WhiteBishop, WhiteKnight, WhitePawn, WhitePawn,
    BlackKing, BlackRook,  BlackBishop, BlackKnight, BlackPawn,   BlackPawn, BlackPawn};

std::uint64_t Mixed(std::uint64_t x) {
    x += 0x9E3779B97F4A7C15ULL;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31);
}

/// The position with this number: always the same one, and nearly always another one than any other's.
TChessboardRegisterItem PositionNumber(std::uint64_t number) {
    TChessboardRegisterItem item;
    std::uint64_t draw = number << 8;
    std::uint64_t random = 0;
    int drawn = 0;
    for (const TFigureCode man : Men) {
        std::uint64_t field = 0;
        do {
            if (drawn++ % 10 == 0) {
                random = Mixed(draw++);
            }
            field = random & 63;
            random >>= 6;
        } while (item.m_fields[field] != EmptyField);
        item.m_fields[field] = man;
    }
    return item;
}

std::vector<TChessboardRegisterItem> Positions(std::uint64_t from, std::size_t count,
                                               std::uint64_t step) {
    std::vector<TChessboardRegisterItem> positions(count);
    for (std::size_t i = 0; i < count; ++i) {
        positions[i] = PositionNumber(from + Mixed(i) % (count * step));
    }
    return positions;
}

using TRegister = TAggregatedTemporaryChessboardRegister;

std::unique_ptr<TRegister> MakeRegister(std::uint32_t maxElements) {
    auto made = std::make_unique<TRegister>(TRegisterSettings{});
    TRegisterLimits limits;
    limits.m_maxElements = maxElements;
    made->UpdateLimits(limits);
    made->SetBucketCount(524288, true);
    return made;
}

/// Plies as a search stores them: the shorter, the more often.
std::uint16_t PliesOf(std::uint64_t number) {
    std::uint16_t plies = 3;
    for (std::uint64_t random = Mixed(number ^ 77); (random & 1) != 0 && plies < 31; random >>= 1) {
        plies = static_cast<std::uint16_t>(plies + 2);
    }
    return plies;
}

void Store(TRegister& target, std::uint64_t number) {
    const TChessboardRegisterItem item = PositionNumber(number);
    target.StoreResult(PliesOf(number), item, HashOf(item), number % 4 == 0);
}

const TRegister& FullRegister() {
    static const std::unique_ptr<TRegister> filled = [] {
        auto made = MakeRegister(~0u);
        for (std::uint64_t i = 0; i < RegisterSize; ++i) {
            Store(*made, i);
        }
        return made;
    }();
    return *filled;
}

std::uint64_t ResidentBytes() {
    std::ifstream file("/proc/self/statm");
    std::uint64_t total = 0;
    std::uint64_t resident = 0;
    file >> total >> resident;
    return resident * 4096;
}

void Ask(benchmark::State& state, std::uint64_t firstNumber, bool bPrefetch) {
    const TRegister& asked = FullRegister();
    const auto queries = Positions(firstNumber, QueryCount, RegisterSize / QueryCount);
    std::vector<TPositionHash> hashes(QueryCount + PrefetchDistance);
    for (std::size_t i = 0; i < QueryCount; ++i) {
        hashes[i] = HashOf(queries[i]);
    }
    std::size_t i = 0;
    for (auto _ : state) {
        if (bPrefetch) {
            asked.Prefetch(hashes[i + PrefetchDistance]);
        }
        benchmark::DoNotOptimize(asked.FindResult(5, queries[i], hashes[i], 0, 0));
        i = (i + 1) % QueryCount;
    }
    state.SetItemsProcessed(state.iterations());
}

void Miss(benchmark::State& state) {
    Ask(state, RegisterSize * 2, false);
}
void MissPrefetched(benchmark::State& state) {
    Ask(state, RegisterSize * 2, true);
}
void Hit(benchmark::State& state) {
    Ask(state, 0, false);
}
void HitPrefetched(benchmark::State& state) {
    Ask(state, 0, true);
}
BENCHMARK(Miss);
BENCHMARK(MissPrefetched);
BENCHMARK(Hit);
BENCHMARK(HitPrefetched);

void HashAPosition(benchmark::State& state) {
    TChessboardRegisterItem item = PositionNumber(1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(item);
        benchmark::DoNotOptimize(HashOf(item));
    }
}
BENCHMARK(HashAPosition);

struct TCpuTime {
    double user = 0;    ///< Seconds.
    double system = 0;  ///< Nearly all of it hands out cleared pages.
};

/// Time of this process. Not the clock on the wall: these runs are long, and others may share the machine.
TCpuTime CpuTime() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return {seconds(usage.ru_utime), seconds(usage.ru_stime)};
}

void AddTimeSince(const TCpuTime& start, TCpuTime& sum) {
    const TCpuTime now = CpuTime();
    sum.user += now.user - start.user;
    sum.system += now.system - start.system;
}

/// Ten million inserts into an empty register; the making of the positions is taken off.
void InsertTenMillion(benchmark::State& state) {
    std::vector<TChessboardRegisterItem> batch(100'000);
    for (auto _ : state) {
        const std::uint64_t before = ResidentBytes();
        auto filled = MakeRegister(~0u);
        TCpuTime time;
        for (std::uint64_t begin = 0; begin < RegisterSize; begin += batch.size()) {
            for (std::size_t i = 0; i < batch.size(); ++i) {
                batch[i] = PositionNumber(begin + i);
            }
            const TCpuTime start = CpuTime();
            for (std::size_t i = 0; i < batch.size(); ++i) {
                filled->StoreResult(PliesOf(begin + i), batch[i], HashOf(batch[i]), i % 4 == 0);
            }
            AddTimeSince(start, time);
        }
        state.SetIterationTime(time.user + time.system);
        const auto elements = static_cast<double>(filled->ElementCount());
        state.counters["user_ns"] = time.user * 1e9 / elements;
        state.counters["system_ns"] = time.system * 1e9 / elements;
        state.counters["bytes_per_position"] =
            static_cast<double>(ResidentBytes() - before) / elements;
    }
}
BENCHMARK(InsertTenMillion)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);

/// Three lookups and a store, again and again. Argument 1: the register holds half of what comes, so that
/// it runs at its limit all the time; argument 0: it has room for all.
void ThreeLookupsAndAStore(benchmark::State& state) {
    constexpr std::uint64_t Stores = 12'000'000;
    const bool bAtLimit = state.range(0) != 0;
    std::vector<TChessboardRegisterItem> batch(100'000);
    for (auto _ : state) {
        auto filled = MakeRegister(bAtLimit ? 5'000'000 : ~0u);
        TCpuTime time;
        for (std::uint64_t begin = 0; begin < Stores; begin += batch.size()) {
            for (std::size_t i = 0; i < batch.size(); ++i) {
                batch[i] = PositionNumber(begin + i);
            }
            const TCpuTime start = CpuTime();
            for (std::size_t i = 0; i < batch.size(); ++i) {
                for (const std::size_t asked : {i, i * 7 % batch.size(), i * 13 % batch.size()}) {
                    benchmark::DoNotOptimize(
                        filled->FindResult(5, batch[asked], HashOf(batch[asked]), 0, 0));
                }
                filled->StoreResult(PliesOf(begin + i), batch[i], HashOf(batch[i]), i % 4 == 0);
            }
            if (begin >= Stores / 2) {
                AddTimeSince(start, time);
            }
        }
        state.SetIterationTime(time.user + time.system);
        state.counters["user_ns"] = time.user * 1e9 / (Stores / 2.0);
        state.counters["system_ns"] = time.system * 1e9 / (Stores / 2.0);
        state.counters["held"] = static_cast<double>(filled->ElementCount());
    }
}
BENCHMARK(ThreeLookupsAndAStore)
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace tarnwick
