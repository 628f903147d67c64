#include "chess/evasions.h"

#include "chess/attacks.h"
#include "chess/generate_moves.h"
#include "chess/lines.h"

namespace tarnwick {
namespace {

TMove* AppendStepsTo(TFieldSet from, int to, TMove* pOut) {
    while (from != 0) {
        *pOut++ = TMove{static_cast<TField>(PopLowest(from)), static_cast<TField>(to), 0, 0};
    }
    return pOut;
}

TMove* AppendPawnStepsTo(TFieldSet from, int to, TMove* pOut) {
    while (from != 0) {
        pOut = AppendPawnMove(PopLowest(from), to, pOut);
    }
    return pOut;
}

/// Knights, then diagonal sliders, then straight sliders of `men` that reach the field.
TMove* AppendFiguresTo(const TChessboard& board, int to, TFieldSet men, TMove* pOut) {
    const auto t = static_cast<std::size_t>(to);
    const TFieldSet occupied = OccupiedFields(board);
    pOut = AppendStepsTo(KnightFields[t] & board.m_knights & men, to, pOut);
    if ((DiagonalRays[t] & board.m_diagonalSliders & men) != 0) {
        pOut = AppendStepsTo(BishopReach(to, occupied) & board.m_diagonalSliders & men, to, pOut);
    }
    if ((StraightRays[t] & board.m_straightSliders & men) != 0) {
        pOut = AppendStepsTo(RookReach(to, occupied) & board.m_straightSliders & men, to, pOut);
    }
    return pOut;
}

/// Fields between a checker and the king, from the king outward.
template <typename TAppend>
TMove* ForEachFieldOutward(int king, int checker, TMove* pOut, TAppend append) {
    TFieldSet line = Between(checker, king);
    while (line != 0) {
        const int field = checker > king ? LowestField(line) : 63 - std::countl_zero(line);
        line &= ~FieldBit(field);
        pOut = append(field, pOut);
    }
    return pOut;
}

bool IsSlider(TFigureCode code) {
    return (code & TypeQueen) != 0;
}

TFieldSet WhitePawnsStepping(const TChessboard& board, int to) {
    const TFieldSet pawns = board.m_pawns & board.m_whiteMen;
    const TFieldSet single = to >= 8 ? FieldBit(to - 8) : 0;
    if ((single & pawns) != 0) {
        return single;
    }
    const bool bDouble = RankOf(to) == 3 && board.m_fields[to - 8] == EmptyField;
    return bDouble ? FieldBit(to - 16) & pawns : 0;
}

TFieldSet BlackPawnsStepping(const TChessboard& board, int to) {
    const TFieldSet pawns = board.m_pawns & board.m_blackMen;
    const TFieldSet single = to < 56 ? FieldBit(to + 8) : 0;
    if ((single & pawns) != 0) {
        return single;
    }
    const bool bDouble = RankOf(to) == 4 && board.m_fields[to + 8] == EmptyField;
    return bDouble ? FieldBit(to + 16) & pawns : 0;
}

}  // namespace

int GenerateWhiteEvasions(const TChessboard& board, TMove* pList) {
    const int king = WhiteKingField(board);
    TMove* pEnd = AppendKingMoves(king, board.m_whiteMen, pList);
    const int checker = board.m_whiteChecker;
    if (checker == DoubleCheck) {
        return static_cast<int>(pEnd - pList);
    }
    const TFieldSet men = board.m_whiteMen & ~FieldBit(king);
    const TFieldSet pawns = board.m_pawns & men;
    pEnd = AppendPawnStepsTo(BlackPawnTargets[static_cast<std::size_t>(checker)] & pawns, checker,
                             pEnd);
    pEnd = AppendFiguresTo(board, checker, men, pEnd);
    if (IsSlider(board.m_fields[checker])) {
        pEnd = ForEachFieldOutward(king, checker, pEnd, [&](int field, TMove* pOut) {
            pOut = AppendPawnStepsTo(WhitePawnsStepping(board, field), field, pOut);
            return AppendFiguresTo(board, field, men, pOut);
        });
    }
    const int target = WhiteEnPassantTarget(board);
    if (target >= 0 && target - 8 == checker) {
        pEnd =
            AppendStepsTo(BlackPawnTargets[static_cast<std::size_t>(target)] & pawns, target, pEnd);
    }
    return static_cast<int>(pEnd - pList);
}

int GenerateBlackEvasions(const TChessboard& board, TMove* pList) {
    const int king = BlackKingField(board);
    TMove* pEnd = AppendKingMoves(king, board.m_blackMen, pList);
    const int checker = board.m_blackChecker;
    if (checker == DoubleCheck) {
        return static_cast<int>(pEnd - pList);
    }
    const TFieldSet men = board.m_blackMen & ~FieldBit(king);
    const TFieldSet pawns = board.m_pawns & men;
    pEnd = AppendPawnStepsTo(WhitePawnTargets[static_cast<std::size_t>(checker)] & pawns, checker,
                             pEnd);
    pEnd = AppendFiguresTo(board, checker, men, pEnd);
    if (IsSlider(board.m_fields[checker])) {
        pEnd = ForEachFieldOutward(king, checker, pEnd, [&](int field, TMove* pOut) {
            pOut = AppendPawnStepsTo(BlackPawnsStepping(board, field), field, pOut);
            return AppendFiguresTo(board, field, men, pOut);
        });
    }
    const int target = BlackEnPassantTarget(board);
    if (target >= 0 && target + 8 == checker) {
        pEnd =
            AppendStepsTo(WhitePawnTargets[static_cast<std::size_t>(target)] & pawns, target, pEnd);
    }
    return static_cast<int>(pEnd - pList);
}

}  // namespace tarnwick
