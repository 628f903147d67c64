#pragma once
// What a solve session is told, and what it has to tell.
//
// The settings are the part of the program's options that concerns a solve, the wish is what the user asks
// for this time. What the problem itself says goes before the settings, and the wish before both.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "platform/thread_priority.h"

#include "chess/chessboard.h"
#include "engine/engine_options.h"
#include "engine/heuristics/heuristic_list.h"
#include "engine/jobs/result_texts.h"
#include "engine/jobs/start_solving.h"
#include "problems/chess_problem.h"
#include "tables/register/global_register_set.h"

namespace tarnwick {

struct TSolveSettings {
    bool bQuickMode = true;
    std::uint16_t threads = 1;              ///< At the root and in each further level, 1 to 64.
    std::uint8_t multithreadingLevels = 1;  ///< 1 to 64.
    std::uint8_t schedulerLevels = 0;       ///< 0 to 9.
    bool bCustomScheduler = false;
    bool bMainVariantHints = false;  ///< The main variant's moves are tried first.
    bool bAskAboutThreads = true;    ///< The engine may propose another number of threads.

    int memoryPercent = 20;  ///< Of the machine's memory, for positions.
    bool bCheckRegisterCoherency = true;
    std::shared_ptr<TGlobalRegisterSet> pTables;  ///< That the search may ask; null: none.

    bool bLogMoves = false;
    bool bRegisterInfoLog = false;
    bool bRelaxationLog = false;
    std::filesystem::path logFolder = ".";

    /// Below normal, so that the window stays alive while all processors solve.
    TThreadPriority priority = TThreadPriority::BelowNormal;
};

struct TSolveWish {
    bool bAllKeys = false;  ///< Every key, also where the problem would stop at a dual.
    THeuristicsFrom heuristics = THeuristicsFrom::Analysis;
    THeuristicSet givenHeuristics;  ///< With THeuristicsFrom::User.
    bool bLetRelaxHeuristics = true;
    bool bRunPassWithoutHeuristics = true;
};

/// What a session tells while it works. Each may be empty. They are called on threads of the session,
/// must return soon, not throw, and not wait for the window's thread, which may just be waiting for the session:
/// the window posts itself a message and looks then. None is called once the session's end has begun.
struct TSolveEvents {
    std::function<void(TMove key)> onSolution;
    /// The engine would rather have so many threads and waits for CSolveSession::AnswerAdvice.
    std::function<void(int threads)> onThreadAdvice;
    /// A fault that the user has to know: title and text.
    std::function<void(const std::string& title, const std::string& text)> onError;
    /// The outcome can be taken.
    std::function<void()> onEnd;
};

/// What became of a solve, with all that is needed to show it.
struct TSolveOutcome {
    TSolveResult result;  ///< Its elapsedMs is without pauses and questions.
    TEngineOptions options;
    std::uint32_t problemNumber = 0;
    int moves = 0;               ///< Of the stipulation.
    TChessboard board{};         ///< The position that was solved; its pointers are null.
    TRunNotes notes;             ///< Passes that the user has switched off.
    bool bEndedByError = false;  ///< result.message tells of it.
};

/// The options of the job for a problem.
TEngineOptions JobOptions(const TChessProblem& problem, const TSolveSettings& settings,
                          const TSolveWish& wish);

}  // namespace tarnwick
