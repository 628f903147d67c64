#include "tables/verification/material_verdict.h"

#include "chess/mate_in_one.h"
#include "chess/prepare_position.h"
#include "tables/verification/side_moves.h"

namespace tarnwick {
namespace {

TMaterialVerdict VerdictOf(bool bMate) {
    return bMate ? TMaterialVerdict::Mate : TMaterialVerdict::NoMate;
}

TMaterialVerdict MateTest(TChessboard& board) {
    return VerdictOf(IsMateInOne(board));
}

/// White mates in two moves at most.
bool MatesInTwo(TChessboard& board) {
    if (IsMateInOne(board)) {
        return true;
    }
    return !ForEachWhiteMove(board, [](TChessboard& after, TMove) {
        bool bAny = false;
        const bool bAllMated =
            ForEachBlackMove(after, [&](TChessboard& reply, TMove, bool bHopeless) {
                bAny = true;
                return !bHopeless && IsMateInOne(reply);
            });
        return !(bAny && bAllMated);
    });
}

TMaterialVerdict ShortSearch(TChessboard& board) {
    return VerdictOf(board.m_shPlies <= 1 ? IsMateInOne(board) : MatesInTwo(board));
}

bool IsOnEdge(int file, int rank) {
    return file == 0 || file == 7 || rank == 0 || rank == 7;
}

TMaterialVerdict ThreeMen(TChessboard& board, int blackMen) {
    if (board.m_whiteKnights == 2) {
        return MateTest(board);
    }
    if (blackMen == 0 || board.m_whiteQueens + board.m_whiteRooks > 0 || board.m_whitePawns > 0) {
        return TMaterialVerdict::Unknown;
    }
    if (board.m_whiteBishops > 0) {
        return board.m_blackQueens > 0 ? TMaterialVerdict::NoMate : MateTest(board);
    }
    if (board.m_blackPawns == 1) {
        return TMaterialVerdict::Unknown;
    }
    return board.m_blackQueens > 0 ? TMaterialVerdict::NoMate : MateTest(board);
}

TMaterialVerdict FourMenAgainstOneFigure(TChessboard& board) {
    if (board.m_whiteBishops + board.m_whiteKnights == 0) {
        return TMaterialVerdict::Unknown;
    }
    if (board.m_blackPawns == 0) {
        return IsOnEdge(board.m_blackKingFile, board.m_blackKingRank) ? MateTest(board)
                                                                      : TMaterialVerdict::NoMate;
    }
    if (board.m_whiteBishops == 0 || board.m_blackQueens + board.m_blackRooks == 0) {
        return TMaterialVerdict::Unknown;
    }
    return ShortSearch(board);
}

}  // namespace

TMaterialVerdict MaterialVerdict(TChessboard& board) {
    const int whiteMen = 1 + WhiteFigureCount(board) + board.m_whitePawns;
    const int blackMen = BlackFigureCount(board) + board.m_blackPawns;
    const int total = whiteMen + blackMen;
    if (whiteMen == 1) {
        return TMaterialVerdict::NoMate;
    }
    const bool bTwoKnights = board.m_whiteKnights == 2 && whiteMen == 3;
    switch (total) {
        case 2:
            return board.m_whiteBishops + board.m_whiteKnights == 1 ? TMaterialVerdict::NoMate
                                                                    : TMaterialVerdict::Unknown;
        case 3:
            return ThreeMen(board, blackMen);
        case 4:
            if (whiteMen == 2) {
                return FourMenAgainstOneFigure(board);
            }
            if (!bTwoKnights) {
                return TMaterialVerdict::Unknown;
            }
            if (board.m_blackQueens > 0) {
                return MateTest(board);
            }
            return board.m_blackRooks > 0 ? ShortSearch(board) : TMaterialVerdict::Unknown;
        default:
            return bTwoKnights &&
                           board.m_blackPawns + board.m_blackBishops + board.m_blackKnights == 0
                       ? MateTest(board)
                       : TMaterialVerdict::Unknown;
    }
}

}  // namespace tarnwick
