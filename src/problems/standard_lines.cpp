#include "problems/standard_lines.h"

#include "chess/prepare_position.h"
#include "chess/standard_move_text.h"

namespace tarnwick {

CStandardLines::CStandardLines(const TChessProblem& problem) {
    *m_line.m_pBoard = *problem.m_pBoard;
    PreparePosition(*m_line.m_pBoard, true);
    SetPlies(m_line, PliesOfPosition);
}

std::vector<std::string> CStandardLines::Texts(std::span<const TMove> moves) {
    ClearLine(m_line);
    std::vector<std::string> texts;
    for (const TMove move : moves) {
        if (!PlayOnLine(m_line, move, m_stack)) {
            break;
        }
        const TChessboard& before = BoardBeforeMove(m_line, m_line.m_lineBoards.size() - 1);
        texts.push_back(StandardMoveText(before, move, *m_line.m_pLastBoard));
    }
    return texts;
}

}  // namespace tarnwick
