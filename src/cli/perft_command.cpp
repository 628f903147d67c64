#include "cli/perft_command.h"

#include "base/chess_exception.h"
#include "platform/clock.h"
#include "platform/stop_signals.h"

#include "chess/board_stack.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/move_text.h"
#include "chess/perft.h"
#include "chess/start_position.h"
#include "cli/problem_input.h"

namespace tarnwick {
namespace {

/// A count of this depth takes a second or so; Ctrl-C is looked at between two of them.
constexpr int DepthWithoutLook = 5;

/// The typed position with the typed side to move.
TChessboard RootBoard(const TPerftArguments& arguments, TBoardStack& stack) {
    TTypedPosition typed = ReadTypedPosition(arguments.fen);
    // Plies enough that the end of the search is never near; their parity is the side to move.
    const int plies = 2 * arguments.depth + (typed.bBlackToMove ? 2 : 1);
    TChessboard& board = typed.board;
    board.m_shPlies = board.m_shRootPlies = static_cast<std::uint16_t>(plies);
    CheckStartPosition(board, board.m_shPlies, true, nullptr, nullptr);
    board.m_pThread = &stack;
    return board;
}

/// Calls visit(move, board after it) for each legal move until Ctrl-C.
template <typename TVisit>
void VisitMoves(TChessboard& board, const TVisit& visit) {
    TMove moves[MaxMovesOfSide];
    const bool bWhite = IsWhiteToMove(board);
    const int count =
        bWhite ? GenerateAllWhiteMoves(board, moves) : GenerateAllBlackMoves(board, moves);
    for (int i = 0; i < count && !StopRequested(); ++i) {
        TChessboard* next = CopyToNextSlot(board);
        const int made =
            bWhite ? MakeWhiteMove(*next, moves[i]) : MakeBlackMove(*next, moves[i], false);
        if (made != MoveRefused) {
            visit(moves[i], *next);
        }
    }
}

/// Perft that ends at Ctrl-C, with a count that means nothing then.
std::uint64_t CountSequences(TChessboard& board, int depth) {
    if (depth <= DepthWithoutLook) {
        return Perft(board, depth);
    }
    std::uint64_t sum = 0;
    VisitMoves(board, [&sum, depth](TMove /*move*/, TChessboard& next) {
        sum += CountSequences(next, depth - 1);
    });
    return sum;
}

std::uint64_t DivideSequences(TChessboard& root, int depth, TConsole& console) {
    std::uint64_t sum = 0;
    VisitMoves(root, [&](TMove move, TChessboard& next) {
        const std::uint64_t count = CountSequences(next, depth - 1);
        if (!StopRequested()) {
            console.out << MoveToDisplayText(move, root) << ": " << count << std::endl;
            sum += count;
        }
    });
    return sum;
}

}  // namespace

TExitStatus RunPerft(const TPerftArguments& arguments, TConsole& console) {
    TBoardStack stack;
    TChessboard root = RootBoard(arguments, stack);
    stack.m_pRootBoard = &root;
    const std::int64_t startMs = NowMs();
    const bool bDivide = arguments.bDivide && arguments.depth > 0;
    const std::uint64_t count = bDivide ? DivideSequences(root, arguments.depth, console)
                                        : CountSequences(root, arguments.depth);
    if (StopRequested()) {
        console.dialog.Tell("Stopped before the count was complete");
        return TExitStatus::Stopped;
    }
    const auto elapsedMs = static_cast<std::uint64_t>(NowMs() - startMs);
    const std::string speed = SpeedText(count, elapsedMs, " moves");
    console.out << "perft(" << arguments.depth << ") = " << console.style.Bold(GroupedNumber(count))
                << "  in " << DurationText(elapsedMs) << (speed.empty() ? "" : ", " + speed)
                << std::endl;
    return TExitStatus::Success;
}

}  // namespace tarnwick
