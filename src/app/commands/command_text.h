#pragma once

// The shape of the tables of menu texts.
//
// "&" stands before the letter that chooses the item in its open menu. Behind a tab stands the label of the
// key or click that does the same; what the key really is says accelerators.h. Dots at the end mean that
// the command asks something before it acts.

#include "base/language.h"

#include "app/commands/command.h"

namespace tarnwick {

struct TCommandText {
    TCommand command = TCommand::None;
    TUserText text;
};

}  // namespace tarnwick
