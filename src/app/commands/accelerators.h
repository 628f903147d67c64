#pragma once

// The keys that run commands while no edit box and no list of the window is open.
//
// A key has a number of its own, which menus do not use, and acts as a command. Some keys are the command:
// then both numbers are one.

#include <span>

#include "app/commands/command.h"

namespace tarnwick {

struct TAccelerator {
    /// "Ctrl+Shift+C": the modifiers, then a letter, F1 to F12, Home, End, Left, Right, "-" or "+".
    const char* keys = "";
    int nId = 0;
    /// None: the key is taken so that it does nothing else.
    TCommand command = TCommand::None;
};

std::span<const TAccelerator> Accelerators();

/// The command of a key's number; a number that no key has is the command's own. None for an unknown one.
TCommand CommandOfNumber(int nId);

}  // namespace tarnwick
