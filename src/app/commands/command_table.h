#pragma once

// All commands with their texts, and the menus in which they stand.
//
// The shell builds its menus by walking these tables, and again after a change of language. Whether an item
// is grey, checked or shown at all is told by command_states.h. Any thread; nothing here ever changes.

#include <optional>
#include <span>

#include "base/language.h"

#include "app/commands/command.h"

namespace tarnwick {

struct TMenu;

/// A command, a sub-menu, or (with neither) a separating line.
struct TMenuItem {
    TCommand command = TCommand::None;
    const TMenu* pSubMenu = nullptr;
};

struct TMenu {
    const TUserText* pTitle = nullptr;  ///< Null for a context menu.
    std::span<const TMenuItem> items;
};

/// The nine menus of the menu bar, in their order.
std::span<const TMenu> MenuBar();

/// The sub-menu whose items are made at run time, one for each processor of the process: see
/// CommandOfProcessor and ProcessorText.
const TMenu& AffinityMenu();

enum class TContextMenu : int {
    TrayIcon,
    MainVariantButton,
    PositionOfThread,  ///< In the list of threads.
    ListedMove,        ///< In the list of moves.
    Link               ///< In the description.
};
const TMenu& ContextMenu(TContextMenu menu);

/// All commands that have a text, each once, in no order that matters.
std::span<const TCommand> AllCommands();

/// Null for None, for processors and for a number that is no command.
const TUserText* TextOfCommand(TCommand command);

/// False for what this version of the program does not do yet: the item is grey, and NotBuiltText says so.
bool IsBuilt(TCommand command);

/// The processor, from 0, whose item this is.
std::optional<int> ProcessorOfCommand(TCommand command);

/// Nothing beyond the 64 processors that have an item.
std::optional<TCommand> CommandOfProcessor(int nProcessor);

}  // namespace tarnwick
