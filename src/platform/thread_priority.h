#pragma once

// Which of a program's threads go first when the processors are short.
//
// A thread may always step back, but only a privileged process may come forward again: priorities are
// meant to be set once, by the thread itself, when it begins.

#include <cstdint>

namespace tarnwick {

enum class TThreadPriority : std::uint8_t {
    Idle,
    Lowest,
    BelowNormal,
    Normal,  ///< That of the process.
    AboveNormal,
    Highest,
    TimeCritical
};

/// Time-critical goes down to highest, idle stays.
constexpr TThreadPriority OneStepLower(TThreadPriority priority) {
    return priority == TThreadPriority::Idle
               ? TThreadPriority::Idle
               : static_cast<TThreadPriority>(static_cast<std::uint8_t>(priority) - 1);
}

/// For the calling thread. False, and nothing changed, where the system does not allow it.
bool SetPriorityOfThisThread(TThreadPriority priority) noexcept;

}  // namespace tarnwick
