#include "problems/chess_problem.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "base/chess_exception.h"

#include "chess/board_stack.h"
#include "chess/checked_move.h"
#include "chess/make_move.h"
#include "chess/move_text.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

bool IsLegal(const TChessboard& board, TMove move) {
    const TFigureCode standing = board.m_fields[move.from];
    if (ColourOf(standing) != (IsWhiteToMove(board) ? WhiteFlag : BlackFlag)) {
        return false;
    }
    try {
        TMove found;
        ParseCheckedMove(board, found, MoveToDisplayText(move, board));
        return found.SameAs(move);
    } catch (const ChessException&) {
        return false;
    }
}

}  // namespace

TChessProblem::TChessProblem() : m_pBoard(&m_startBoard), m_pLastBoard(&m_startBoard) {
    m_startBoard = EmptyChessboard();
    m_originalBoard = m_startBoard;
}

std::uint16_t PliesOfStipulation(TProblemType type, int nMoves) {
    assert(nMoves >= 1 && nMoves <= MaxStipulationMoves);
    switch (type) {
        case TProblemType::DirectMate:
            return static_cast<std::uint16_t>(2 * nMoves - 1);
        case TProblemType::SelfMate:
            return static_cast<std::uint16_t>(2 * nMoves + 1);
        default:
            return PliesOfPosition;
    }
}

int MovesOfStipulation(const TChessProblem& problem) {
    switch (problem.m_type) {
        case TProblemType::DirectMate:
            return (problem.m_shPlies + 1) / 2;
        case TProblemType::SelfMate:
            return (problem.m_shPlies - 1) / 2;
        default:
            return 0;
    }
}

void SetPlies(TChessProblem& problem, std::uint16_t shPlies) {
    problem.m_shPlies = shPlies;
    problem.m_pBoard->m_shPlies = shPlies;
    problem.m_pBoard->m_shRootPlies = shPlies;
}

void SetDescription(TChessProblem& problem, std::wstring text) {
    constexpr std::wstring_view blanks = L" \t";
    text.erase(text.find_last_not_of(blanks) + 1);  // all of it, if there are blanks only
    text.erase(0, std::min(text.find_first_not_of(blanks), text.size()));
    problem.m_description = std::move(text);
}

void ClearLine(TChessProblem& problem) {
    problem.m_pLastBoard = problem.m_pBoard;
    problem.m_lineBoards.clear();
}

bool PlayOnLine(TChessProblem& problem, TMove move, TBoardStack& stack) {
    TChessboard& before = *problem.m_pLastBoard;
    if (problem.m_lineBoards.size() == MaxMovesOfLine || !IsLegal(before, move)) {
        return false;
    }
    auto next = std::make_unique<TChessboard>(before);
    next->m_pPrevious = &before;
    next->m_pThread = &stack;
    stack.m_pRootBoard = problem.m_pBoard;
    const int result =
        IsWhiteToMove(before) ? MakeWhiteMove(*next, move) : MakeBlackMove(*next, move, false);
    if (result == MoveRefused) {
        // Legal, but White can no longer mate. A search drops such a line; here somebody played it.
        *next = before;
        next->m_pPrevious = &before;
        MoveMenAlone(*next, move);
    }
    next->m_pThread = nullptr;
    problem.m_pLastBoard = next.get();
    problem.m_lineBoards.push_back(std::move(next));
    return true;
}

const TChessboard& BoardBeforeMove(const TChessProblem& problem, std::size_t index) {
    return index == 0 ? *problem.m_pBoard : *problem.m_lineBoards[index - 1];
}

}  // namespace tarnwick
