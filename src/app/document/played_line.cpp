#include "app/document/played_line.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/document/play_texts.h"
#include "app/document/variants.h"
#include "chess/checked_move.h"
#include "chess/legal_moves.h"
#include "chess/make_move.h"
#include "chess/move_text.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

constexpr std::size_t MaxEarlierLines = 100;

const char* CheckSign(const TChessboard& board) {
    const bool bCheck =
        (IsWhiteToMove(board) ? board.m_whiteChecker : board.m_blackChecker) != NoChecker;
    if (!bCheck) {
        return "";
    }
    return LegalMoves(board).empty() ? "#" : "+";
}

std::string WhyNoStart(TChessboard& board) {
    try {
        PreparePosition(board, true);
    } catch (const ChessException& error) {
        return error.what();
    }
    return board.m_blackChecker == NoChecker ? "" : UserText(BlackKingCheckedText);
}

}  // namespace

CPlayedLine::CPlayedLine() : m_pStack(std::make_unique<TBoardStack>()) {
    Start(TChessProblem());
}

void CPlayedLine::Start(const TChessProblem& problem) {
    auto pStart = std::make_unique<TChessboard>(*problem.m_pBoard);
    m_invalid = WhyNoStart(*pStart);
    m_type = problem.m_type;
    m_nMoves = MovesOfStipulation(problem);
    m_nMaxPlies = m_type == TProblemType::Position ? MaxMovesOfLine : problem.m_shPlies;
    m_earlier.clear();
    m_steps.clear();
    m_steps.push_back({.pBoard = std::move(pStart)});
    m_nPly = 0;
    for (const auto& pBoard : problem.m_lineBoards) {
        Play(pBoard->m_lastMove);
    }
}

bool CPlayedLine::IsNext(TMove move) const {
    return m_nPly < Length() && m_steps[Index(m_nPly + 1)].pBoard->m_lastMove.SameAs(move);
}

TMoveRefusal CPlayedLine::MakeNext(const TChessboard& before, TMove move, TChessboard& next) const {
    if (!m_invalid.empty()) {
        return TMoveRefusal::InvalidPosition;
    }
    if (m_nPly >= m_nMaxPlies) {
        return m_nMoves > 0 ? TMoveRefusal::StipulationOver : TMoveRefusal::LineFull;
    }
    const TMoveRefusal refusal = WhyIllegal(before, move);
    if (refusal != TMoveRefusal::None) {
        return refusal;
    }
    m_pStack->m_pRootBoard = m_steps.front().pBoard.get();
    next = before;
    next.m_pPrevious = m_steps[Index(m_nPly)].pBoard.get();
    next.m_pThread = m_pStack.get();
    const int made =
        IsWhiteToMove(before) ? MakeWhiteMove(next, move) : MakeBlackMove(next, move, false);
    if (made != MoveMade && m_type == TProblemType::DirectMate) {
        return TMoveRefusal::MateImpossible;
    }
    if (made == MoveRefused) {
        next = before;
        next.m_pPrevious = m_steps[Index(m_nPly)].pBoard.get();
        MoveMenAlone(next, move);
    }
    next.m_pThread = nullptr;
    return TMoveRefusal::None;
}

TMoveRefusal CPlayedLine::WhyRefused(TMove move) const {
    TChessboard next;
    return IsNext(move) ? TMoveRefusal::None : MakeNext(Board(), move, next);
}

TMoveRefusal CPlayedLine::Play(TMove move) {
    if (IsNext(move)) {
        ++m_nPly;
        return TMoveRefusal::None;
    }
    TChessboard next;
    const TMoveRefusal refusal = MakeNext(Board(), move, next);
    if (refusal != TMoveRefusal::None) {
        return refusal;
    }
    if (m_nPly < Length()) {
        RememberLine();
        m_steps.resize(Index(m_nPly + 1));
    }
    Append(next);
    return TMoveRefusal::None;
}

void CPlayedLine::Append(const TChessboard& next) {
    auto pBoard = std::make_unique<TChessboard>(next);
    const char* sign = CheckSign(*pBoard);
    m_steps.push_back({.pBoard = std::move(pBoard), .sign = sign});
    ++m_nPly;
}

void CPlayedLine::RememberLine() {
    m_earlier.push_back({.moves = Moves(), .nPly = m_nPly});
    if (m_earlier.size() > MaxEarlierLines) {
        m_earlier.erase(m_earlier.begin());
    }
}

std::string CPlayedLine::RefusalText(TMoveRefusal refusal, TMove move) const {
    switch (refusal) {
        case TMoveRefusal::InvalidPosition:
            return m_invalid;
        case TMoveRefusal::StipulationOver:
            return FilledText(StipulationOverText, {std::to_string(m_nMoves)});
        case TMoveRefusal::LineFull:
            return UserText(LineFullText);
        case TMoveRefusal::MateImpossible:
            return UserText(MateImpossibleText);
        default:
            return TextOfRefusal(refusal, Board(), move);
    }
}

bool CPlayedLine::Back(int nPlies) {
    return m_nPly > 0 && GoTo(std::max(0, m_nPly - nPlies));
}

bool CPlayedLine::Forward(int nPlies) {
    return m_nPly < Length() && GoTo(std::min(Length(), m_nPly + nPlies));
}

bool CPlayedLine::GoTo(int nPly) {
    if (nPly < 0 || nPly > Length()) {
        return false;
    }
    m_nPly = nPly;
    return true;
}

int CPlayedLine::SetMoves(const std::vector<TMove>& moves) {
    if (Length() > 0) {
        RememberLine();
    }
    m_nPly = 0;
    m_steps.resize(1);
    for (const TMove move : moves) {
        if (Play(move) != TMoveRefusal::None) {
            break;
        }
    }
    return m_nPly;
}

bool CPlayedLine::UndoCut() {
    if (m_earlier.empty()) {
        return false;
    }
    const TEarlierLine earlier = std::move(m_earlier.back());
    m_earlier.pop_back();
    m_nPly = 0;
    m_steps.resize(1);
    SetMoves(earlier.moves);
    return GoTo(earlier.nPly);
}

std::vector<TMove> CPlayedLine::Moves(int nPlies) const {
    const int count = nPlies < 0 ? Length() : std::min(nPlies, Length());
    std::vector<TMove> moves;
    for (int ply = 1; ply <= count; ++ply) {
        moves.push_back(BoardAt(ply).m_lastMove);
    }
    return moves;
}

std::string CPlayedLine::MoveText(int nPly) const {
    return MoveToDisplayText(BoardAt(nPly).m_lastMove, BoardAt(nPly - 1));
}

std::vector<TMoveRow> CPlayedLine::Rows(const TChessProblem& problem, bool bRemaining) const {
    const std::vector<const TVariantEntry*> entries = EntriesOfLine(problem, Moves());
    std::vector<TMoveRow> rows;
    for (int ply = 1; ply <= Length(); ++ply) {
        const bool bWhite = IsWhiteToMove(BoardAt(ply - 1));
        if (bWhite || rows.empty()) {
            const int played = static_cast<int>(rows.size());
            const bool bCountDown = bRemaining && m_nMoves > 0;
            rows.emplace_back().number = bCountDown ? "#" + std::to_string(m_nMoves - played)
                                                    : std::to_string(played + 1) + '.';
        }
        TMoveCell& cell = bWhite ? rows.back().white : rows.back().black;
        const TVariantEntry* pEntry = entries[Index(ply - 1)];
        cell.nPly = ply;
        cell.text = MoveText(ply) + m_steps[Index(ply)].sign;
        cell.bInVariant = pEntry != nullptr;
        cell.comment = pEntry == nullptr ? L"" : pEntry->m_comment;
        cell.bCurrent = ply == m_nPly;
    }
    return rows;
}

}  // namespace tarnwick
