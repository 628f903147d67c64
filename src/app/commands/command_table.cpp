#include "app/commands/command_table.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "app/commands/all_names.h"
#include "app/commands/commands_texts.h"

namespace tarnwick {
namespace {

using enum TCommand;

// The lines are the groups.
// clang-format off

/// One place for what is still missing. Each line goes with the work that brings its commands.
constexpr TCommand NotBuiltYet[] = {
    // Black's best defence and the variants that it builds
    FindBestDefence, FindBestDefenceThoroughly, ShowWholeMainVariant,
    // Control of the engine by hand, the window of threads, the diagnosis of heuristics
    SkipToNextMove, SwapWithNextMove, MoveToEnd, Threads, DiagnosePosition,
    // Dialogs
    ChooseHeuristicsAndSolve, ChooseHeuristicsAndFindAll, Options, SortIndications,
    // The search through the file
    FindProblem, FindNext, FindPrevious, FindSimilarPositions,
    // Files of temporary registers
    SaveTemporaryRegister, SaveTemporaryRegisterAs, ReadTemporaryRegister,
    ReadTemporaryRegisterFrom, ClearTemporaryRegister,
    // Runs through a whole file
    RegressionTest, QuickRegressionTest};

constexpr TMenuItem Line{};
constexpr TMenuItem Item(TCommand command) {
    return {.command = command, .pSubMenu = nullptr};
}
constexpr TMenuItem SubMenu(const TMenu& menu) {
    return {.command = None, .pSubMenu = &menu};
}

constexpr TMenuItem FileItems[] = {
    Item(NewFile), Item(OpenDefaultFile), Item(OpenSampleFile), Item(OpenFile), Line,
    Item(SaveFile), Item(SaveFileAs), Item(ExportPgn), Line,
    Item(AppendProblems), Item(RemoveProblems), Line,
    Item(Exit)};

constexpr TMenuItem PositionItems[] = {
    Item(CopyProblem), Item(CopyWithoutVariants), Item(CopyWithoutVariantsOrTags), Item(CopyFen),
    Item(CopyFullFen), Item(CopyBoardPicture), Item(SaveBoardPicture), Item(Paste),
    Item(PasteAsMirror), Line,
    Item(RotatePosition), Item(SwapColours), Item(ShiftLeft), Item(ShiftRight), Item(ShiftUp),
    Item(ShiftDown), Line,
    Item(CopyMovesShort), Item(CopyMovesInFull), Item(CopyVariantsShort), Item(CopyVariantsInFull),
    Line,
    Item(PositionSettingMode), Item(IncreaseStipulation), Item(DecreaseStipulation),
    Item(IncreaseStipulationBy10), Item(DecreaseStipulationBy10), Line,
    Item(UndoChange), Item(RedoChange)};

constexpr TMenuItem TypeItems[] = {Item(TypeDirectMate), Item(TypeSelfmate), Item(TypeHelpmate)};
constexpr TMenu TypeMenu = {&ProblemTypeMenuText, TypeItems};

constexpr TMenuItem ProblemItems[] = {
    SubMenu(TypeMenu), Line,
    Item(Solve), Item(FindAllSolutions), Item(FindBestDefence), Item(FindBestDefenceThoroughly),
    Item(StopSolving), Item(ShowWholeMainVariant), Item(PauseSolving), Item(PauseOneThread),
    Item(ResumeSolving), Line,
    Item(MoveBack), Item(RedoMove), Item(CommentLastMove), Line,
    Item(NextProblem), Item(PreviousProblem), Item(NewProblem), Item(FirstProblem),
    Item(LastProblem), Item(PreviouslyViewedProblem), Item(ReturnToViewedProblem), Line,
    Item(AddTag), Item(RemoveTag), Item(AppendTagsOfFile), Line,
    Item(FindProblem), Item(FindNext), Item(FindPrevious), Item(FindSimilarPositions), Line,
    Item(SelectProblemNumber), Item(SelectProblemFromList)};

constexpr TMenuItem ViewItems[] = {
    Item(RotateView), Item(ResizeProgressPanel), Line,
    Item(DarkColours)};

constexpr TMenuItem VariantItems[] = {
    Item(SaveMainVariant), Item(SaveVariant), Line,
    Item(ShowMainVariant), Item(ShowVariant), Line,
    Item(AnimateMainVariant), Item(AnimateVariant), Item(StopAnimation), Line,
    Item(RemoveVariant)};

constexpr TMenuItem AdvancedItems[] = {
    Item(ChooseHeuristicsAndSolve), Item(ChooseHeuristicsAndFindAll), Item(SortIndications), Line,
    Item(Options), Line,
    Item(SaveTemporaryRegister), Item(SaveTemporaryRegisterAs), Item(ReadTemporaryRegister),
    Item(ReadTemporaryRegisterFrom), Item(ClearTemporaryRegister), Line,
    Item(DisplayPositionId), Line,
    Item(RegressionTest), Item(QuickRegressionTest), Line,
    Item(GlobalRegisterStatus), Item(VerifyAllTables), Item(ResumeVerification), Line,
    Item(ShowMaxMate), Item(ShowPreviousMaxMate), Item(InformationAboutPosition),
    Item(PastePositionByIndex), Item(PreviousPositionOfType), Item(NextPositionOfType), Line,
    Item(VerifyTable), Item(VerifyPartialTable), Item(GenerateTable), Line,
    Item(CheckFenCodes)};

constexpr TMenu Affinity = {&AffinityMenuText, {}};

constexpr TMenuItem PriorityItems[] = {
    Item(PriorityHigh), Item(PriorityAboveNormal), Item(PriorityNormal), Item(PriorityBelowNormal),
    Item(PriorityLow), Line,
    SubMenu(Affinity)};

constexpr TMenuItem HelpItems[] = {
    Item(OpenManual), Item(OpenReadme), Item(About), Line,
    Item(Threads)};
constexpr TMenuItem LanguageItems[] = {Item(Polish), Item(English), Item(Ukrainian)};

constexpr TMenu Bar[] = {
    {&FileMenuText, FileItems},
    {&PositionMenuText, PositionItems},
    {&ProblemMenuText, ProblemItems},
    {&ViewMenuText, ViewItems},
    {&VariantMenuText, VariantItems},
    {&AdvancedMenuText, AdvancedItems},
    {&PriorityMenuText, PriorityItems},
    {&HelpMenuText, HelpItems},
    {&LanguageMenuText, LanguageItems}};

constexpr TMenuItem TrayItems[] = {Item(ShowProgram), Item(CloseProgram)};
constexpr TMenuItem MainVariantItems[] = {
    Item(SaveMainVariant), Item(SaveVariant), Item(RenameVariant), Line,
    Item(ShowMainVariant), Item(ShowVariant), Line,
    Item(AnimateMainVariant), Item(AnimateVariant), Item(StopAnimation), Line,
    Item(RemoveVariant)};
constexpr TMenuItem ThreadItems[] = {
    Item(CopyPositionOfThread), Item(CopyFenOfThread), Item(ShowPositionInNewInstance), Line,
    Item(SkipToNextMove), Item(SwapWithNextMove), Item(MoveToEnd)};
constexpr TMenuItem MoveItems[] = {Item(CommentListedMove)};
constexpr TMenuItem LinkItems[] = {Item(OpenLink), Item(CopyLink), Item(EditDescription)};

/// By TContextMenu.
constexpr TMenu ContextMenus[] = {
    {nullptr, TrayItems}, {nullptr, MainVariantItems}, {nullptr, ThreadItems}, {nullptr, MoveItems},
    {nullptr, LinkItems}};

// clang-format on

constexpr auto CommandsWithText = [] {
    std::array<TCommand, CommandTexts.size()> commands{};
    std::ranges::transform(CommandTexts, commands.begin(),
                           [](const TCommandText* pText) { return pText->command; });
    return commands;
}();

}  // namespace

std::span<const TMenu> MenuBar() {
    return Bar;
}

const TMenu& AffinityMenu() {
    return Affinity;
}

const TMenu& ContextMenu(TContextMenu menu) {
    return ContextMenus[static_cast<std::size_t>(menu)];
}

std::span<const TCommand> AllCommands() {
    return CommandsWithText;
}

const TUserText* TextOfCommand(TCommand command) {
    const auto row = std::ranges::find(CommandTexts, command,
                                       [](const TCommandText* pText) { return pText->command; });
    return row != CommandTexts.end() ? &(*row)->text : nullptr;
}

bool IsBuilt(TCommand command) {
    return std::ranges::find(NotBuiltYet, command) == std::end(NotBuiltYet);
}

std::optional<int> ProcessorOfCommand(TCommand command) {
    if (command < FirstProcessor || command > LastProcessor) {
        return std::nullopt;
    }
    return static_cast<int>(command) - static_cast<int>(FirstProcessor);
}

std::optional<TCommand> CommandOfProcessor(int nProcessor) {
    constexpr int Most = static_cast<int>(LastProcessor) - static_cast<int>(FirstProcessor);
    if (nProcessor < 0 || nProcessor > Most) {
        return std::nullopt;
    }
    return static_cast<TCommand>(static_cast<int>(FirstProcessor) + nProcessor);
}

}  // namespace tarnwick
