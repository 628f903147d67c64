#include "app/commands/command_states.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <string>

#include "app/commands/command_table.h"

namespace tarnwick {
namespace {

using enum TCommand;

/// The second of three problems in an editable file, nothing going on.
TWindowState QuietWindow() {
    TWindowState state;
    state.nProblems = 3;
    state.nCurrent = 2;
    return state;
}

void ExpectEnabled(const TWindowState& state, std::initializer_list<TCommand> commands) {
    for (const TCommand command : commands) {
        const TCommandState result = StateOfCommand(command, state);
        EXPECT_TRUE(result.bEnabled) << static_cast<int>(command) << ": " << result.pWhyNot->en;
    }
}

void ExpectGrey(const TWindowState& state, const std::string& why,
                std::initializer_list<TCommand> commands) {
    for (const TCommand command : commands) {
        const TCommandState result = StateOfCommand(command, state);
        ASSERT_FALSE(result.bEnabled) << static_cast<int>(command);
        EXPECT_EQ(result.pWhyNot->en, why) << static_cast<int>(command);
    }
}

TEST(CommandStates, SolvingLeavesBrowsingAndTakesEditing) {
    TWindowState state = QuietWindow();
    ExpectEnabled(state, {Solve, FindAllSolutions, OpenFile, NextProblem, RotatePosition});
    ExpectGrey(state, "Nothing is being solved.", {StopSolving, PauseSolving, ResumeSolving});
    state.bSolving = true;
    ExpectGrey(state, "Solving is pending.",
               {Solve, FindAllSolutions, NewFile, OpenFile, AppendProblems, NewProblem,
                RotatePosition, ShiftUp, AddTag, CheckFenCodes, UndoChange});
    ExpectEnabled(
        state, {NextProblem, SelectProblemFromList, StopSolving, PauseSolving, CopyProblem, CopyFen,
                RotateView, ResizeProgressPanel, Exit, About, Polish, PriorityLow, FirstProcessor});
    ExpectGrey(state, "Only one thread is running.", {PauseOneThread});
    state.nThreads = 2;
    ExpectEnabled(state, {PauseOneThread});
    state.bPaused = true;
    ExpectEnabled(state, {ResumeSolving, StopSolving});
    ExpectGrey(state, "Solving is paused.", {PauseSolving});
    state = QuietWindow();
    state.bAnalysing = true;
    ExpectGrey(state, "Analysis is pending.", {Solve, OpenFile});
}

TEST(CommandStates, SideToMoveDecidesWhoIsServed) {
    TWindowState state = QuietWindow();
    EXPECT_EQ(CommandForSideToMove(Solve, state), Solve);
    state.bBlackToMove = true;
    ExpectGrey(state, "Black is to move.", {Solve, FindAllSolutions});
    EXPECT_EQ(CommandForSideToMove(Solve, state), FindBestDefence);
    EXPECT_EQ(CommandForSideToMove(FindAllSolutions, state), FindAllSolutions);
}

TEST(CommandStates, WhatIsMissingIsNamed) {
    TWindowState state = QuietWindow();
    ExpectGrey(state, "There are no changes to save.", {SaveFile});
    ExpectEnabled(state, {SaveFileAs});
    state.bUnsavedChanges = true;
    ExpectEnabled(state, {SaveFile});
    state.bReadOnlyFile = true;
    ExpectGrey(state, "The file is read-only.", {SaveFile});

    ExpectGrey(state, "This is the starting position.", {MoveBack, SaveVariant, CommentLastMove});
    state.bCanStepBack = true;
    ExpectEnabled(state, {MoveBack, SaveVariant});
    ExpectGrey(state, "You can add comments only to moves that belong to a variant",
               {CommentLastMove, CommentListedMove});
    ExpectGrey(state, "The problem has no main variant.", {ShowMainVariant, AnimateMainVariant});
    state.bHasVariants = true;
    ExpectEnabled(state, {ShowVariant, RemoveVariant, CopyVariantsShort});
    state.bAnimating = true;
    ExpectEnabled(state, {StopAnimation, NextProblem});
    ExpectGrey(state, "A variant is being animated.", {AnimateVariant, RemoveVariant, Solve});
    ExpectGrey(state, "The type of a problem can only be read from a file.",
               {TypeSelfmate, TypeHelpmate});
}

TEST(CommandStates, EndsOfTheListStopTheSteps) {
    TWindowState state = QuietWindow();
    state.nCurrent = 1;
    ExpectGrey(state, "This is the first problem.", {PreviousProblem, FirstProblem});
    ExpectEnabled(state, {NextProblem, LastProblem});
    state.nCurrent = 3;
    ExpectGrey(state, "This is the last problem.", {NextProblem, LastProblem});
    state = TWindowState();
    ExpectGrey(state, "There are no problems in the file.",
               {NextProblem, PreviousProblem, Solve, CopyProblem, AddTag, DisplayPositionId});
    ExpectEnabled(state, {NewProblem, OpenFile, NewFile, Exit});
    state.bInitialising = true;
    ExpectGrey(state, "The program is still opening.", {NewProblem, OpenFile, SaveFile});
}

TEST(CommandStates, BatchTakesTheWholeFile) {
    TWindowState state = QuietWindow();
    state.bBatch = true;
    ExpectGrey(state, "A regression test is running.", {NextProblem, OpenFile, Solve, AddTag});
    ExpectEnabled(state, {StopSolving, CopyProblem});
}

TEST(CommandStates, SettingAPositionNeedsTheEngineToRestAndKeepsTheProblem) {
    TWindowState state = QuietWindow();
    ExpectGrey(state, "Available only in position setting mode.",
               {IncreaseStipulation, DecreaseStipulationBy10});
    state.bPositionSetting = state.bCanUndo = true;
    ExpectEnabled(state, {PositionSettingMode, IncreaseStipulation, UndoChange, Paste, CopyFen});
    ExpectGrey(state, "A position is being set.",
               {Solve, NextProblem, SaveFile, CopyProblem, ShiftUp, CopyBoardPicture, MoveBack});
    state = QuietWindow();
    state.bSolving = true;
    ExpectGrey(state, "Analysis pending - position cannot be modified",
               {PositionSettingMode, Paste, PasteAsMirror});
}

TEST(CommandStates, NothingChangesTheFileWhileItIsSaved) {
    TWindowState state = QuietWindow();
    state.bSaving = true;
    state.bUnsavedChanges = true;
    ExpectGrey(state, "The file is being saved.",
               {SaveFile, SaveFileAs, OpenFile, NewProblem, AddTag, Paste, ShiftUp});
    ExpectEnabled(state, {NextProblem, CopyProblem, Exit});
}

TEST(CommandStates, ChecksShowWhatHolds) {
    TWindowState state = QuietWindow();
    state.language = LanguageId::Ukrainian;
    state.allowedProcessors = {0, 2};
    state.bRotated = true;
    state.problemType = TProblemType::SelfMate;
    for (const TCommand checked : {Ukrainian, PriorityBelowNormal, RotateView, TypeSelfmate,
                                   CommandOfProcessor(2).value()}) {
        EXPECT_TRUE(StateOfCommand(checked, state).bChecked) << static_cast<int>(checked);
    }
    for (const TCommand other : {Polish, English, PriorityNormal, ResizeProgressPanel,
                                 TypeDirectMate, CommandOfProcessor(1).value(), Solve}) {
        EXPECT_FALSE(StateOfCommand(other, state).bChecked) << static_cast<int>(other);
    }
    EXPECT_FALSE(StateOfCommand(SkipToNextMove, state).bVisible);
    state.bManualEngineControl = true;
    EXPECT_TRUE(StateOfCommand(SkipToNextMove, state).bVisible);
}

TEST(CommandStates, LawsOfAnyState) {
    std::mt19937 random(20240310);
    for (int i = 0; i < 2000; ++i) {
        TWindowState state;
        for (bool* pFlag :
             {&state.bInitialising, &state.bSolving, &state.bPaused, &state.bBatch,
              &state.bPositionSetting, &state.bAnimating, &state.bCanUndo, &state.bUnsavedChanges,
              &state.bHasVariants, &state.bBlackToMove, &state.bCanStepBack}) {
            *pFlag = random() % 3 == 0;
        }
        state.nProblems = static_cast<int>(random() % 3);
        state.nCurrent = std::min(1, state.nProblems);
        const auto enabled = [&](TCommand command) {
            return StateOfCommand(command, state).bEnabled;
        };
        for (const TCommand command : AllCommands()) {
            const TCommandState result = StateOfCommand(command, state);
            ASSERT_EQ(result.bEnabled, result.pWhyNot == nullptr);
            ASSERT_TRUE(IsBuilt(command) || !result.bEnabled);
        }
        ASSERT_FALSE(enabled(PauseSolving) && enabled(ResumeSolving));
        ASSERT_FALSE(enabled(Solve) && enabled(StopSolving));
        ASSERT_FALSE(state.bPositionSetting && (enabled(NextProblem) || enabled(SaveFile)));
        ASSERT_TRUE(enabled(Exit) && enabled(About) && enabled(Polish));
    }
}

}  // namespace
}  // namespace tarnwick
