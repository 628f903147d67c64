#include "app/shell/position_controller.h"

#include "problems/problem_texts.h"

namespace tarnwick {

void CPositionController::AddCommands(CCommandDispatcher& dispatcher) {
    const auto add = [&](TCommand command, auto transform) {
        dispatcher.Add(command, [this, transform] { Transform(transform); });
    };
    add(TCommand::RotatePosition, [](TChessProblem& p) { return RotatePosition(p); });
    add(TCommand::SwapColours, [](TChessProblem& p) {
        TTransformNotes notes = SwapColours(p);
        notes.bHadCastlingRights = false;  // each side has what the other had
        return notes;
    });
    add(TCommand::ShiftLeft, [](TChessProblem& p) { return ShiftPosition(p, -1); });
    add(TCommand::ShiftRight, [](TChessProblem& p) { return ShiftPosition(p, 1); });
    add(TCommand::ShiftUp, [](TChessProblem& p) { return ShiftPosition(p, 8); });
    add(TCommand::ShiftDown, [](TChessProblem& p) { return ShiftPosition(p, -8); });
}

void CPositionController::Transform(
    const std::function<TTransformNotes(TChessProblem&)>& transform) {
    TTransformNotes notes;
    m_workbench.Edit([&](TChessProblem& problem) { notes = transform(problem); });
    TellTransformNotes(m_workbench, notes);
}

void TellTransformNotes(CWorkbench& workbench, const TTransformNotes& notes) {
    if (notes.bVariantHadCastling) {
        workbench.Dialog().Tell(UserText(CastlingNotRotatedText));
    } else if (notes.bHadCastlingRights) {
        workbench.SetStatus(UserText(CastlingChangedText));
    }
}

}  // namespace tarnwick
