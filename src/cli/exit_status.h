#pragma once
// What the program's exit status says, for scripts. When several hold for one run, the status with the
// higher rank is reported: an internal error, wrong usage, unreadable input, a stop, no mate.

namespace tarnwick {

enum class TExitStatus : int {
    Success = 0,     ///< Every problem got an answer, each with a mate.
    NoMate = 1,      ///< At least one problem was proved to have no mate.
    WrongUsage = 2,  ///< The words on the command line make no sense.
    Unreadable = 3,  ///< Some input could not be read, or a problem could not be taken.
    Stopped = 4,     ///< A limit or Ctrl-C ended the work early, or the last pass was not wanted.
    InternalError = 5,  ///< A fault of the program or of the machine: no memory, full disk.
};

/// The one of both that a run with both reports.
constexpr TExitStatus WorseOf(TExitStatus one, TExitStatus other) {
    constexpr int Ranks[] = {0, 1, 4, 3, 2, 5};  // by status
    return Ranks[static_cast<int>(one)] >= Ranks[static_cast<int>(other)] ? one : other;
}

}  // namespace tarnwick
