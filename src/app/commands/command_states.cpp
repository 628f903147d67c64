// Each command has a set of conditions, and each condition a text for the user whom it stops. A command is
// grey with the text of the first condition that does not hold, so the conditions stand in the order in
// which they matter: what is going on before what is missing.

#include "app/commands/command_states.h"

#include <algorithm>
#include <iterator>

#include "app/commands/command_table.h"
#include "app/commands/commands_texts.h"
#include "app/document/play_texts.h"
#include "app/setup/setup_texts.h"
#include "app/tables/table_tasks_texts.h"

namespace tarnwick {
namespace {

using enum TCommand;

enum TCondition : std::uint32_t {
    Always = 0,
    Ready = 1U << 0,  // the file is there
    EngineFree = 1U << 1,
    NoBatch = 1U << 2,
    NotSetting = 1U << 3,
    SettingPosition = 1U << 4,
    NotAnimating = 1U << 5,
    Solving = 1U << 6,
    Running = 1U << 7,  // not paused
    Paused = 1U << 8,
    SeveralThreads = 1U << 9,
    AnyProblem = 1U << 10,
    HasNext = 1U << 11,
    HasPrevious = 1U << 12,
    ViewedBefore = 1U << 13,
    ViewedAfter = 1U << 14,
    WhiteToMove = 1U << 15,
    BlackToMove = 1U << 16,
    HasMainVariant = 1U << 17,
    HasVariants = 1U << 18,
    StepBack = 1U << 19,
    StepForward = 1U << 20,
    InVariant = 1U << 21,
    HasTags = 1U << 22,
    CanUndo = 1U << 23,
    CanRedo = 1U << 24,
    Unsaved = 1U << 25,
    Writable = 1U << 26,
    Animating = 1U << 27,
    TypeFromFile = 1U << 28,  // never holds: nobody may change the type
    PositionFree = 1U << 29,  // EngineFree for what changes the position itself
    NotSaving = 1U << 30,     // the file
    TablesFree = 1U << 31
};

struct TConditionRow {
    TCondition condition;
    bool (*holds)(const TWindowState&);
    const TUserText& whyNot;
};

const TConditionRow Conditions[] = {
    {Ready, [](const TWindowState& s) { return !s.bInitialising; }, InitialisationText},
    {NotSaving, [](const TWindowState& s) { return !s.bSaving; }, FileIsSavedText},
    {EngineFree, [](const TWindowState& s) { return !s.bSolving; }, SolvingIsPendingText},
    {EngineFree, [](const TWindowState& s) { return !s.bAnalysing; }, AnalysisIsPendingText},
    {PositionFree, [](const TWindowState& s) { return !s.bSolving && !s.bAnalysing; },
     CannotModifyText},
    {NoBatch, [](const TWindowState& s) { return !s.bBatch; }, BatchIsPendingText},
    {TablesFree, [](const TWindowState& s) { return !s.bTableRun; }, TableRunPendingText},
    {NotSetting, [](const TWindowState& s) { return !s.bPositionSetting; }, PositionIsSetText},
    {SettingPosition, [](const TWindowState& s) { return s.bPositionSetting; },
     OnlyWhenSettingText},
    {NotAnimating, [](const TWindowState& s) { return !s.bAnimating; }, AnimationText},
    {Solving,
     [](const TWindowState& s) { return s.bSolving || s.bAnalysing || s.bBatch || s.bTableRun; },
     NothingIsSolvedText},
    {Running, [](const TWindowState& s) { return !s.bPaused; }, IsPausedText},
    {Paused, [](const TWindowState& s) { return s.bPaused; }, IsNotPausedText},
    {SeveralThreads, [](const TWindowState& s) { return s.nThreads > 1; }, OneThreadText},
    {AnyProblem, [](const TWindowState& s) { return s.nCurrent > 0; }, NoProblemText},
    {HasNext, [](const TWindowState& s) { return s.nCurrent < s.nProblems; }, LastProblemText},
    {HasPrevious, [](const TWindowState& s) { return s.nCurrent > 1; }, FirstProblemText},
    {ViewedBefore, [](const TWindowState& s) { return s.bHasViewedBefore; },
     NothingViewedBeforeText},
    {ViewedAfter, [](const TWindowState& s) { return s.bHasViewedAfter; }, NoReturnText},
    {WhiteToMove, [](const TWindowState& s) { return !s.bBlackToMove; }, BlackIsToMoveText},
    {BlackToMove, [](const TWindowState& s) { return s.bBlackToMove; }, WhiteIsToMoveText},
    {HasMainVariant, [](const TWindowState& s) { return s.bHasMainVariant; }, NoMainVariantText},
    {HasVariants, [](const TWindowState& s) { return s.bHasVariants; }, NoVariantsText},
    {StepBack, [](const TWindowState& s) { return s.bCanStepBack; }, StartOfLineText},
    {StepForward, [](const TWindowState& s) { return s.bCanStepForward; }, EndOfLineText},
    {InVariant, [](const TWindowState& s) { return s.bLastMoveInVariant; },
     CommentNeedsVariantText},
    {HasTags, [](const TWindowState& s) { return s.bHasTags; }, NoTagsText},
    {CanUndo, [](const TWindowState& s) { return s.bCanUndo; }, NothingToUndoText},
    {CanRedo, [](const TWindowState& s) { return s.bCanRedo; }, NothingToRedoText},
    {Unsaved, [](const TWindowState& s) { return s.bUnsavedChanges; }, NoChangesText},
    {Writable, [](const TWindowState& s) { return !s.bReadOnlyFile; }, ReadOnlyFileText},
    {Animating, [](const TWindowState& s) { return s.bAnimating; }, NoAnimationText},
    {TypeFromFile, [](const TWindowState&) { return false; }, TypeOnlyFromFileText}};

// What many commands need. A solve works on a copy, so the user may look at other problems meanwhile.
constexpr std::uint32_t ChangeFile = Ready | NotSaving | EngineFree | NoBatch | NotSetting;
constexpr std::uint32_t Browse = Ready | NoBatch | NotSetting;
constexpr std::uint32_t Edit = ChangeFile | NotAnimating | AnyProblem;
constexpr std::uint32_t Look = Ready | AnyProblem;
constexpr std::uint32_t Step = Look | NotSetting;
constexpr std::uint32_t StartEngine = ChangeFile | NotAnimating | AnyProblem | TablesFree;
constexpr std::uint32_t Find = Ready | EngineFree | NoBatch;
constexpr std::uint32_t Undo = Find | NotSaving | NotAnimating;
constexpr std::uint32_t SetMen = Ready | NotSaving | PositionFree | NoBatch;

/// Exit, help, priority, language, view and keys are always to be had.
struct TNeedsRow {
    TCommand command;
    std::uint32_t needs;
};

// clang-format off
constexpr TNeedsRow Needs[] = {
    {NewFile, ChangeFile}, {OpenDefaultFile, ChangeFile}, {OpenSampleFile, ChangeFile},
    {OpenFile, ChangeFile}, {SaveFile, Ready | NotSaving | NotSetting | Unsaved | Writable},
    {SaveFileAs, Ready | NotSaving | NotSetting}, {AppendProblems, ChangeFile | NotAnimating},
    {RemoveProblems, ChangeFile | NotAnimating}, {ExportPgn, Step},

    {CopyProblem, Step}, {CopyWithoutVariants, Step}, {CopyWithoutVariantsOrTags, Step},
    {CopyFen, Look}, {CopyFullFen, Look}, {CopyBoardPicture, Step}, {SaveBoardPicture, Step},
    {Paste, SetMen | NotAnimating}, {PasteAsMirror, SetMen | NotAnimating}, {RotatePosition, Edit},
    {SwapColours, Edit},
    {ShiftLeft, Edit}, {ShiftRight, Edit}, {ShiftUp, Edit}, {ShiftDown, Edit},
    {CopyMovesShort, Look}, {CopyMovesInFull, Look}, {CopyVariantsShort, Look | HasVariants},
    {CopyVariantsInFull, Look | HasVariants}, {PositionSettingMode, SetMen | NotAnimating},
    {IncreaseStipulation, SetMen | SettingPosition},
    {DecreaseStipulation, SetMen | SettingPosition},
    {IncreaseStipulationBy10, SetMen | SettingPosition},
    {DecreaseStipulationBy10, SetMen | SettingPosition},
    {UndoChange, Undo | CanUndo}, {RedoChange, Undo | CanRedo},

    {TypeSelfmate, TypeFromFile}, {TypeHelpmate, TypeFromFile},
    {Solve, StartEngine | WhiteToMove}, {FindAllSolutions, StartEngine | WhiteToMove},
    {FindBestDefence, StartEngine | BlackToMove},
    {FindBestDefenceThoroughly, StartEngine | BlackToMove}, {ShowWholeMainVariant, StartEngine},
    {StopSolving, Solving}, {PauseSolving, Solving | Running},
    {PauseOneThread, Solving | SeveralThreads}, {ResumeSolving, Solving | Paused},
    {MoveBack, Step | StepBack}, {RedoMove, Step | StepForward},
    {CommentLastMove, Edit | StepBack | InVariant},
    {NextProblem, Browse | AnyProblem | HasNext},
    {PreviousProblem, Browse | AnyProblem | HasPrevious}, {NewProblem, ChangeFile},
    {FirstProblem, Browse | AnyProblem | HasPrevious},
    {LastProblem, Browse | AnyProblem | HasNext},
    {PreviouslyViewedProblem, Browse | ViewedBefore}, {ReturnToViewedProblem, Browse | ViewedAfter},
    {AddTag, Edit}, {RemoveTag, Edit | HasTags}, {AppendTagsOfFile, ChangeFile | AnyProblem},
    {FindProblem, Find}, {FindNext, Find}, {FindPrevious, Find},
    {FindSimilarPositions, Find | AnyProblem}, {SelectProblemNumber, Browse | AnyProblem},
    {SelectProblemFromList, Browse | AnyProblem},

    {SaveMainVariant, Edit | StepBack}, {SaveVariant, Edit | StepBack},
    {ShowMainVariant, Step | NotAnimating | HasMainVariant},
    {ShowVariant, Step | NotAnimating | HasVariants},
    {AnimateMainVariant, Step | NotAnimating | HasMainVariant},
    {AnimateVariant, Step | NotAnimating | HasVariants}, {StopAnimation, Animating},
    {RenameVariant, Edit | HasVariants}, {RemoveVariant, Edit | HasVariants},

    {ChooseHeuristicsAndSolve, StartEngine | WhiteToMove},
    {ChooseHeuristicsAndFindAll, StartEngine | WhiteToMove}, {SortIndications, Edit},
    {Options, EngineFree | NoBatch}, {SaveTemporaryRegister, Look | EngineFree},
    {SaveTemporaryRegisterAs, Look | EngineFree}, {ReadTemporaryRegister, Look | EngineFree},
    {ReadTemporaryRegisterFrom, Look | EngineFree}, {ClearTemporaryRegister, Look | EngineFree},
    {DisplayPositionId, Look}, {RegressionTest, ChangeFile | NotAnimating | AnyProblem},
    {QuickRegressionTest, ChangeFile | NotAnimating | AnyProblem}, {GlobalRegisterStatus, Ready},
    {VerifyAllTables, StartEngine}, {ResumeVerification, StartEngine}, {ShowMaxMate, StartEngine},
    {ShowPreviousMaxMate, StartEngine}, {InformationAboutPosition, Look | NotSetting | TablesFree},
    {PastePositionByIndex, StartEngine}, {PreviousPositionOfType, StartEngine},
    {NextPositionOfType, StartEngine}, {VerifyTable, StartEngine},
    {VerifyPartialTable, StartEngine}, {GenerateTable, StartEngine}, {CheckFenCodes, ChangeFile},

    {CopyPositionOfThread, Solving}, {CopyFenOfThread, Solving},
    {ShowPositionInNewInstance, Solving}, {SkipToNextMove, Solving}, {SwapWithNextMove, Solving},
    {MoveToEnd, Solving}, {CommentListedMove, Edit | InVariant}, {EditDescription, Edit},
    {DiagnosePosition, Look}};
// clang-format on

const TUserText* WhyNot(TCommand command, const TWindowState& state) {
    if (!IsBuilt(command)) {
        return &NotBuiltText;
    }
    const auto* const row = std::ranges::find(Needs, command, &TNeedsRow::command);
    if (row == std::end(Needs)) {
        return nullptr;
    }
    for (const TConditionRow& condition : Conditions) {
        if ((row->needs & condition.condition) != 0 && !condition.holds(state)) {
            return &condition.whyNot;
        }
    }
    return nullptr;
}

bool IsChecked(TCommand command, const TWindowState& state) {
    if (const std::optional<int> processor = ProcessorOfCommand(command)) {
        return std::ranges::count(state.allowedProcessors, *processor) > 0;
    }
    switch (command) {
        case TypeDirectMate:
            return state.nCurrent > 0 && state.problemType == TProblemType::DirectMate;
        case TypeSelfmate:
            return state.nCurrent > 0 && state.problemType == TProblemType::SelfMate;
        case PositionSettingMode:
            return state.bPositionSetting;
        case RotateView:
            return state.bRotated;
        case ResizeProgressPanel:
            return state.bLargePanel;
        case DarkColours:
            return state.bDarkColours;
        case PriorityHigh:
        case PriorityAboveNormal:
        case PriorityNormal:
        case PriorityBelowNormal:
        case PriorityLow:
            return PriorityClassOf(command) == state.priority;
        case Polish:
            return state.language == LanguageId::Polish;
        case English:
            return state.language == LanguageId::English;
        case Ukrainian:
            return state.language == LanguageId::Ukrainian;
        default:
            return false;
    }
}

}  // namespace

TCommandState StateOfCommand(TCommand command, const TWindowState& state) {
    const TUserText* const pWhyNot = WhyNot(command, state);
    const bool bManualControl =
        command == SkipToNextMove || command == SwapWithNextMove || command == MoveToEnd;
    return {.bEnabled = pWhyNot == nullptr,
            .bChecked = IsChecked(command, state),
            .bVisible = !bManualControl || state.bManualEngineControl,
            .pWhyNot = pWhyNot};
}

TCommand CommandForSideToMove(TCommand command, const TWindowState& state) {
    return command == Solve && state.bBlackToMove ? FindBestDefence : command;
}

TPriorityClass PriorityClassOf(TCommand command) {
    switch (command) {
        case PriorityHigh:
            return TPriorityClass::High;
        case PriorityAboveNormal:
            return TPriorityClass::AboveNormal;
        case PriorityBelowNormal:
            return TPriorityClass::BelowNormal;
        case PriorityLow:
            return TPriorityClass::Low;
        default:
            return TPriorityClass::Normal;
    }
}

}  // namespace tarnwick
