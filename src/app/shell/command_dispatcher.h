#pragma once
// CCommandDispatcher: the one place where a command becomes an action, whether it came from a menu, a
// key, a button or a screen reader.
//
// The controllers register their actions by command. What the menu greys no key does: the reason is
// shown in the status line instead. An action that throws ChessException has its text shown.

#include <functional>
#include <unordered_map>

#include "app/shell/workbench.h"

namespace tarnwick {

class CCommandDispatcher {
  public:
    explicit CCommandDispatcher(CWorkbench& workbench) : m_workbench(workbench) {}

    using TAction = std::function<void()>;
    void Add(TCommand command, TAction action);
    /// A further action of a command that has one.
    void AddToo(TCommand command, TAction action);
    bool Has(TCommand command) const { return m_actions.contains(command); }
    /// Called before each command: what is being typed belongs to the problem that it was typed for.
    void CallFirst(TAction action) { m_first = std::move(action); }

    /// Runs the command, if it can be had now. Solving is looking for a defence while Black is to move.
    void Run(TCommand command);

  private:
    CWorkbench& m_workbench;
    std::unordered_map<TCommand, TAction> m_actions;
    TAction m_first;
};

}  // namespace tarnwick
