#pragma once

// Which process is this, and does another one still live: for files that belong to a process.

#include <string>

namespace tarnwick {

/// Names a process of this machine: its number, which the system uses again after its end, and the
/// moment of its start. Letters, digits and "-", as a part of a file name.
std::string NameOfThisProcess();

/// Whether the process of that name lives. False for a text that is no such name.
bool IsProcessAlive(const std::string& name);

}  // namespace tarnwick
