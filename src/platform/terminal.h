#pragma once

// Whether somebody watches: what the command line must know of the terminal before it draws on it.

namespace tarnwick {

enum class TStandardStream : int {
    Input = 0,
    Output = 1,
    Error = 2
};

/// True while the stream belongs to a terminal, not to a file or a pipe. Any thread.
bool IsTerminal(TStandardStream stream) noexcept;

/// Width of the terminal of the stream in characters, at least 20; 80 where nobody knows. Asks anew at
/// each call, as users resize windows. Any thread.
int TerminalColumns(TStandardStream stream) noexcept;

}  // namespace tarnwick
