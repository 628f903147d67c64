#pragma once

// Whole solves and single lines of play for the tests of the engine.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "chess/board_stack.h"
#include "chess/fen.h"
#include "chess/make_move.h"
#include "chess/move_text.h"
#include "chess/start_position.h"
#include "engine/jobs/start_solving.h"
#include "engine/search/thread_context.h"
#include "support/shared_problems.h"

namespace tarnwick {

/// The moves of a line: "Rg1-a1 Kh8-g7".
inline std::vector<std::string> WordsOf(const std::string& line) {
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

/// Of a FEN, or of a shared problem by its id.
inline TChessboard BoardOf(const std::string& fenOrId) {
    const std::string fen = SharedPosition(fenOrId);
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    if (!ReadFen(board, fen, bCastlingWithheld, bEnPassantGiven)) {
        throw std::invalid_argument("neither a FEN nor at hand: " + fenOrId);
    }
    return board;
}

/// Full notation, sorted.
inline std::vector<std::string> KeyTexts(const TChessboard& board, const std::vector<TMove>& keys) {
    std::vector<std::string> texts;
    for (const TMove key : keys) {
        texts.push_back(MoveToDisplayText(key, board));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

inline TEngineOptions AllKeysWanted(std::size_t memoryMiB = 1) {
    TEngineOptions options;
    options.bAllSolutions = true;
    options.positionMemoryMiB = memoryMiB;
    return options;
}

/// Solves from a fresh task.
inline TSolveResult Solve(const TChessboard& board, int moves, const TEngineOptions& options) {
    TSolveTask task;
    task.m_options = options;
    return StartSolving(task, board, moves);
}
inline TSolveResult Solve(const std::string& fen, int moves, const TEngineOptions& options) {
    return Solve(BoardOf(fen), moves, options);
}

/// A line of play on the boards of a search thread, as the node functions see it.
class CSearchLine {
  public:
    /// plies: odd for White to move at the root, even for Black.
    CSearchLine(const std::string& fen, int plies, const TEngineOptions& options = AllKeysWanted(),
                std::shared_ptr<TGlobalRegisterSet> tables = nullptr)
        : m_root(BoardOf(fen)) {
        m_task.m_options = options;
        m_task.m_pTables = std::move(tables);
        m_task.m_shPlies = m_task.m_shRepetitionFrom = static_cast<std::uint16_t>(plies);
        m_pThread = std::make_unique<TThreadContext>(
            m_task, MemoryForPlies(m_task.m_shPlies, options.positionMemoryMiB));
        CheckStartPosition(m_root, m_task.m_shPlies, true, nullptr, &m_task.m_material);
        m_root.m_pTask = &m_task;
        m_root.m_pThread = m_pThread.get();
        m_root.m_pass = 2;
        if (m_pThread->m_pTables != nullptr) {
            m_root.m_searchFlags.Set(TSearchFlag::GlobalRegisterMayHold);
        }
        m_pThread->m_pRootBoard = &m_root;
        m_pBoard = &m_root;
    }

    TSolveTask& Task() { return m_task; }
    TThreadContext& SearchThread() { return *m_pThread; }
    TChessboard& Root() { return m_root; }
    TChessboard& Board() { return *m_pBoard; }

    /// Back to the root; what the thread has learned stays.
    CSearchLine& Restart() {
        m_pBoard = &m_root;
        return *this;
    }
    /// False if the make operation refuses the move, as it does with captures that leave no mate.
    bool TryPlay(const std::string& text) {
        const bool bWhite = IsWhiteToMove(*m_pBoard);
        TMove move;
        ParseFullMove(move, text, bWhite);
        TChessboard* next = CopyToNextSlot(*m_pBoard);
        const int made = bWhite ? MakeWhiteMove(*next, move) : MakeBlackMove(*next, move, false);
        m_pBoard = made == MoveRefused ? m_pBoard : next;
        return made != MoveRefused;
    }
    /// Plays moves in full notation, White and Black by turns.
    CSearchLine& Play(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            if (!TryPlay(text)) {
                throw std::invalid_argument("refused: " + text);
            }
        }
        return *this;
    }

  private:
    TSolveTask m_task;
    TChessboard m_root;
    std::unique_ptr<TThreadContext> m_pThread;
    TChessboard* m_pBoard = nullptr;
};

}  // namespace tarnwick
