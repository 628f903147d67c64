#include "chess/prepare_position.h"

#include <cstring>

#include "base/chess_exception.h"

#include "chess/attacks.h"
#include "chess/board_tables.h"
#include "chess/hopeless_positions.h"

namespace tarnwick {
namespace {

constexpr const char* PawnOnEdgeText = "Pawns cannot occupy 1st nor 8th line of the chessboard.";
constexpr const char* NumberOfKingsText = "Illegal number of kings.";
constexpr const char* BothKingsAttackedText = "Both kings attacked.";

void ClearDerivedMembers(TChessboard& board) {
    std::memset(&board.m_whiteQueens, 0, 10);
    std::memset(board.m_whiteRookFields, 0, 7);
    board.m_bWhiteFiguresListed = 1;
    board.m_whiteMen = board.m_blackMen = 0;
    board.m_pawns = board.m_knights = 0;
    board.m_diagonalSliders = board.m_straightSliders = 0;
}

void AddToSets(TChessboard& board, int field, TFigureCode code) {
    const TFieldSet bit = FieldBit(field);
    const TFigureCode type = TypeOf(code);
    (IsWhite(code) ? board.m_whiteMen : board.m_blackMen) |= bit;
    board.m_pawns |= type == TypePawn ? bit : 0;
    board.m_knights |= type == TypeKnight ? bit : 0;
    board.m_diagonalSliders |= (type & TypeBishop) != 0 ? bit : 0;
    board.m_straightSliders |= (type & TypeRook) != 0 ? bit : 0;
}

void CountBlackMan(TChessboard& board, TFigureCode type) {
    switch (type) {
        case TypeQueen:
            ++board.m_blackQueens;
            break;
        case TypeRook:
            ++board.m_blackRooks;
            break;
        case TypeBishop:
            ++board.m_blackBishops;
            break;
        case TypeKnight:
            ++board.m_blackKnights;
            break;
        default:
            ++board.m_blackPawns;
            break;
    }
}

void CountWhiteMan(TChessboard& board, TFigureCode type) {
    switch (type) {
        case TypeQueen:
            ++board.m_whiteQueens;
            break;
        case TypeRook:
            ++board.m_whiteRooks;
            break;
        case TypeBishop:
            ++board.m_whiteBishops;
            break;
        case TypeKnight:
            ++board.m_whiteKnights;
            break;
        default:
            ++board.m_whitePawns;
            break;
    }
}

/// Stores figure fields up to the listed limits; beyond them only counts, and the lists are void.
void ListWhiteFigure(TChessboard& board, int field, TFigureCode type) {
    const auto place = static_cast<TField>(field);
    bool bFits = true;
    switch (type) {
        case TypeQueen:
            bFits = board.m_whiteQueens == 0;
            if (bFits) {
                board.m_whiteQueenField = place;
            }
            break;
        case TypeRook:
            bFits = board.m_whiteRooks < 2;
            if (bFits) {
                board.m_whiteRookFields[board.m_whiteRooks] = place;
            }
            break;
        case TypeKnight:
            bFits = board.m_whiteKnights < 2;
            if (bFits) {
                board.m_whiteKnightFields[board.m_whiteKnights] = place;
            }
            break;
        case TypeBishop:
            bFits = board.m_whiteBishops == 0 ||
                    (board.m_whiteBishops == 1 &&
                     ColourParity(field) != ColourParity(board.m_whiteBishopFields[0]));
            if (bFits) {
                board.m_whiteBishopFields[board.m_whiteBishops] = place;
            }
            break;
        default:
            break;
    }
    if (!bFits) {
        board.m_bWhiteFiguresListed = 0;
    }
}

/// Steps 1 to 6 of the preparation; null when the position is good, else the user's text.
const char* DerivePosition(TChessboard& board) noexcept {
    ClearDerivedMembers(board);
    int whiteKings = 0;
    int blackKings = 0;
    for (int field = 0; field < FieldCount; ++field) {
        const TFigureCode code = board.m_fields[field];
        if (code == EmptyField) {
            continue;
        }
        const TFigureCode type = TypeOf(code);
        AddToSets(board, field, code);
        if (type == TypeKing) {
            if (IsWhite(code)) {
                ++whiteKings;
                board.m_whiteKingFile = static_cast<std::int8_t>(FileOf(field));
                board.m_whiteKingRank = static_cast<std::int8_t>(RankOf(field));
            } else {
                ++blackKings;
                board.m_blackKingFile = static_cast<std::int8_t>(FileOf(field));
                board.m_blackKingRank = static_cast<std::int8_t>(RankOf(field));
            }
            continue;
        }
        if (type == TypePawn && (RankOf(field) == 0 || RankOf(field) == 7)) {
            return PawnOnEdgeText;
        }
        if (IsBlack(code)) {
            CountBlackMan(board, type);
            continue;
        }
        if (board.m_bWhiteFiguresListed != 0) {
            ListWhiteFigure(board, field, type);
        }
        CountWhiteMan(board, type);
    }
    if (whiteKings != 1 || blackKings != 1) {
        return NumberOfKingsText;
    }
    board.m_whiteChecker =
        FindBlackAttackers(board, board.m_whiteKingFile, board.m_whiteKingRank, nullptr, nullptr);
    board.m_blackChecker =
        FindWhiteAttackers(board, board.m_blackKingFile, board.m_blackKingRank, nullptr, nullptr);
    SetBlackKingEdgeDistance(board, FieldEdgeDistance(BlackKingField(board)));
    UpdateWrongBishopMark(board);
    board.m_captureState &= static_cast<std::uint8_t>(~CaptureCountsMask);
    if (board.m_whiteChecker != NoChecker && board.m_blackChecker != NoChecker) {
        return BothKingsAttackedText;
    }
    return nullptr;
}

}  // namespace

TChessboard EmptyChessboard() {
    TChessboard board;
    std::memset(static_cast<void*>(&board), 0, sizeof board);
    board.m_whiteChecker = NoChecker;
    board.m_blackChecker = NoChecker;
    std::memset(board.m_trackedFields, NoField, sizeof board.m_trackedFields);
    return board;
}

bool PreparePositionNoThrow(TChessboard& board, bool bClearFlags) noexcept {
    if (DerivePosition(board) != nullptr) {
        return false;
    }
    if (bClearFlags) {
        board.m_searchFlags = {};
        board.m_heuristicFlags = {};
    }
    return true;
}

void PreparePosition(TChessboard& board, bool bClearFlags) {
    if (const char* text = DerivePosition(board)) {
        throw ChessException(text);
    }
    if (bClearFlags) {
        board.m_searchFlags = {};
        board.m_heuristicFlags = {};
    }
}

void ListWhiteFigures(TChessboard& board) noexcept {
    board.m_bWhiteFiguresListed = 0;
    if (board.m_whiteQueens > 1 || board.m_whiteRooks > 2 || board.m_whiteKnights > 2 ||
        board.m_whiteBishops > 2) {
        return;
    }
    const TFieldSet diagonal = board.m_diagonalSliders & board.m_whiteMen;
    const TFieldSet straight = board.m_straightSliders & board.m_whiteMen;
    TFieldSet bishops = diagonal & ~straight;
    TFieldSet rooks = straight & ~diagonal;
    TFieldSet knights = board.m_knights & board.m_whiteMen;
    if (const TFieldSet queen = diagonal & straight; queen != 0) {
        board.m_whiteQueenField = static_cast<TField>(LowestField(queen));
    }
    for (int i = 0; rooks != 0; ++i) {
        board.m_whiteRookFields[i] = static_cast<TField>(PopLowest(rooks));
    }
    for (int i = 0; bishops != 0; ++i) {
        board.m_whiteBishopFields[i] = static_cast<TField>(PopLowest(bishops));
    }
    for (int i = 0; knights != 0; ++i) {
        board.m_whiteKnightFields[i] = static_cast<TField>(PopLowest(knights));
    }
    board.m_bWhiteFiguresListed =
        board.m_whiteBishops < 2 ||
        ColourParity(board.m_whiteBishopFields[0]) != ColourParity(board.m_whiteBishopFields[1]);
}

}  // namespace tarnwick
