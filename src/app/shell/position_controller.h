#pragma once
// CPositionController: what is done to a whole position at once, rotation, swap and shifts, and the notes
// about castling that go with it.

#include <QObject>
#include <functional>

#include "app/shell/command_dispatcher.h"
#include "app/shell/workbench.h"
#include "problems/problem_transforms.h"

namespace tarnwick {

class CPositionController : public QObject {
    Q_OBJECT

  public:
    explicit CPositionController(CWorkbench& workbench) : m_workbench(workbench) {}
    void AddCommands(CCommandDispatcher& dispatcher);

  private:
    void Transform(const std::function<TTransformNotes(TChessProblem&)>& transform);

    CWorkbench& m_workbench;
};

/// Tells what a rotation or a mirroring did to castlings.
void TellTransformNotes(CWorkbench& workbench, const TTransformNotes& notes);

}  // namespace tarnwick
