#include "app/shell/command_dispatcher.h"

#include <new>

#include "base/chess_exception.h"

#include "app/shell/window_texts.h"

namespace tarnwick {

void CCommandDispatcher::Add(TCommand command, TAction action) {
    m_actions.insert_or_assign(command, std::move(action));
}

void CCommandDispatcher::AddToo(TCommand command, TAction action) {
    Add(command, [first = m_actions.at(command), second = std::move(action)] {
        first();
        second();
    });
}

void CCommandDispatcher::Run(TCommand wanted) {
    if (m_first) {
        m_first();
    }
    const TWindowState state = m_workbench.State();
    const TCommand command = CommandForSideToMove(wanted, state);
    const TCommandState commandState = StateOfCommand(command, state);
    if (!commandState.bEnabled) {
        m_workbench.SetStatus(UserText(*commandState.pWhyNot));
        return;
    }
    const auto action = m_actions.find(command);
    if (action == m_actions.end()) {
        return;
    }
    try {
        action->second();
    } catch (const ChessException& error) {
        m_workbench.Dialog().Tell(error.what());
    } catch (const std::bad_alloc&) {
        m_workbench.Dialog().Tell(UserText(OutOfMemoryText));
    } catch (const std::exception& error) {
        // The system says no: a folder without rights, no thread left.
        m_workbench.Dialog().Tell(error.what());
    }
    m_workbench.StateChanged();
}

}  // namespace tarnwick
