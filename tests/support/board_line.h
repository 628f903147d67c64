#pragma once

// A line of play on real boards and by the slow rules side by side.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "chess/board_stack.h"
#include "chess/board_tables.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/move_list.h"
#include "chess/prepare_position.h"
#include "support/slow_rules.h"

namespace tarnwick {

/// Plies left at the root of a test line: far more than any test plays. Even for Black to move.
inline constexpr std::uint16_t WhiteRootPlies = 199;
inline constexpr std::uint16_t BlackRootPlies = 198;

inline slow::TSlowMove SlowMoveOf(TMove move) {
    const TFigureCode type = move.PromotionType();
    return {move.from, move.to, type == 0 ? char{0} : CodeToLetter[type]};
}

inline TMove MoveOf(const slow::TSlowMove& move) {
    const auto letter = static_cast<unsigned char>(move.promotion);
    return {static_cast<TField>(move.from), static_cast<TField>(move.to),
            TypeOf(LetterToCode[letter]), 0};
}

/// "e2-e4": fields as people name them, for lists of fields in expectations.
inline int FieldOf(const std::string& name) {
    return (name[0] - 'a') + 8 * (name[1] - '1');
}

class CBoardLine {
  public:
    explicit CBoardLine(const std::string& fen, bool isWhiteToMove = true,
                        std::uint16_t shPlies = 0) {
        m_stack.m_pRootBoard = &m_root;
        Restart(slow::FromFen(fen, isWhiteToMove), shPlies);
    }

    /// Begins anew from a root position; shPlies 0 takes the usual number.
    void Restart(const slow::TSlowPosition& root, std::uint16_t shPlies = 0) {
        m_slow = root;
        m_root = EmptyChessboard();
        for (std::size_t field = 0; field < FieldCount; ++field) {
            m_root.m_fields[field] = LetterToCode[static_cast<unsigned char>(root.board[field])];
        }
        m_root.m_pThread = &m_stack;
        m_root.m_shPlies = root.isWhiteToMove ? WhiteRootPlies : BlackRootPlies;
        if (shPlies != 0) {
            m_root.m_shPlies = shPlies;
        }
        m_root.m_shRootPlies = m_root.m_shPlies;
        PreparePosition(m_root, true);
        m_pBoard = &m_root;
    }

    TChessboard& Board() { return *m_pBoard; }
    const slow::TSlowPosition& Slow() const { return m_slow; }

    /// The answer of the make operation on the next slot; the line stays where it is.
    int Try(TMove move) {
        TChessboard* next = CopyToNextSlot(*m_pBoard);
        return IsWhiteToMove(*m_pBoard) ? MakeWhiteMove(*next, move)
                                        : MakeBlackMove(*next, move, false);
    }
    /// The board that the last Try left behind.
    TChessboard& Tried() { return *GetNextBoardSlot(*m_pBoard); }

    /// Plays a move that must be possible.
    void Play(TMove move) {
        ASSERT_NE(Try(move), MoveRefused) << slow::FullText(m_slow, SlowMoveOf(move));
        m_pBoard = &Tried();
        m_slow = slow::Play(m_slow, SlowMoveOf(move));
    }
    /// Plays moves in full notation.
    void Play(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            const auto move = slow::FindMove(m_slow, text);
            ASSERT_TRUE(move.has_value()) << text << " in " << slow::PlacementText(m_slow);
            Play(MoveOf(*move));
        }
    }

    /// The full notation of moves of this position, sorted.
    std::vector<std::string> Texts(const TMove* pMoves, int count) const {
        std::vector<std::string> texts;
        for (int i = 0; i < count; ++i) {
            texts.push_back(slow::FullText(m_slow, SlowMoveOf(pMoves[i])));
        }
        std::sort(texts.begin(), texts.end());
        return texts;
    }

    /// The generated moves that the make operations accept, in full notation, sorted.
    std::vector<std::string> AcceptedMoves() {
        TMove moves[MaxMovesOfSide];
        const int count = IsWhiteToMove(*m_pBoard) ? GenerateAllWhiteMoves(*m_pBoard, moves)
                                                   : GenerateAllBlackMoves(*m_pBoard, moves);
        const auto end = std::remove_if(moves, moves + count,
                                        [&](TMove move) { return Try(move) == MoveRefused; });
        return Texts(moves, static_cast<int>(end - moves));
    }

  private:
    TBoardStack m_stack;
    TChessboard m_root;
    TChessboard* m_pBoard = nullptr;
    slow::TSlowPosition m_slow;
};

}  // namespace tarnwick
