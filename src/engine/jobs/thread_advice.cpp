// A root with few moves more than threads leaves threads idle at the end of a pass; one with many forcing
// moves is decided by those; one with very many quiet moves gains from half as many threads again.

#include "engine/jobs/thread_advice.h"

#include <algorithm>

#include "platform/memory_info.h"

#include "chess/escape_check.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/pins.h"

namespace tarnwick {
namespace {

constexpr int MostAdvised = 127;
constexpr int MostPliesWithoutAdvice = 13;

bool HasOneCheckByPinnedRook(const TRootSearch& search) {
    TChessboard board = search.root;
    if (!PassWhite(board)) {
        return false;
    }
    const TFieldSet pinned = PinnedBlackMen(board);
    TMove replies[MaxMovesOfSide];
    const int count = GenerateAllBlackMoves(board, replies);
    int checks = 0;
    bool bPinnedRook = false;
    for (int i = 0; i < count; ++i) {
        TChessboard next = board;
        next.m_pPrevious = &board;
        if (MakeBlackMove(next, replies[i], false) == MoveMade &&
            next.m_whiteChecker != NoChecker) {
            ++checks;
            bPinnedRook = board.m_fields[replies[i].from] == BlackRook &&
                          (pinned & FieldBit(replies[i].from)) != 0;
        }
    }
    return checks == 1 && bPinnedRook;
}

}  // namespace

int AdvisedThreads(const TThreadAdviceInput& input) {
    const int threads = input.threads;
    const int moves = input.firstMoves;
    if (threads < moves && moves <= 2 * threads && threads < 2 * input.cores) {
        return std::min({moves, 2 * threads, 2 * input.cores, MostAdvised});
    }
    if (threads < input.forcingMoves) {
        const int most = std::min(((input.bOneCheckByPinnedRook ? 1 : 0) + 2) * threads, 255);
        return std::min({input.forcingMoves, most, MostAdvised});
    }
    if (input.forcingMoves == 0 && moves > 8 * threads && threads > 1) {
        return std::min(threads + threads / 2, MostAdvised);
    }
    return 0;
}

int CountForcingFirstMoves(TRootSearch& search) {
    return static_cast<int>(
        std::count_if(search.moves.begin(), search.moves.end(), [&](const TRootMove& rootMove) {
            TChessboard* child = CopyToNextSlot(search.root);
            return MakeWhiteMove(*child, rootMove.move) != MoveRefused &&
                   child->m_blackChecker != NoChecker && CountBlackKingMoves(*child) == 0;
        }));
}

int AdviseThreads(TRootSearch& search) {
    const TSolveTask& task = search.task;
    if (search.root.m_shPlies <= MostPliesWithoutAdvice || task.m_forcedThreads != 0) {
        return 0;
    }
    return AdvisedThreads({.threads = task.m_threadCount,
                           .firstMoves = static_cast<int>(search.moves.size()),
                           .forcingMoves = CountForcingFirstMoves(search),
                           .cores = ProcessorsOfMachine().physical,
                           .bOneCheckByPinnedRook = HasOneCheckByPinnedRook(search)});
}

}  // namespace tarnwick
