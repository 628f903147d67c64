// Speed of the chess core's hot primitives, over a few positions of different kinds. Items are calls.

#include <benchmark/benchmark.h>

#include <array>

#include "chess/attacks.h"
#include "chess/board_stack.h"
#include "chess/escape_check.h"
#include "chess/evasions.h"
#include "chess/fen.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "chess/perft.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

constexpr std::array Placements = {
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R",
    "8/8/1p1k4/1P2pR2/4K3/2N5/6B1/8",
    "2b1rn2/1p1P1p2/2k1p3/Q2n4/8/1B2N3/5KP1/2R5",
    "k7/P1K5/8/1p6/8/2B5/8/8",
};

/// The positions with White, or Black, to move, ready for the make operations.
struct TBoards {
    explicit TBoards(bool bWhiteToMove) {
        for (std::size_t i = 0; i < Placements.size(); ++i) {
            bool bWithheld = false;
            bool bEnPassant = false;
            boards[i] = EmptyChessboard();
            ReadFen(boards[i], Placements[i], bWithheld, bEnPassant);
            boards[i].m_pThread = &stack;
            boards[i].m_shPlies = boards[i].m_shRootPlies = bWhiteToMove ? 9 : 8;
        }
        stack.m_pRootBoard = &boards[0];
    }
    TBoardStack stack;
    std::array<TChessboard, Placements.size()> boards;
};

void CopyBoard(benchmark::State& state) {
    TBoards set(true);
    for (auto _ : state) {
        for (TChessboard& board : set.boards) {
            benchmark::DoNotOptimize(CopyToNextSlot(board));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Placements.size()));
}
BENCHMARK(CopyBoard);

void AttackTestOfEveryField(benchmark::State& state) {
    TBoards set(true);
    for (auto _ : state) {
        int attacked = 0;
        for (const TChessboard& board : set.boards) {
            for (int field = 0; field < FieldCount; ++field) {
                attacked += IsFieldAttackedByWhite(board, FileOf(field), RankOf(field)) ? 1 : 0;
            }
        }
        benchmark::DoNotOptimize(attacked);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Placements.size()) * 64);
}
BENCHMARK(AttackTestOfEveryField);

void GenerateAll(benchmark::State& state) {
    TBoards set(true);
    std::int64_t moves = 0;
    for (auto _ : state) {
        for (const TChessboard& board : set.boards) {
            TMove list[MaxMovesOfSide];
            moves += GenerateAllWhiteMoves(board, list);
            benchmark::DoNotOptimize(list);
        }
    }
    state.SetItemsProcessed(moves);
}
BENCHMARK(GenerateAll);

/// One made move with its copy, legal or refused.
template <bool bWhite>
void MakeEveryMove(benchmark::State& state) {
    TBoards set(bWhite);
    std::int64_t made = 0;
    for (auto _ : state) {
        for (TChessboard& board : set.boards) {
            TMove list[MaxMovesOfSide];
            const int count =
                bWhite ? GenerateAllWhiteMoves(board, list) : GenerateAllBlackMoves(board, list);
            for (int i = 0; i < count; ++i) {
                TChessboard* next = CopyToNextSlot(board);
                benchmark::DoNotOptimize(bWhite ? MakeWhiteMove(*next, list[i])
                                                : MakeBlackMove(*next, list[i], false));
            }
            made += count;
        }
    }
    state.SetItemsProcessed(made);
}
BENCHMARK(MakeEveryMove<true>)->Name("MakeEveryWhiteMove");
BENCHMARK(MakeEveryMove<false>)->Name("MakeEveryBlackMove");

void MateInOne(benchmark::State& state) {
    TBoards set(true);
    for (auto _ : state) {
        for (TChessboard& board : set.boards) {
            benchmark::DoNotOptimize(IsMateInOne(board));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Placements.size()));
}
BENCHMARK(MateInOne);

void FlightsOfBlackKing(benchmark::State& state) {
    TBoards set(true);
    for (auto _ : state) {
        for (const TChessboard& board : set.boards) {
            benchmark::DoNotOptimize(BlackKingFlights(board));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Placements.size()));
}
BENCHMARK(FlightsOfBlackKing);

void Prepare(benchmark::State& state) {
    TBoards set(true);
    for (auto _ : state) {
        for (TChessboard& board : set.boards) {
            PreparePosition(board, false);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Placements.size()));
}
BENCHMARK(Prepare);

/// Made and legality-checked moves a second, nothing counted in bulk.
void PerftDepthFour(benchmark::State& state) {
    TBoards set(true);
    std::uint64_t moves = 0;
    for (auto _ : state) {
        moves += PerftOfPosition(set.boards[0], 4);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(moves));
}
BENCHMARK(PerftDepthFour)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwick
