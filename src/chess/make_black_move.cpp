// Black's make operation: White's mirrored, and at its end the question whether White's force can still
// mate. White's lists are taken anew when a white figure falls, because only then can they change.

#include "chess/attacks.h"
#include "chess/castling.h"
#include "chess/hopeless_positions.h"
#include "chess/make_move.h"
#include "chess/make_parts.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

struct TBlackStep {
    int from, to, captureField;
    TFigureCode moved, captured;
    bool bEnPassant, bCastling;
    TFieldSet fromBit, toBit, captureBit;
    TFieldSet occupiedAfter;
};

TBlackStep ReadStep(const TChessboard& board, TMove move) {
    TBlackStep step{};
    step.from = move.from;
    step.to = move.to;
    step.moved = board.m_fields[step.from];
    step.captured = board.m_fields[step.to];
    step.captureField = step.to;
    const int fileShift = FileOf(step.to) - FileOf(step.from);
    step.bEnPassant =
        TypeOf(step.moved) == TypePawn && fileShift != 0 && step.captured == EmptyField;
    if (step.bEnPassant) {
        step.captureField = step.to + 8;
        step.captured = board.m_fields[step.captureField];
    }
    step.bCastling = step.moved == BlackKing && (fileShift == 2 || fileShift == -2);
    step.fromBit = FieldBit(step.from);
    step.toBit = FieldBit(step.to);
    step.captureBit = step.captured != EmptyField ? FieldBit(step.captureField) : 0;
    step.occupiedAfter = ((OccupiedFields(board) ^ step.fromBit) & ~step.captureBit) | step.toBit;
    return step;
}

bool LeavesKingSafe(const TChessboard& board, const TBlackStep& step) {
    if (step.moved == BlackKing) {
        return !IsAttackedByWhiteOver(board, step.to, step.occupiedAfter, step.captureBit);
    }
    const int king = BlackKingField(board);
    if (board.m_blackChecker != NoChecker) {
        return !IsAttackedByWhiteOver(board, king, step.occupiedAfter, step.captureBit);
    }
    const TFieldSet opened = step.fromBit | (step.bEnPassant ? step.captureBit : 0);
    return SliderThroughOpened(board, king, board.m_whiteMen & ~step.captureBit, opened,
                               step.occupiedAfter) == NoChecker;
}

void CountPromotion(TChessboard& board, TFigureCode type) {
    --board.m_blackPawns;
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
        default:
            ++board.m_blackKnights;
            break;
    }
    const int promoted = PromotedBlackFigures(board);
    if (promoted < 3) {
        SetPromotedBlackFigures(board, promoted + 1);
    }
}

void RemoveWhiteMan(TChessboard& board, const TBlackStep& step) {
    const TFigureCode type = TypeOf(step.captured);
    board.m_whiteMen ^= step.captureBit;
    ToggleInTypeSets(board, type, step.captureBit);
    switch (type) {
        case TypeQueen:
            --board.m_whiteQueens;
            break;
        case TypeRook:
            --board.m_whiteRooks;
            break;
        case TypeBishop:
            --board.m_whiteBishops;
            break;
        case TypeKnight:
            --board.m_whiteKnights;
            break;
        default:
            --board.m_whitePawns;
            break;
    }
    if (type != TypePawn) {
        ListWhiteFigures(board);
    }
    const int count = WhiteMenCaptured(board.m_captureState);
    if (count < 3) {
        if (board.m_pThread != nullptr) {
            board.m_pThread->m_whiteCaptured[static_cast<std::size_t>(count)] = {
                step.captured, static_cast<TField>(step.captureField)};
        }
        board.m_captureState = static_cast<std::uint8_t>(board.m_captureState + WhiteCaptureStep);
    }
}

void PlaceMan(TChessboard& board, const TBlackStep& step, TFigureCode promotion) {
    board.m_fields[step.from] = EmptyField;
    board.m_blackMen ^= step.fromBit | step.toBit;
    if (promotion == 0) {
        board.m_fields[step.to] = step.moved;
        ToggleInTypeSets(board, TypeOf(step.moved), step.fromBit | step.toBit);
    } else {
        board.m_fields[step.to] = BlackFlag | promotion;
        board.m_pawns ^= step.fromBit;
        ToggleInTypeSets(board, promotion, step.toBit);
        CountPromotion(board, promotion);
    }
    if (board.m_heuristicFlags.Has(TMakeHeuristic::TrackedFields)) {
        UpdateTrackedFields(board, step.from, static_cast<TField>(step.to));
    }
}

void MoveCastlingRook(TChessboard& board, const TCastlingFields& fields) {
    const TFieldSet bits = FieldBit(fields.rookFrom) | FieldBit(fields.rookTo);
    board.m_fields[fields.rookFrom] = EmptyField;
    board.m_fields[fields.rookTo] = BlackRook;
    board.m_blackMen ^= bits;
    board.m_straightSliders ^= bits;
    if (board.m_heuristicFlags.Has(TMakeHeuristic::TrackedFields)) {
        UpdateTrackedFields(board, fields.rookFrom, fields.rookTo);
    }
}

std::int8_t FindChecker(const TChessboard& board, const TBlackStep& step) {
    const int king = WhiteKingField(board);
    const TFigureCode type = TypeOf(board.m_fields[step.to]);
    const TFieldSet occupied = OccupiedFields(board);
    int direct = NoChecker;
    if (type == TypePawn) {
        if ((BlackPawnTargets[static_cast<std::size_t>(step.to)] & FieldBit(king)) != 0) {
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
        SliderThroughOpened(board, king, board.m_blackMen & ~step.toBit, opened, occupied);
    return CombineCheckers(direct, discovered);
}

/// A marked pawn is held, but may capture.
bool IsPawnHeld(const TBlackStep& step) {
    return (step.moved & MarkBit) != 0 && FileOf(step.from) == FileOf(step.to);
}

void MoveKingCache(TChessboard& board, int to) {
    board.m_blackKingFile = static_cast<std::int8_t>(FileOf(to));
    board.m_blackKingRank = static_cast<std::int8_t>(RankOf(to));
    SetBlackKingEdgeDistance(board, FieldEdgeDistance(to));
}

}  // namespace

int MakeBlackMove(TChessboard& board, TMove move, bool bSkipLegality) noexcept {
    if (move.IsPass()) {
        FinishPly(board, MakePass(move.from), false);
        board.m_whiteChecker = NoChecker;
        return MoveMade;
    }
    const TBlackStep step = ReadStep(board, move);
    const TFigureCode promotion = move.PromotionType();
    if (TypeOf(step.moved) == TypePawn && IsPawnHeld(step)) {
        return MoveRefused;
    }
    const TCastlingFields* pCastling = nullptr;
    if (step.bCastling) {
        const auto castling = step.to > step.from ? TCastling::BlackShort : TCastling::BlackLong;
        if (!CanCastle(board, castling)) {
            return MoveRefused;
        }
        pCastling = &FieldsOf(castling);
    }
    if (!bSkipLegality && !LeavesKingSafe(board, step)) {
        return MoveRefused;
    }
    if (step.moved == BlackKing) {
        MoveKingCache(board, step.to);
    }
    if (step.captured != EmptyField) {
        if (step.bEnPassant) {
            board.m_fields[step.captureField] = EmptyField;
        }
        RemoveWhiteMan(board, step);
    }
    PlaceMan(board, step, promotion);
    if (pCastling != nullptr) {
        MoveCastlingRook(board, *pCastling);
    }
    if (step.captured != EmptyField) {
        UpdateWrongBishopMark(board);
        if (board.m_heuristicFlags.Has(TMakeHeuristic::KeyFieldInPlay)) {
            HooksOf(board).m_pUpdateKeyField(board, step.captureField);
        }
    }
    if (board.m_shPlies != 0) {
        board.m_whiteChecker = FindChecker(board, step);
    }
    FinishPly(board, move, step.bEnPassant);
    board.m_blackChecker = NoChecker;
    const bool bWeakWhite = ((board.m_straightSliders & board.m_whiteMen) == 0);
    if (bWeakWhite && board.m_shPlies >= 3 && IsHopelessForWhite(board)) {
        return MoveMadeHopeless;
    }
    return MoveMade;
}

}  // namespace tarnwick
