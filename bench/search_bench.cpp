// Speed of whole solves and of the position memory.

#include <benchmark/benchmark.h>

#include "chess/fen.h"
#include "engine/jobs/start_solving.h"
#include "engine/search/position_memory.h"

namespace tarnwick {
namespace {

TChessboard Read(const char* placement) {
    TChessboard board = EmptyChessboard();
    bool bWithheld = false;
    bool bEnPassant = false;
    ReadFen(board, placement, bWithheld, bEnPassant);
    return board;
}

/// All keys of one problem; items are visits near the leaves.
void SolveAllKeys(benchmark::State& state, const char* placement, int moves) {
    const TChessboard board = Read(placement);
    std::uint64_t nodes = 0;
    for (auto _ : state) {
        TSolveTask task;
        task.m_options.bAllSolutions = true;
        const TSolveResult result = StartSolving(task, board, moves);
        nodes += result.workNodes;
        benchmark::DoNotOptimize(result.keys.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(nodes));
}
BENCHMARK_CAPTURE(SolveAllKeys, TwoMover, "8/8/1p1k4/1P2pR2/4K3/2N5/6B1/8", 2);
BENCHMARK_CAPTURE(SolveAllKeys, FourMover, "8/8/1p1k4/1P2pR2/4K3/2N5/6B1/8", 4)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SolveAllKeys, FiveMover, "k7/P1K5/8/1p6/8/2B5/8/8", 5)
    ->Unit(benchmark::kMillisecond);

/// A miss and a hit of the memory, at a size beyond the caches.
void FindInMemory(benchmark::State& state) {
    TPositionMemory memory(64);
    TChessboard board = Read("8/8/1p1k4/1P2pR2/4K3/2N5/6B1/8");
    std::uint64_t seed = 1;
    for (auto _ : state) {
        seed = seed * 6364136223846793005ULL + 1442695040888963407ULL;
        board.m_knights = seed >> 40;  // Stands for other positions; no rule of chess is asked.
        benchmark::DoNotOptimize(memory.Find(board, 3));
        if (state.range(0) != 0) {
            memory.StoreNoMate(board, 3);
        }
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(FindInMemory)->Arg(0)->Arg(1)->ArgName("store");

}  // namespace
}  // namespace tarnwick
