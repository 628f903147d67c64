// White's make operation. The legality of the king is asked first, against the occupancy that the move
// will leave, so that a refused move costs no bookkeeping. A check on Black is found from what moved and
// what was vacated; no attack scan of the king's field is ever made.

#include "chess/attacks.h"
#include "chess/castling.h"
#include "chess/hopeless_positions.h"
#include "chess/line_history.h"
#include "chess/make_move.h"
#include "chess/make_parts.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

/// What a move does, worked out before the board is touched.
struct TWhiteStep {
    int from, to, captureField;
    TFigureCode moved, captured;
    bool bEnPassant, bCastling;
    TFieldSet fromBit, toBit, captureBit;
    TFieldSet occupiedAfter;  ///< Castling's rook not yet moved.
};

TWhiteStep ReadStep(const TChessboard& board, TMove move) {
    TWhiteStep step{};
    step.from = move.from;
    step.to = move.to;
    step.moved = board.m_fields[step.from];
    step.captured = board.m_fields[step.to];
    step.captureField = step.to;
    const int fileShift = FileOf(step.to) - FileOf(step.from);
    step.bEnPassant =
        TypeOf(step.moved) == TypePawn && fileShift != 0 && step.captured == EmptyField;
    if (step.bEnPassant) {
        step.captureField = step.to - 8;
        step.captured = board.m_fields[step.captureField];
    }
    step.bCastling = step.moved == WhiteKing && (fileShift == 2 || fileShift == -2);
    step.fromBit = FieldBit(step.from);
    step.toBit = FieldBit(step.to);
    step.captureBit = step.captured != EmptyField ? FieldBit(step.captureField) : 0;
    step.occupiedAfter = ((OccupiedFields(board) ^ step.fromBit) & ~step.captureBit) | step.toBit;
    return step;
}

bool LeavesKingSafe(const TChessboard& board, const TWhiteStep& step) {
    if (step.moved == WhiteKing) {
        return !IsAttackedByBlackOver(board, step.to, step.occupiedAfter, step.captureBit);
    }
    const int king = WhiteKingField(board);
    if (board.m_whiteChecker != NoChecker) {
        return !IsAttackedByBlackOver(board, king, step.occupiedAfter, step.captureBit);
    }
    const TFieldSet opened = step.fromBit | (step.bEnPassant ? step.captureBit : 0);
    return SliderThroughOpened(board, king, board.m_blackMen & ~step.captureBit, opened,
                               step.occupiedAfter) == NoChecker;
}

void MoveListedField(TChessboard& board, TFigureCode type, int from, int to) {
    const auto target = static_cast<TField>(to);
    switch (type) {
        case TypeQueen:
            board.m_whiteQueenField = target;
            break;
        case TypeRook:
            board.m_whiteRookFields[board.m_whiteRookFields[0] == from ? 0 : 1] = target;
            break;
        case TypeBishop:
            board.m_whiteBishopFields[board.m_whiteBishopFields[0] == from ? 0 : 1] = target;
            break;
        case TypeKnight:
            board.m_whiteKnightFields[board.m_whiteKnightFields[0] == from ? 0 : 1] = target;
            break;
        default:
            break;
    }
}

void CountPromotion(TChessboard& board, TFigureCode type) {
    --board.m_whitePawns;
    switch (type) {
        case TypeQueen:
            ++board.m_whiteQueens;
            board.m_stateBits.Set(TStateBit::WhitePromotedQueen);
            break;
        case TypeRook:
            ++board.m_whiteRooks;
            break;
        case TypeBishop:
            ++board.m_whiteBishops;
            break;
        default:
            ++board.m_whiteKnights;
            break;
    }
}

void RemoveBlackMan(TChessboard& board, const TWhiteStep& step) {
    const TFigureCode type = TypeOf(step.captured);
    board.m_blackMen ^= step.captureBit;
    ToggleInTypeSets(board, type, step.captureBit);
    switch (type) {
        case TypeQueen:
            --board.m_blackQueens;
            break;
        case TypeRook:
            --board.m_blackRooks;
            break;
        case TypeBishop:
            --board.m_blackBishops;
            break;
        case TypeKnight:
            --board.m_blackKnights;
            break;
        default:
            --board.m_blackPawns;
            break;
    }
    const int count = BlackMenCaptured(board.m_captureState);
    if (count < 3) {
        if (board.m_pThread != nullptr) {
            board.m_pThread->m_blackCaptured[static_cast<std::size_t>(count)] = {
                step.captured, static_cast<TField>(step.captureField)};
        }
        board.m_captureState = static_cast<std::uint8_t>(board.m_captureState + BlackCaptureStep);
    }
    const int promoted = PromotedBlackFigures(board);
    if (type != TypePawn && (promoted == 1 || promoted == 2) && board.m_pPrevious != nullptr &&
        IsPromotedFigure(*board.m_pPrevious, step.captureField)) {
        SetPromotedBlackFigures(board, promoted - 1);
    }
    if (board.m_heuristicFlags.Has(TMakeHeuristic::TrackedFields)) {
        UpdateTrackedFields(board, step.captureField, NoField);
    }
}

/// Puts the mover, or what it became, on its target.
void PlaceMan(TChessboard& board, const TWhiteStep& step, TFigureCode promotion) {
    board.m_fields[step.from] = EmptyField;
    board.m_whiteMen ^= step.fromBit | step.toBit;
    const TFigureCode type = TypeOf(step.moved);
    if (promotion == 0) {
        board.m_fields[step.to] = step.moved;
        ToggleInTypeSets(board, type, step.fromBit | step.toBit);
        if (board.m_bWhiteFiguresListed != 0) {
            MoveListedField(board, type, step.from, step.to);
        }
        return;
    }
    board.m_fields[step.to] = WhiteFlag | promotion;
    board.m_pawns ^= step.fromBit;
    ToggleInTypeSets(board, promotion, step.toBit);
    CountPromotion(board, promotion);
    ListWhiteFigures(board);
}

void MoveCastlingRook(TChessboard& board, const TCastlingFields& fields) {
    const TFieldSet bits = FieldBit(fields.rookFrom) | FieldBit(fields.rookTo);
    board.m_fields[fields.rookFrom] = EmptyField;
    board.m_fields[fields.rookTo] = WhiteRook;
    board.m_whiteMen ^= bits;
    board.m_straightSliders ^= bits;
    if (board.m_bWhiteFiguresListed != 0) {
        MoveListedField(board, TypeRook, fields.rookFrom, fields.rookTo);
    }
}

std::int8_t FindChecker(const TChessboard& board, const TWhiteStep& step) {
    const int king = BlackKingField(board);
    const TFigureCode type = TypeOf(board.m_fields[step.to]);
    const TFieldSet occupied = OccupiedFields(board);
    int direct = NoChecker;
    if (type == TypePawn) {
        if ((WhitePawnTargets[static_cast<std::size_t>(step.to)] & FieldBit(king)) != 0) {
            direct = step.to;
        }
    } else if (type != TypeKing) {
        if (FigureAttacks(type, step.to, king, occupied)) {
            direct = step.to;
        }
    } else if (step.bCastling) {
        const int rook = (step.from + step.to) / 2;
        if (FigureAttacks(TypeRook, rook, king, occupied)) {
            direct = rook;
        }
        return static_cast<std::int8_t>(direct);
    }
    const TFieldSet opened = step.fromBit | (step.bEnPassant ? step.captureBit : 0);
    const int discovered =
        SliderThroughOpened(board, king, board.m_whiteMen & ~step.toBit, opened, occupied);
    return CombineCheckers(direct, discovered);
}

/// Black has lost his last man: bishops of one colour can never mate a bare king.
bool KeepsForceAgainstBareKing(TChessboard& board) {
    if (HasOnlyOneColouredBishops(board)) {
        return false;
    }
    board.m_searchFlags.Set(TSearchFlag::BareBlackKing);
    return true;
}

void RunHooks(TChessboard& board, const TWhiteStep& step, TFigureCode promotion) {
    if (board.m_searchFlags.Has(TSearchFlag::KingAreaState)) {
        if (promotion == TypeRook) {
            board.m_searchFlags.Clear(TSearchFlag::KingAreaState);
        } else {
            HooksOf(board).m_pUpdateKingArea(board);
        }
    }
    if (step.captured != EmptyField && board.m_heuristicFlags.Has(TMakeHeuristic::KeyFieldInPlay)) {
        HooksOf(board).m_pUpdateKeyField(board, step.captureField);
    }
}

template <bool bWithHooks>
int MakeWhite(TChessboard& board, TMove move) noexcept {
    if (bWithHooks && (board.m_captureState & OneColourMask) != 0 &&
        !HooksOf(board).m_pMayWhitePlayInOneColour(board, move)) {
        return MoveRefused;
    }
    const TWhiteStep step = ReadStep(board, move);
    const TFigureCode promotion = move.PromotionType();
    const TCastlingFields* pCastling = nullptr;
    if (step.bCastling) {
        const auto castling = step.to > step.from ? TCastling::WhiteShort : TCastling::WhiteLong;
        if (!CanCastle(board, castling)) {
            return MoveRefused;
        }
        pCastling = &FieldsOf(castling);
    }
    if (!LeavesKingSafe(board, step)) {
        return MoveRefused;
    }
    if (step.moved == WhiteKing) {
        if (bWithHooks && board.m_heuristicFlags.Has(TMakeHeuristic::ForbiddenKingFields) &&
            !HooksOf(board).m_pMayWhiteKingEnter(board, step.to)) {
            return MoveRefused;
        }
        board.m_whiteKingFile = static_cast<std::int8_t>(FileOf(step.to));
        board.m_whiteKingRank = static_cast<std::int8_t>(RankOf(step.to));
    }
    if (step.captured != EmptyField) {
        if (step.bEnPassant) {
            board.m_fields[step.captureField] = EmptyField;
        }
        RemoveBlackMan(board, step);
    }
    PlaceMan(board, step, promotion);
    if (pCastling != nullptr) {
        MoveCastlingRook(board, *pCastling);
    }
    if (step.captured != EmptyField && !HasMoreThanOne(board.m_blackMen) &&
        !KeepsForceAgainstBareKing(board)) {
        return MoveRefused;
    }
    if (promotion != 0 || (TypeOf(step.moved) == TypePawn && step.captured != EmptyField)) {
        UpdateWrongBishopMark(board);
    }
    if (board.m_shPlies != 0) {
        board.m_blackChecker = FindChecker(board, step);
    }
    FinishPly(board, move, step.bEnPassant);
    board.m_whiteChecker = NoChecker;
    if (bWithHooks) {
        RunHooks(board, step, promotion);
        if (board.m_pawns == 0 && board.m_shPlies >= 2 && IsUselessWhiteMove(board)) {
            return MoveRefused;
        }
    }
    return MoveMade;
}

}  // namespace

int MakeWhiteMove(TChessboard& board, TMove move) noexcept {
    return MakeWhite<true>(board, move);
}

int MakeWhiteMoveToTry(TChessboard& board, TMove move) noexcept {
    return MakeWhite<false>(board, move);
}

}  // namespace tarnwick
