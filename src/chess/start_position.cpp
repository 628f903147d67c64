#include "chess/start_position.h"

#include "base/chess_exception.h"
#include "base/language.h"

#include "chess/attacks.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

constexpr TUserText BlackKingCheckedText = {
    .pl = "Czarny król nie może być szachowany w pozycji początkowej zadania na mata.",
    .en = "Black king cannot be checked in the mate task starting postition.",
    .uk = "Чорний король не може бути під шахом у початковій позиції задачі на мат."};
constexpr TUserText WhiteKingCheckedText = {
    .pl = "Biały król nie może być szachowany w pozycji początkowej zadania na obronę przed matem.",
    .en = "White king cannot be checked in the mate-defence task starting postition.",
    .uk = "Білий король не може бути під шахом у початковій позиції задачі на захист від мату."};

void CountMan(TMenCounts& counts, TFigureCode type) {
    counts.queens += type == TypeQueen;
    counts.rooks += type == TypeRook;
    counts.bishops += type == TypeBishop;
    counts.knights += type == TypeKnight;
    counts.pawns += type == TypePawn;
}

TMenCounts Combine(const TMenCounts& a, const TMenCounts& b, int sign) {
    return {.queens = a.queens + sign * b.queens,
            .rooks = a.rooks + sign * b.rooks,
            .bishops = a.bishops + sign * b.bishops,
            .knights = a.knights + sign * b.knights,
            .pawns = a.pawns + sign * b.pawns};
}

}  // namespace

TMaterialRecord CountMaterial(const TChessboard& board) {
    TMaterialRecord material;
    for (const TFigureCode code : board.m_fields) {
        CountMan(IsWhite(code) ? material.white : material.black, TypeOf(code));
    }
    material.difference = Combine(material.white, material.black, -1);
    material.sum = Combine(material.white, material.black, 1);
    return material;
}

void CheckStartPosition(TChessboard& board, std::uint16_t shPlies, bool bClearFlags,
                        const TChessboard* pOriginalBoard, TMaterialRecord* pMaterial) {
    board.m_shPlies = board.m_shRootPlies = shPlies;
    PreparePosition(board, bClearFlags);
    if (IsWhiteToMove(board)) {
        if (IsFieldAttackedByWhite(board, board.m_blackKingFile, board.m_blackKingRank)) {
            throw ChessException(UserText(BlackKingCheckedText));
        }
    } else if (IsFieldAttackedByBlack(board, board.m_whiteKingFile, board.m_whiteKingRank)) {
        throw ChessException(UserText(WhiteKingCheckedText));
    }
    if (pMaterial != nullptr) {
        *pMaterial = CountMaterial(pOriginalBoard != nullptr ? *pOriginalBoard : board);
    }
}

}  // namespace tarnwick
