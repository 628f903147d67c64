// A line of typed moves on any position. Bytes: plies left, number of men, a field and a man for each
// (the first two are the kings), then the moves, one a line. What is accepted is written and read again
// without a difference, and what is played leaves the mover's own king safe.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "base/chess_exception.h"

#include "chess/board_stack.h"
#include "chess/checked_move.h"
#include "chess/move_text.h"
#include "chess/prepare_position.h"

namespace {

using namespace tarnwick;

constexpr std::array<TFigureCode, 10> Men = {WhiteQueen,  WhiteRook,  WhiteBishop, WhiteKnight,
                                             WhitePawn,   BlackQueen, BlackRook,   BlackBishop,
                                             BlackKnight, BlackPawn};

// Most texts end in an exception, which is what takes the time.
constexpr int MaxMoves = 8;

void Require(bool bLawHolds) {
    if (!bLawHolds) {
        std::abort();
    }
}

std::uint8_t NextByte(std::string_view& bytes) {
    const char byte = bytes.empty() ? '\0' : bytes.front();
    bytes.remove_prefix(bytes.empty() ? 0 : 1);
    return static_cast<std::uint8_t>(byte);
}

std::optional<TChessboard> TakePosition(std::string_view& bytes) {
    TChessboard board = EmptyChessboard();
    board.m_shPlies = board.m_shRootPlies = NextByte(bytes);
    const int men = NextByte(bytes) % FieldCount;
    for (int i = 0; i < men; ++i) {
        const int field = NextByte(bytes) % FieldCount;
        const TFigureCode man = Men[NextByte(bytes) % Men.size()];
        board.m_fields[field] = i == 0 ? WhiteKing : i == 1 ? BlackKing : man;
    }
    return PreparePositionNoThrow(board, true) ? std::optional(board) : std::nullopt;
}

void RequireTextKeepsMove(std::string_view text, const TChessboard& board) {
    const bool bWhite = IsWhiteToMove(board);
    try {
        const TMoveText read = ReadMoveText(text, bWhite);
        if (!read.move.IsPass()) {
            TMove again;
            ParseFullMove(again, MoveToFullText(read.move, WhiteFlag | read.namedType, false),
                          bWhite);
            const bool bFarKing = read.namedType == TypeKing && !read.bCastling;
            Require(again.SameAs(read.move) || bFarKing);
        }
    } catch (const ChessException&) {
    }
}

bool IsOwnKingSafe(TChessboard board, bool bWhite) {
    return PreparePositionNoThrow(board, false) &&
           (bWhite ? board.m_whiteChecker : board.m_blackChecker) == NoChecker;
}

/// The board after the move; the same board if it was refused.
TChessboard* Play(TChessboard* board, std::string_view text) {
    TMove move;
    try {
        ParseCheckedMove(*board, move, text);
    } catch (const ChessException&) {
        return board;
    }
    TMove again;
    ParseCheckedMove(*board, again, MoveToDisplayText(move, *board));
    Require(again.SameAs(move));
    try {
        TChessboard* next = MakeMoveFromText(*board, text);
        Require(next->m_shPlies + 1 == board->m_shPlies);
        Require(IsOwnKingSafe(*next, IsWhiteToMove(*board)));
        return next;
    } catch (const ChessException&) {
        return board;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static TBoardStack stack;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    std::optional<TChessboard> root = TakePosition(rest);
    if (!root) {
        return 0;
    }
    root->m_pThread = &stack;
    stack.m_pRootBoard = &*root;
    TChessboard* board = &*root;
    for (int moves = 0; moves < MaxMoves && !rest.empty(); ++moves) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        if (!line.empty()) {
            RequireTextKeepsMove(line, *board);
            board = Play(board, line);
        }
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    return 0;
}
