// The ladder itself: the order of the steps, the log, the simulation and its text.

#include "engine/heuristics/relaxation.h"

#include <fstream>
#include <iterator>
#include <mutex>

#include "platform/local_time.h"

#include "engine/engine_texts.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/heuristic_list.h"
#include "engine/heuristics/position_analysis.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/relaxation_ladder.h"
#include "engine/heuristics/tracked_men.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// Far more than any set has steps: each one weakens something.
constexpr int MostSteps = 200;

std::mutex g_relaxationLogLock;

// ---- Steps that drop one heuristic

TRung DropIfThere(TLadder& ladder, std::uint32_t bit) {
    return ladder.Has(bit) ? Drop(ladder, bit) : TRung::GoOn;
}
TRung DropSweepingRook(TLadder& ladder) {
    return DropIfThere(ladder, SH_SWEEPINGWHITEROOK);
}
TRung DropZugzwang(TLadder& ladder) {
    return DropIfThere(ladder, SH_ZUGZWANG);
}
TRung DropSeaSnake(TLadder& ladder) {
    // What looked like a sea snake goes round in circles: repetitions have to be judged with care.
    if (ladder.Has(SH_SEASNAKE) && !ladder.bSimulated) {
        ForceSafeMode(Thread(ladder.board).m_task);
    }
    return DropIfThere(ladder, SH_SEASNAKE);
}
TRung DropOneColourPlay(TLadder& ladder) {
    return DropIfThere(ladder, SH_ONECOLORPLAYPOSSIBLE);
}
TRung DropNearCorner(TLadder& ladder) {
    return DropIfThere(ladder, SH_KEEPKINGNEARCORNER);
}
TRung DropMainDiagonal(TLadder& ladder) {
    return DropIfThere(ladder, SH_DONTLEAVEMAINDIAGONAL);
}
TRung DropQueenChecks(TLadder& ladder) {
    return DropIfThere(ladder, SH_DONTLETBLACKQUEENCHECKTWICE);
}
TRung DropPromotedQueen(TLadder& ladder) {
    return DropIfThere(ladder, SH_DONTLETPROMOTEDQUEENMOVE);
}
TRung DropSingleQueen(TLadder& ladder) {
    return DropIfThere(ladder, SH_SINGLEQUEENMATE);
}
TRung DropLoseFigures(TLadder& ladder) {
    return DropIfThere(ladder, SH_DONTLOSEANYFIGURES);
}

/// Few light figures around a bare king cannot spare any of them: there the king's room goes first.
TRung DropLoseFiguresUnlessNeeded(TLadder& ladder) {
    const TChessboard& board = ladder.board;
    const bool bNeeded = board.m_searchFlags.Has(TSearchFlag::BareBlackKing) &&
                         !HasAdvancedWhitePawn(board) && ladder.Has(SH_ASSERTBLACKKINGSURROUNDED) &&
                         board.m_whiteQueens == 0 && board.m_whiteRooks == 0 &&
                         WhiteFigureCount(board) < 4;
    return bNeeded ? TRung::GoOn : DropLoseFigures(ladder);
}

/// What is left asks for little; one of them may still be worth a pass of its own.
TRung DropRest(TLadder& ladder) {
    if (ladder.Has(SH_SKIPWORSTWHITEMOVES)) {
        return Drop(ladder, SH_SKIPWORSTWHITEMOVES);
    }
    return Drop(ladder, ladder.set);
}

using TStep = TRung (*)(TLadder&);
constexpr TStep Steps[] = {RestoreFollowedMen,
                           TakeTurnsWithKeyFigure,
                           RelaxForcedMate,
                           DropSweepingRook,
                           DropZugzwang,
                           DropSeaSnake,
                           DropOneColourPlay,
                           DropNearCorner,
                           ThinFollowedMenIfMany,
                           DropMainDiagonal,
                           DropKeyFigureInCorner,
                           RelaxStillKing,
                           ThinFollowedMen,
                           DropKeyFigure,
                           DropQueenChecks,
                           DropPromotedQueen,
                           DropSingleQueen,
                           DropLoseFiguresUnlessNeeded,
                           RelaxSurrounded,
                           DropLoseFigures,
                           LeaveEdge,
                           RelaxExtendedEdge,
                           DropRest};

TRung TakeFirstStep(TLadder& ladder) {
    for (const TStep step : Steps) {
        const TRung rung = step(ladder);
        if (rung != TRung::GoOn) {
            return rung;
        }
    }
    return TRung::Changed;
}

/// The set, what it needs on the board, and the key.
void PutOnBoard(TChessboard& board, std::uint32_t set) {
    if ((set & SH_ONECOLORPLAYPOSSIBLE) == 0) {
        board.m_captureState &= static_cast<std::uint8_t>(~OneColourMask);
    }
    if ((set & SH_DONTLETFIGUREUNBLOCK) != 0) {
        StartFollowing(board, Thread(board).m_heuristics);
    }
    SetHeuristics(board, set);
}

std::int8_t Relax(TChessboard& board, bool bSimulated, const TSolvingOutput& output);

std::int8_t RelaxBoardBefore(TChessboard& board, bool bSimulated, const TSolvingOutput& output) {
    if (board.m_pPrevious == nullptr) {
        return NothingToRelax;
    }
    // Steps that try moves use the slots below the board before, and this board may be in one.
    const TChessboard saved = board;
    TChessboard& before = *saved.m_pPrevious;
    const std::int8_t result = Relax(before, bSimulated, output);
    board = saved;
    board.m_heuristicFlags.SetRaw(result == NothingToRelax ? 0 : before.m_heuristicFlags.Raw());
    board.m_heuristicKey = result == NothingToRelax ? 0 : before.m_heuristicKey;
    return result;
}

std::int8_t Relax(TChessboard& board, bool bSimulated, const TSolvingOutput& output) {
    TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    if (!parameters.bLetRelaxHeuristics) {
        PutOnBoard(board, 0);
        return NothingToRelax;
    }
    if (!IsWhiteToMove(board)) {
        return RelaxBoardBefore(board, bSimulated, output);
    }
    ++parameters.RelaxationSteps;
    TLadder ladder{.board = board,
                   .parameters = parameters,
                   .set = board.m_heuristicFlags.Raw(),
                   .bSimulated = bSimulated,
                   .output = output};
    const TRung rung = TakeFirstStep(ladder);
    PutOnBoard(board, ladder.set);
    if (ladder.set == 0) {
        return NothingToRelax;
    }
    return rung == TRung::ChangedByTime ? RelaxedByTime : Relaxed;
}

// ---- The log

std::string SetText(const TChessboard& board, std::uint32_t set) {
    return HeuristicListText(set, Thread(board).m_heuristics, board.m_captureState & OneColourMask);
}

void WriteLog(const TChessboard& board, const char* when) {
    const TThreadContext& thread = Thread(board);
    if (!thread.m_task.m_options.bRelaxationLog) {
        return;
    }
    const std::lock_guard guard(g_relaxationLogLock);
    std::ofstream file(thread.m_task.m_options.logFolder / "TryRelaxSpecialHeuristics.log",
                       std::ios::app);
    file << LocalTimeText() << ' ' << when << " th=" << thread.m_shThreadNumber << ' '
         << SetText(board, board.m_heuristicFlags.Raw()) << '\n';
}

// ---- The simulation

bool HoldsKing(std::uint32_t set) {
    return (set & (SH_KEEPKINGONTHEEDGE | SH_ASSERTBLACKKINGSURROUNDED)) != 0;
}

/// Puts back what a simulation changes: with Black to move that is the board before as well.
class CSimulation {
  public:
    explicit CSimulation(const TChessboard& board)
        : m_thread(Thread(board)),
          m_heuristics(m_thread.m_heuristics),
          m_pBefore(board.m_pPrevious) {
        if (m_pBefore != nullptr) {
            m_before = *m_pBefore;
        }
    }
    CSimulation(const CSimulation&) = delete;
    CSimulation& operator=(const CSimulation&) = delete;
    ~CSimulation() {
        m_thread.m_heuristics = m_heuristics;
        if (m_pBefore != nullptr) {
            *m_pBefore = m_before;
        }
    }

  private:
    TThreadContext& m_thread;
    const TSpecialHeuristics m_heuristics;
    TChessboard* const m_pBefore;
    TChessboard m_before;
};

/// One pass of the text. A sea snake that begins later is told apart from the set.
std::string PassText(const TChessboard& board) {
    const TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    const std::uint32_t set = board.m_heuristicFlags.Raw();
    const bool bLaterSnake = (set & SH_SEASNAKE) != 0 && parameters.SeaSnakeAfterMove > 0;
    std::string text = SetText(board, bLaterSnake ? set & ~SH_SEASNAKE : set);
    if (bLaterSnake) {
        text += ", SH_SEASNAKE(after " + std::to_string(parameters.SeaSnakeAfterMove) + " only)";
    }
    return text;
}

}  // namespace

TRung Drop(TLadder& ladder, std::uint32_t bits) {
    ladder.set &= ~bits;
    return TRung::Changed;
}

TRung Replace(TLadder& ladder, std::uint32_t from, std::uint32_t to) {
    ladder.set = (ladder.set & ~from) | to;
    return TRung::Changed;
}

std::int8_t TryRelaxSpecialHeuristics(TChessboard& board, const TSolvingOutput& output) {
    WriteLog(board, "BEFORE");
    const std::int8_t result = Relax(board, false, output);
    WriteLog(board, "AFTER ");
    return result;
}

TRelaxationCounts SimulateRelaxation(TChessboard& board, bool bStopAtEdgeLoss,
                                     const TRelaxationVisitor& visit) {
    const CSimulation simulation(board);
    TChessboard copy = board;
    TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    if (parameters.bForcedInitialPass) {
        parameters.bForcedInitialPass = false;
        PutOnBoard(copy, parameters.ForcedInitialSet);
    }
    if (visit) {
        visit(copy, false);
    }
    TRelaxationCounts counts;
    while (counts.steps < MostSteps &&
           (!bStopAtEdgeLoss || HoldsKing(copy.m_heuristicFlags.Raw()))) {
        const std::int8_t result = Relax(copy, true, nullptr);
        if (result == NothingToRelax) {
            break;
        }
        ++counts.steps;
        counts.timeDependent += result == RelaxedByTime ? 1 : 0;
        if (visit) {
            visit(copy, result == RelaxedByTime);
        }
    }
    return counts;
}

std::string HeuristicPassName(int relaxations) {
    constexpr int Letters = 26;
    std::string name = "1";
    if (relaxations >= Letters) {
        name += static_cast<char>('a' + relaxations / Letters - 1);
    }
    if (relaxations > 0) {
        name += static_cast<char>('a' + relaxations % Letters);
    }
    return name;
}

std::string RelaxationText(TChessboard& board) {
    if (board.m_heuristicFlags.Raw() == 0) {
        return UserText(NoHeuristicsText);
    }
    std::string text;
    int passes = 0;
    const auto addPass = [&](const TChessboard& pass, bool bTimeDependent) {
        text += passes == 0 ? "" : "\n\n";
        text += UserText(PassHeadText) + HeuristicPassName(passes) + ": " + PassText(pass) +
                (bTimeDependent ? " *" : "");
        ++passes;
    };
    const TRelaxationCounts counts = SimulateRelaxation(board, false, addPass);
    if (counts.timeDependent > 0) {
        text += UserText(TimeDependentText);
    }
    return text;
}

}  // namespace tarnwick
