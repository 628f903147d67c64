#include "engine/jobs/heuristic_passes.h"

#include <algorithm>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/position_analysis.h"
#include "engine/heuristics/relaxation.h"
#include "engine/heuristics/sea_snake.h"
#include "engine/heuristics/tracked_men.h"

namespace tarnwick {
namespace {

void SetOneColourMode(TChessboard& root, std::uint8_t mode) {
    root.m_captureState =
        static_cast<std::uint8_t>((root.m_captureState & ~OneColourMask) | (mode & OneColourMask));
}

/// What a set needs beside its words: the men to follow, chosen by the user or found, the fields of a sea
/// snake that no list names, the key, and the marks of the root.
void PutInForce(const THeuristicSet& set, TThreadContext& thread, TChessboard& root) {
    thread.m_heuristics = set.parameters;
    SetOneColourMode(root, set.oneColourMode);
    if ((set.mask & SH_DONTLETFIGUREUNBLOCK) != 0) {
        if (!set.parameters.bUnblockFixedByUser && set.parameters.UnblockFieldCount == 0) {
            CollectTrackedMen(root, thread.m_heuristics);
        }
        StartFollowing(root, thread.m_heuristics);
    }
    if ((set.mask & SH_SEASNAKE) != 0) {
        CompleteSeaSnake(root, thread.m_heuristics);
    }
    SetHeuristics(root, set.mask);
    if (set.mask != 0) {
        MarkForHeuristics(root);
    }
}

THeuristicSet SetOf(const TThreadContext& thread, const TChessboard& root) {
    THeuristicSet set;
    set.mask = root.m_heuristicFlags.Raw();
    set.parameters = thread.m_heuristics;
    set.oneColourMode = root.m_captureState & OneColourMask;
    return set;
}

void Analyse(TSolveTask& task, TChessboard& root) {
    TAnalysisOptions options;
    options.bForcedMate = task.m_options.bForcedMatePasses;
    options.tell = [&task](const char* text) { task.Report(task.m_callbacks.onText, text); };
    AnalyzePosition(root, false, false, &options);
}

}  // namespace

void ChooseHeuristics(TSolveTask& task, TThreadContext& thread, TChessboard& root) {
    const TEngineOptions& options = task.m_options;
    if (options.heuristics == THeuristicsFrom::None) {
        return;
    }
    if (options.heuristics == THeuristicsFrom::User) {
        PutInForce(task.m_givenHeuristics, thread, root);
    } else if (root.m_shPlies >= (options.bAllSolutions ? LeastPliesForAnalysisOfAllKeys
                                                        : LeastPliesForAnalysis) ||
               options.bAnalyseAlways) {
        Analyse(task, root);
    }
    if (task.m_adjustHeuristics) {
        THeuristicSet set = SetOf(thread, root);
        task.m_adjustHeuristics(set);
        PutInForce(set, thread, root);
    }
    thread.m_heuristics.bLetRelaxHeuristics = options.bLetRelaxHeuristics;
    thread.m_heuristics.bRunPassWithoutHeuristics = options.bRunPassWithoutHeuristics;
    thread.m_heuristics.bHeuristicsFallback |= options.bHeuristicsFallback;
}

THeuristicRung RungOf(const TThreadContext& thread, const TChessboard& root) {
    THeuristicRung rung;
    rung.mask = root.m_heuristicFlags.Raw();
    rung.key = root.m_heuristicKey;
    rung.oneColourMode = root.m_captureState & OneColourMask;
    std::copy(std::begin(root.m_trackedFields), std::end(root.m_trackedFields),
              rung.trackedFields.begin());
    rung.parameters = thread.m_heuristics;
    return rung;
}

void TakeRung(const THeuristicRung& rung, TThreadContext& thread, TChessboard& root) {
    root.m_heuristicFlags.SetRaw(rung.mask);
    root.m_heuristicKey = rung.key;
    SetOneColourMode(root, rung.oneColourMode);
    std::copy(rung.trackedFields.begin(), rung.trackedFields.end(),
              std::begin(root.m_trackedFields));
    thread.m_heuristics = rung.parameters;
}

std::vector<THeuristicRung> HeuristicLadder(TChessboard& root) {
    std::vector<THeuristicRung> ladder;
    if (root.m_heuristicFlags.Raw() == 0) {
        return ladder;
    }
    SimulateRelaxation(root, false, [&ladder](const TChessboard& board, bool bTimeDependent) {
        ladder.push_back(RungOf(Thread(board), board));
        ladder.back().bTimeDependent = bTimeDependent;
    });
    return ladder;
}

std::string HeuristicListOf(const TChessboard& board) {
    return HeuristicListText(board.m_heuristicFlags.Raw(), Thread(board).m_heuristics,
                             board.m_captureState & OneColourMask);
}

}  // namespace tarnwick
