#include "chess/standard_move_text.h"

#include <cstdlib>

#include "chess/board_tables.h"
#include "chess/fen.h"
#include "chess/legal_moves.h"

namespace tarnwick {
namespace {

char LetterOf(TFigureCode type) {
    return CodeToLetter[TypeOf(type)];
}

/// What of the first field must be named: other men of the kind might go to the same field.
std::string Origin(const TChessboard& before, TMove move) {
    bool bOther = false;
    bool bSameFile = false;
    bool bSameRank = false;
    for (int field = 0; field < FieldCount; ++field) {
        if (field == move.from || before.m_fields[field] != before.m_fields[move.from]) {
            continue;
        }
        for (const TMove& other : LegalMovesFrom(before, field)) {
            if (other.to == move.to) {
                bOther = true;
                bSameFile = bSameFile || FileOf(field) == FileOf(move.from);
                bSameRank = bSameRank || RankOf(field) == RankOf(move.from);
            }
        }
    }
    const std::string from = FieldName(move.from);
    if (!bOther) {
        return "";
    }
    if (!bSameFile) {
        return from.substr(0, 1);
    }
    return bSameRank ? from : from.substr(1);
}

std::string PawnText(TMove move) {
    const bool bTakes = FileOf(move.from) != FileOf(move.to);
    std::string text = bTakes ? FieldName(move.from).substr(0, 1) + 'x' : "";
    text += FieldName(move.to);
    if (move.PromotionType() != 0) {
        text += '=';
        text += LetterOf(move.PromotionType());
    }
    return text;
}

std::string FigureText(const TChessboard& before, TMove move) {
    const TFigureCode man = before.m_fields[move.from];
    if (TypeOf(man) == TypeKing && std::abs(FileOf(move.to) - FileOf(move.from)) == 2) {
        return move.to > move.from ? "O-O" : "O-O-O";
    }
    const bool bTakes = before.m_fields[move.to] != EmptyField;
    return LetterOf(man) + Origin(before, move) + (bTakes ? "x" : "") + FieldName(move.to);
}

const char* CheckSign(const TChessboard& after) {
    const std::int8_t checker = IsWhiteToMove(after) ? after.m_whiteChecker : after.m_blackChecker;
    if (checker == NoChecker) {
        return "";
    }
    return LegalMoves(after).empty() ? "#" : "+";
}

}  // namespace

std::string StandardMoveText(const TChessboard& before, TMove move, const TChessboard& after) {
    const bool bPawn = TypeOf(before.m_fields[move.from]) == TypePawn;
    return (bPawn ? PawnText(move) : FigureText(before, move)) + CheckSign(after);
}

}  // namespace tarnwick
