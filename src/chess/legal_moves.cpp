#include "chess/legal_moves.h"

#include "base/chess_exception.h"

#include "chess/checked_move.h"
#include "chess/generate_moves.h"
#include "chess/move_text.h"

namespace tarnwick {
namespace {

/// Asks the check that moves of a file go through as well, so that board and files agree on the rules.
bool IsLegal(const TChessboard& board, TMove move) {
    try {
        TMove read;
        ParseCheckedMove(board, read, MoveToDisplayText(move, board));
        return read.SameAs(move);
    } catch (const ChessException&) {
        return false;
    }
}

}  // namespace

std::vector<TMove> LegalMovesFrom(const TChessboard& board, int field) {
    TMove list[MaxMovesOfMan];
    const int count = IsWhiteToMove(board) ? GenerateWhiteMoves(board, field, list)
                                           : GenerateBlackMoves(board, field, list);
    std::vector<TMove> legal;
    for (int i = 0; i < count; ++i) {
        if (IsLegal(board, list[i])) {
            legal.push_back(list[i]);
        }
    }
    return legal;
}

std::vector<TMove> LegalMoves(const TChessboard& board) {
    std::vector<TMove> legal;
    for (int field = 0; field < FieldCount; ++field) {
        const std::vector<TMove> moves = LegalMovesFrom(board, field);
        legal.insert(legal.end(), moves.begin(), moves.end());
    }
    return legal;
}

}  // namespace tarnwick
