#include "chess/checked_move.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <optional>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "chess/board_stack.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/move_text.h"
#include "chess/notation_texts.h"
#include "chess/prepare_position.h"
#include "chess/trimmed_text.h"

namespace tarnwick {
namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// "Nf3", "exd5", "Rxa8": a text that does not name both fields. `text` is not empty.
bool IsShortNotation(std::string_view text) {
    const std::size_t sign = text.find_first_of(":x");
    if (sign == 0) {
        return true;
    }
    const bool bLetterBeforeSign = sign != std::string_view::npos && IsLetter(text[sign - 1]);
    return text.front() != '0' && (bLetterBeforeSign || text.size() <= 4);
}

std::optional<TMove> FindPseudoLegalMove(const TChessboard& board, TMove wanted) {
    TMove list[MaxMovesOfMan];
    const int count = IsWhiteToMove(board) ? GenerateWhiteMoves(board, wanted.from, list)
                                           : GenerateBlackMoves(board, wanted.from, list);
    const TMove* found =
        std::find_if(list, list + count, [&](TMove move) { return move.SameAs(wanted); });
    return found == list + count ? std::nullopt : std::optional(*found);
}

/// Plays the men of the move alone; the board is no position before it is prepared.
void MoveMen(TChessboard& board, TMove move) {
    const TFigureCode moved = board.m_fields[move.from];
    const bool bPawnTakes = TypeOf(moved) == TypePawn && FileOf(move.from) != FileOf(move.to);
    if (bPawnTakes && board.m_fields[move.to] == EmptyField) {
        board.m_fields[FieldAt(FileOf(move.to), RankOf(move.from))] = EmptyField;
    }
    const TFigureCode promoted = move.PromotionType();
    board.m_fields[move.to] = promoted == 0 ? moved : ColourOf(moved) | promoted;
    board.m_fields[move.from] = EmptyField;
}

bool LeavesOwnKingSafe(const TChessboard& board, TMove move) {
    const bool bKingMoves = TypeOf(board.m_fields[move.from]) == TypeKing;
    if (bKingMoves && std::abs(FileOf(move.to) - FileOf(move.from)) == 2) {
        return true;  // a castling is only generated when it is safe
    }
    TChessboard after = board;
    MoveMen(after, move);
    const std::int8_t& checker = IsWhiteToMove(board) ? after.m_whiteChecker : after.m_blackChecker;
    return PreparePositionNoThrow(after, false) && checker == NoChecker;
}

/// Null when anything is wrong; the user is told once, with the text of the stored move.
TChessboard* TryMakeMove(TChessboard& board, std::string_view text) {
    assert(board.m_pThread != nullptr);
    if (board.m_shPlies == 0 || board.m_shPlies >= MaxPlies) {
        return nullptr;
    }
    TMove move;
    try {
        ParseCheckedMove(board, move, text);
    } catch (const ChessException&) {
        return nullptr;
    }
    TChessboard* next = CopyToNextSlot(board);
    const int result =
        IsWhiteToMove(board) ? MakeWhiteMove(*next, move) : MakeBlackMove(*next, move, false);
    return result != MoveRefused ? next : nullptr;
}

}  // namespace

void ParseCheckedMove(const TChessboard& board, TMove& move, std::string_view text) {
    text = Trimmed(text);
    if (text.empty()) {
        throw ChessException(UserText(EmptyStringText));
    }
    if (IsShortNotation(text)) {
        throw ChessException(UserText(ShortNotationText));
    }
    const bool bWhite = IsWhiteToMove(board);
    const TMoveText read = ReadMoveText(text, bWhite);
    const TFigureCode named = read.namedType | (bWhite ? WhiteFlag : BlackFlag);
    const TFigureCode standing = board.m_fields[read.move.from];
    if ((ColourOf(standing) | TypeOf(standing)) != named) {
        throw ChessException(UserText(read.bCastling ? IllegalMoveText : MoveDescriptionText));
    }
    const std::optional<TMove> found = FindPseudoLegalMove(board, read.move);
    if (!found || !LeavesOwnKingSafe(board, *found)) {
        throw ChessException(UserText(IllegalMoveText));
    }
    move = *found;
}

TChessboard* MakeMoveFromText(TChessboard& board, std::string_view text) {
    if (TChessboard* next = TryMakeMove(board, text)) {
        return next;
    }
    throw ChessException(UserText(InvalidStoredMoveText) + ToValidUtf8(text));
}

void MoveMenAlone(TChessboard& board, TMove move) {
    const TFigureCode moved = board.m_fields[move.from];
    const bool bPawnTakes = TypeOf(moved) == TypePawn && FileOf(move.from) != FileOf(move.to);
    const bool bEnPassant = bPawnTakes && board.m_fields[move.to] == EmptyField;
    if (bEnPassant) {
        board.m_fields[FieldAt(FileOf(move.to), RankOf(move.from))] = EmptyField;
    }
    const TFigureCode promoted = move.PromotionType();
    board.m_fields[move.to] = promoted == 0 ? moved : ColourOf(moved) | promoted;
    board.m_fields[move.from] = EmptyField;
    PreparePosition(board, true);
    board.m_lastMove = move;
    board.m_lastMove.fourth = bEnPassant ? 1 : 0;
    --board.m_shPlies;
}

}  // namespace tarnwick
