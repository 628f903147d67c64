#pragma once

// Which commands can be had now, which carry a check mark, and why one cannot be had.
//
// The window fills a TWindowState from what it knows, before it opens a menu and after each command, and
// asks here. The dispatcher asks too, so that a key never does what the menu greys.

#include <cstdint>
#include <vector>

#include "base/language.h"
#include "platform/thread_priority.h"

#include "app/commands/command.h"
#include "problems/chess_problem.h"

namespace tarnwick {

/// Plain facts about the window. A new record is a window with nothing in it.
struct TWindowState {
    bool bInitialising = false;     ///< The file is still being read.
    bool bSaving = false;           ///< Its problems are being written to the file.
    bool bSolving = false;          ///< A solve runs or is paused.
    bool bAnalysing = false;        ///< Black's best defence is looked for.
    bool bPaused = false;           ///< The solve waits, some of its threads may; or the table run.
    bool bBatch = false;            ///< A run through the whole file.
    bool bTableRun = false;         ///< A command on tables is at work behind the window.
    bool bPositionSetting = false;  ///< The board is being set up.
    bool bAnimating = false;        ///< A variant plays itself.
    int nThreads = 0;               ///< Of the solve that runs.

    int nProblems = 0;
    int nCurrent = 0;  ///< Place of the problem shown, from 1; 0 for none.
    TProblemType problemType = TProblemType::DirectMate;
    bool bCanUndo = false;
    bool bCanRedo = false;
    bool bUnsavedChanges = false;
    bool bReadOnlyFile = false;
    bool bHasViewedBefore = false;  ///< Ctrl-Minus has somewhere to go.
    bool bHasViewedAfter = false;   ///< Ctrl-Plus has.
    bool bHasTags = false;
    bool bHasVariants = false;  ///< The main variant counts.
    bool bHasMainVariant = false;

    bool bBlackToMove = false;     ///< In the position shown.
    bool bCanStepBack = false;     ///< A move was played before it.
    bool bCanStepForward = false;  ///< A move was played behind it.
    bool bLastMoveInVariant = false;

    bool bRotated = false;
    bool bLargePanel = false;
    bool bDarkColours = false;
    bool bManualEngineControl = false;  ///< The option.
    LanguageId language = LanguageId::English;
    TPriorityClass priority = TPriorityClass::BelowNormal;
    std::vector<int> allowedProcessors;  ///< Numbers, from 0.
};

struct TCommandState {
    bool bEnabled = true;
    bool bChecked = false;
    bool bVisible = true;
    const TUserText* pWhyNot = nullptr;  ///< For the tooltip of a grey item; null if enabled.
};

TCommandState StateOfCommand(TCommand command, const TWindowState& state);

/// What a key or a button does that serves both colours: solving is looking for Black's best defence while
/// Black is to move. Every other command stays.
TCommand CommandForSideToMove(TCommand command, const TWindowState& state);

/// The class that a command of the menu Priority sets; Normal for every other command.
TPriorityClass PriorityClassOf(TCommand command);

}  // namespace tarnwick
