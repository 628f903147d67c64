#pragma once

// Ctrl-C and the polite kill, for programs in a terminal.
//
// The first SIGINT or SIGTERM asks the running work to stop and say what it has; the work polls
// StopRequested. The second one ends the process at once with status 130, for a user whose patience
// is over. Files are safe meanwhile: see atomic_file.h.

namespace tarnwick {

/// Catches both signals from now on. Also lets a write beyond the user's file size limit fail with an
/// error that can be reported, instead of ending the process (SIGXFSZ). Call once, from main, before
/// threads start.
void InstallStopSignals();

/// True after the first signal. One relaxed load: cheap enough for a loop that counts nodes. Any thread.
bool StopRequested() noexcept;

}  // namespace tarnwick
