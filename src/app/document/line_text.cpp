#include "app/document/line_text.h"

#include "base/encoding.h"

#include "app/document/played_line.h"
#include "app/view/typed_move.h"
#include "chess/fen.h"
#include "chess/move_text.h"

namespace tarnwick {
namespace {

char LetterOf(TFigureCode type) {
    switch (type) {
        case TypeKing:
            return 'K';
        case TypeQueen:
            return 'Q';
        case TypeRook:
            return 'R';
        case TypeBishop:
            return 'B';
        default:
            return 'N';
    }
}

bool IsClear(const TChessboard& board, const std::string& text) {
    return ReadTypedMove(board, text).exact.size() == 1;
}

}  // namespace

std::string ShortMoveText(const TChessboard& board, TMove move) {
    const TFigureCode type = TypeOf(board.m_fields[move.from]);
    const std::string full = MoveToDisplayText(move, board);
    if (full.starts_with("0")) {
        return full;  // castling
    }
    const bool bPawn = type == TypePawn;
    const bool bCapture = full.find(':') != std::string::npos;
    const std::string from = FieldName(move.from);
    std::string behind = (bCapture ? "x" : "") + FieldName(move.to);
    if (move.PromotionType() != 0) {
        behind += LetterOf(move.PromotionType());
    }
    const std::string letter = bPawn ? "" : std::string(1, LetterOf(type));
    // A capturing pawn always names its file.
    for (const std::string& start : {std::string(), from.substr(0, 1), from.substr(1), from}) {
        const std::string text = letter + start + behind;
        if (!(bPawn && bCapture && start.empty()) && IsClear(board, text)) {
            return text;
        }
    }
    return full;
}

std::string TextOfLine(const CPlayedLine& line, bool bShort) {
    static const TChessProblem noProblem;
    std::string text;
    int nPly = 0;
    const auto append = [&](const TMoveCell& cell) {
        if (cell.nPly == 0) {
            return;
        }
        text += text.empty() || text.ends_with('.') ? "" : " ";
        if (!bShort) {
            text += cell.text;
            return;
        }
        text += ShortMoveText(line.BoardAt(nPly), line.BoardAt(cell.nPly).m_lastMove);
        text += cell.text.ends_with('+') || cell.text.ends_with('#')
                    ? cell.text.substr(cell.text.size() - 1)
                    : "";
    };
    for (const TMoveRow& row : line.Rows(noProblem, false)) {
        text += (text.empty() ? "" : " ") + row.number;
        append(row.white);
        nPly = row.white.nPly == 0 ? nPly : row.white.nPly;
        append(row.black);
        nPly = row.black.nPly == 0 ? nPly : row.black.nPly;
    }
    return text;
}

std::string TextOfVariants(const TChessProblem& problem, bool bShort) {
    std::string text;
    CPlayedLine line;
    for (const auto& [key, variant] : problem.m_variants) {
        line.Start(problem);
        std::vector<TMove> moves;
        for (const TVariantEntry& entry : variant.m_entries) {
            moves.push_back(entry.m_move);
        }
        line.SetMoves(moves);
        text += ToUtf8(variant.m_name) + ": " + TextOfLine(line, bShort) + "\n";
    }
    return text;
}

}  // namespace tarnwick
