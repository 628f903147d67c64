#pragma once
// CPlayedLine: the moves played through on the board, from the start position of one problem.
//
// The line has a cursor: the board on show is the one after that many half-moves. Back and Forward walk;
// another move than the next one cuts the tail, and UndoCut gives the tail back. Boards know the one
// before them, so castling and en passant are judged by the whole line.
//
// The line keeps its own copies: it lives on whatever becomes of the problem. Window thread.

#include <memory>
#include <string>
#include <vector>

#include "app/document/move_refusal.h"
#include "chess/board_stack.h"
#include "problems/chess_problem.h"

namespace tarnwick {

/// A half-move in the list of moves.
struct TMoveCell {
    int nPly = 0;      ///< Index of the position after the move; 0: there is no move in this cell.
    std::string text;  ///< Full notation with "+" for check or "#" for mate behind it.
    std::wstring comment;
    bool bInVariant = false;  ///< The line to this move belongs to a variant of the problem.
    bool bCurrent = false;    ///< The position on show is the one after this move.
};

struct TMoveRow {
    std::string number;  ///< "3." or, as remaining moves, "#3".
    TMoveCell white;
    TMoveCell black;
};

class CPlayedLine {
  public:
    CPlayedLine();

    /// Begins with the problem's start position. The moves of a file's section of moves are played, and
    /// the position after them is on show.
    void Start(const TChessProblem& problem);

    /// Plays at the cursor; the next move of the line again only steps on. Returns why not, and then
    /// nothing has changed. In a mate in n no side may make a move, a capture say, after which White
    /// lacks the men to mate: the line would be of no use to anybody.
    TMoveRefusal Play(TMove move);
    /// What Play would answer; for a mark on the field under the mouse.
    TMoveRefusal WhyRefused(TMove move) const;
    /// The whole reason for the user; empty for None.
    std::string RefusalText(TMoveRefusal refusal, TMove move) const;

    /// Steps at most so many half-moves. False if there was none to step.
    bool Back(int nPlies = 1);
    bool Forward(int nPlies = 1);
    /// To the position after nPly half-moves. False if there is none.
    bool GoTo(int nPly);

    /// Puts other moves in place of the whole line, from the start, and shows the position after them.
    /// Returns how many could be played.
    int SetMoves(const std::vector<TMove>& moves);
    /// Brings back what the last Play or SetMoves cut off, cursor included. False if nothing was cut.
    bool UndoCut();

    int Ply() const { return m_nPly; }
    int Length() const { return static_cast<int>(m_steps.size()) - 1; }
    const TChessboard& Board() const { return *m_steps[Index(m_nPly)].pBoard; }
    /// The position after nPly half-moves, 0 to Length(). Good until the line changes.
    const TChessboard& BoardAt(int nPly) const { return *m_steps[Index(nPly)].pBoard; }
    /// The first nPlies moves; all of them without an argument.
    std::vector<TMove> Moves(int nPlies = -1) const;
    /// Full notation of the move that leads to the position nPly, from 1; without check signs.
    std::string MoveText(int nPly) const;

    /// Rows for the list of moves. The problem gives variants and comments. bRemaining numbers a mate
    /// in n from n down to 1.
    std::vector<TMoveRow> Rows(const TChessProblem& problem, bool bRemaining) const;

  private:
    struct TStep {
        std::unique_ptr<TChessboard> pBoard;
        const char* sign = "";  ///< "+", "#" or nothing.
    };
    struct TEarlierLine {
        std::vector<TMove> moves;
        int nPly;
    };

    static std::size_t Index(int nPly) { return static_cast<std::size_t>(nPly); }
    bool IsNext(TMove move) const;
    TMoveRefusal MakeNext(const TChessboard& before, TMove move, TChessboard& next) const;
    void Append(const TChessboard& next);
    void RememberLine();

    std::vector<TStep> m_steps;  ///< By ply; never empty, m_steps[0] is the start.
    int m_nPly = 0;
    std::string m_invalid;  ///< Why the start is no position to play from; empty if it is one.
    TProblemType m_type = TProblemType::Position;
    int m_nMoves = 0;  ///< Of the stipulation; 0 for a position.
    int m_nMaxPlies = 0;
    std::vector<TEarlierLine> m_earlier;  ///< What UndoCut brings back, the last one last.
    std::unique_ptr<TBoardStack> m_pStack;
};

}  // namespace tarnwick
