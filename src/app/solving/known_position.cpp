// The register holds positions with White to move. A position with Black to move is judged by all of
// Black's replies: a mate if every one leads to a known mate, none if one leads to a known "no mate".

#include "app/solving/known_position.h"

#include <algorithm>
#include <array>

#include "base/filled_text.h"

#include "app/solving/solving_texts.h"
#include "chess/board_stack.h"
#include "chess/castling.h"
#include "chess/escape_check.h"
#include "chess/generate_moves.h"
#include "chess/legal_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "chess/move_text.h"

namespace tarnwick {
namespace {

/// What the register says, as long as it answers at once: it may be in the middle of a clearing of some
/// seconds, and the window asks. One answer that would have to be waited for ends the asking.
class CReadyRegister {
  public:
    explicit CReadyRegister(const TAggregatedTemporaryChessboardRegister* pRegister)
        : m_pRegister(pRegister) {}

    TRegisterResult Find(int plies, const TChessboard& board) {
        if (m_pRegister == nullptr || plies < 1 || !IsPositionFullyDescribed(board)) {
            return TRegisterResult::Unknown;
        }
        const auto result =
            m_pRegister->FindProvedSoon(static_cast<std::uint16_t>(plies), ItemOf(board));
        if (!result) {
            m_pRegister = nullptr;
        }
        return result.value_or(TRegisterResult::Unknown);
    }

  private:
    const TAggregatedTemporaryChessboardRegister* m_pRegister;
};

/// Plies to a mate, or one of the markers.
constexpr int UnknownMate = -1;
constexpr int NoMateAtAll = -2;

TKnownPosition Known(TKnownMate mate, int moves = 0) {
    TKnownPosition known;
    known.mate = mate;
    known.moves = moves;
    return known;
}

/// A board with slots for trial moves below it.
class CTrialBoard {
  public:
    explicit CTrialBoard(const TChessboard& board) : m_board(board) {
        m_stack.m_pRootBoard = &CastlingRoot(board);
        m_board.m_pThread = &m_stack;
    }
    TChessboard& Board() { return m_board; }

  private:
    TBoardStack m_stack;
    TChessboard m_board;
};

/// Plies of the shortest mate that is known.
int AskRegister(const TChessboard& board, CReadyRegister& known) {
    int plies = board.m_shPlies;
    const TRegisterResult result = known.Find(plies, board);
    if (result != TRegisterResult::Mate) {
        return result == TRegisterResult::NoMate ? NoMateAtAll : UnknownMate;
    }
    while (plies > 2 && known.Find(plies - 2, board) == TRegisterResult::Mate) {
        plies -= 2;
    }
    return plies;
}

int MateWithWhiteToMove(TChessboard& board, CReadyRegister& known) {
    if (IsMateInOne(board)) {
        return 1;
    }
    return board.m_shPlies == 1 ? NoMateAtAll : AskRegister(board, known);
}

/// A stalemate counts as unknown: nobody asks about one that is not on the board.
int MateWithBlackToMove(TChessboard& board, CReadyRegister& known) {
    const bool bInCheck = board.m_blackChecker != NoChecker;
    if (board.m_shPlies == 0) {
        return bInCheck && !CanBlackEscapeCheck(board) ? 0 : UnknownMate;
    }
    std::array<TMove, MaxMovesOfSide> moves;
    const int count = GenerateAllBlackMoves(board, moves.data());
    int longest = UnknownMate;
    bool bAllMate = true;
    for (int i = 0; i < count; ++i) {
        TChessboard* next = CopyToNextSlot(board);
        const int made = MakeBlackMove(*next, moves[static_cast<std::size_t>(i)], false);
        if (made == MoveRefused) {
            continue;
        }
        const int answer =
            made == MoveMadeHopeless ? NoMateAtAll : MateWithWhiteToMove(*next, known);
        if (answer == NoMateAtAll) {
            return NoMateAtAll;
        }
        bAllMate = bAllMate && answer != UnknownMate;
        longest = std::max(longest, answer);
    }
    if (longest == UnknownMate) {
        return bInCheck && bAllMate ? 0 : UnknownMate;  // 0: mated
    }
    return bAllMate ? longest + 1 : UnknownMate;
}

/// The shortest threat, of those equally short the first in field order.
std::optional<TKnownThreat> FindThreat(TChessboard& board, CReadyRegister& known) {
    TChessboard* passed = CopyToNextSlot(board);
    if (board.m_shPlies < 2 || board.m_blackChecker != NoChecker || !PassBlack(*passed)) {
        return std::nullopt;
    }
    std::array<TMove, MaxMovesOfSide> moves;
    const int count = GenerateAllWhiteMoves(*passed, moves.data());
    std::optional<TKnownThreat> best;
    for (int i = 0; i < count; ++i) {
        const TMove move = moves[static_cast<std::size_t>(i)];
        TChessboard* next = CopyToNextSlot(*passed);
        if (MakeWhiteMove(*next, move) == MoveRefused) {
            continue;
        }
        const int plies = MateWithBlackToMove(*next, known);
        if (plies >= 0 && (!best || plies / 2 + 1 < best->moves)) {
            best = TKnownThreat{move, plies / 2 + 1};
        }
    }
    return best;
}

bool IsNoMateInFewer(const TChessboard& board, int plies, CReadyRegister& known) {
    return plies >= 5 && known.Find(plies - 2, board) == TRegisterResult::NoMate;
}

TKnownPosition LookUpWhite(TChessboard& board, CReadyRegister& known) {
    const int plies = MateWithWhiteToMove(board, known);
    if (plies == NoMateAtAll) {
        return Known(TKnownMate::NoMate);
    }
    if (plies == UnknownMate) {
        return {};
    }
    const bool bExact = plies == 1 || IsNoMateInFewer(board, plies, known);
    return Known(bExact ? TKnownMate::Exactly : TKnownMate::AtMost, (plies + 1) / 2);
}

TKnownPosition LookUpBlack(TChessboard& board, CReadyRegister& known) {
    TKnownPosition position;
    const int plies = MateWithBlackToMove(board, known);
    if (plies == NoMateAtAll) {
        position.mate = TKnownMate::NoMate;
    } else if (plies > 0) {
        position.mate = plies == 2 ? TKnownMate::Exactly : TKnownMate::AtMost;
        position.moves = plies / 2;
    }
    position.threat = FindThreat(board, known);
    return position;
}

std::string MateText(const TKnownPosition& known) {
    const std::string moves = std::to_string(known.moves);
    switch (known.mate) {
        case TKnownMate::Exactly:
            return FilledText(UserText(MateInPositionText), {moves});
        case TKnownMate::AtMost:
            return FilledText(UserText(MateInRegisterText), {moves});
        case TKnownMate::NoMate:
            return UserText(NoMateFromHereText);
        case TKnownMate::Stalemate:
            return UserText(StalemateText);
        default:
            return "";
    }
}

}  // namespace

TKnownPosition LookUpPosition(const TChessboard& board,
                              const TAggregatedTemporaryChessboardRegister* pRegister) {
    const bool bWhite = IsWhiteToMove(board);
    const bool bInCheck = (bWhite ? board.m_whiteChecker : board.m_blackChecker) != NoChecker;
    if (LegalMoves(board).empty()) {
        return Known(bInCheck ? TKnownMate::Unknown : TKnownMate::Stalemate);
    }
    if (board.m_shPlies == 0 || board.m_shPlies >= MaxPlies) {
        return {};
    }
    CTrialBoard trial(board);
    CReadyRegister known(pRegister);
    return bWhite ? LookUpWhite(trial.Board(), known) : LookUpBlack(trial.Board(), known);
}

std::string KnownPositionText(const TKnownPosition& known, const TChessboard& board) {
    std::string text = MateText(known);
    if (known.threat) {
        text += (text.empty() ? "" : "; ") +
                FilledText(UserText(ThreatText), {MoveToDisplayText(known.threat->move, board),
                                                  std::to_string(known.threat->moves)});
    }
    return text;
}

}  // namespace tarnwick
