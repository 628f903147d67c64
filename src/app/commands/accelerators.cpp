#include "app/commands/accelerators.h"

#include <algorithm>
#include <iterator>

#include "app/commands/command_table.h"

namespace tarnwick {
namespace {

constexpr TAccelerator Keys[] = {
    {"Ctrl+C", 610, TCommand::CopyProblem},
    {"Ctrl+Shift+C", 612, TCommand::CopyFen},
    {"Ctrl+V", 620, TCommand::Paste},
    {"Ctrl+F", 630, TCommand::FindProblem},
    {"Ctrl+G", 634, TCommand::SelectProblemNumber},
    {"Ctrl+Shift+G", 640, TCommand::SelectProblemFromList},
    {"Ctrl+N", 636, TCommand::NewProblem},
    {"Ctrl+P", 635, TCommand::None},
    {"Ctrl+O", 637, TCommand::OpenFile},
    {"Ctrl+S", 638, TCommand::SaveFile},
    {"F3", 653, TCommand::FindNext},
    {"Shift+F3", 673, TCommand::FindPrevious},
    {"F5", 655, TCommand::Solve},
    {"Shift+F5", 675, TCommand::FindAllSolutions},
    {"Ctrl+F5", 677, TCommand::ChooseHeuristicsAndSolve},
    {"Ctrl+Shift+F5", 679, TCommand::ChooseHeuristicsAndFindAll},
    {"Alt+F5", 680, TCommand::ShowWholeMainVariant},
    {"Ctrl+Home", 685, TCommand::FirstProblem},
    {"Ctrl+End", 686, TCommand::LastProblem},
    {"Ctrl+Shift+D", 695, TCommand::DiagnosePosition},
    {"Ctrl+Shift+Right", 145, TCommand::NextProblem},
    {"Ctrl+Shift+Left", 146, TCommand::PreviousProblem},
    {"Ctrl+I", 175, TCommand::InformationAboutPosition},
    {"Ctrl+M", 173, TCommand::ShowMaxMate},
    {"Ctrl+Shift+M", 174, TCommand::ShowPreviousMaxMate},
    {"Ctrl+W", 171, TCommand::SortIndications},
    {"Ctrl+L", 295, TCommand::ShiftLeft},
    {"Ctrl+R", 296, TCommand::ShiftRight},
    {"Ctrl+U", 297, TCommand::ShiftUp},
    {"Ctrl+D", 305, TCommand::ShiftDown},
    {"Ctrl+Z", 208, TCommand::UndoChange},
    {"Ctrl+Y", 209, TCommand::RedoChange},
    {"Ctrl+T", 161, TCommand::AddTag},
    {"Ctrl+Shift+T", 162, TCommand::RemoveTag},
    {"Ctrl+Shift+P", 182, TCommand::PreviousPositionOfType},
    {"Ctrl+Shift+N", 181, TCommand::NextPositionOfType},
    {"Ctrl+-", 167, TCommand::PreviouslyViewedProblem},
    {"Ctrl++", 168, TCommand::ReturnToViewedProblem},
};

}  // namespace

std::span<const TAccelerator> Accelerators() {
    return Keys;
}

TCommand CommandOfNumber(int nId) {
    const auto* const key = std::ranges::find(Keys, nId, &TAccelerator::nId);
    if (key != std::end(Keys)) {
        return key->command;
    }
    const auto command = static_cast<TCommand>(nId);
    return ProcessorOfCommand(command) || TextOfCommand(command) != nullptr ? command
                                                                            : TCommand::None;
}

}  // namespace tarnwick
