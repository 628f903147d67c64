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

/// How much of the machine the user wants solving to take, for all solving threads at once. The window's
/// thread never steps back: it must answer also beside a solve on all processors.
enum class TPriorityClass : std::uint8_t {
    Low,
    BelowNormal,
    Normal,
    AboveNormal,
    High
};

/// The priority with which a solving thread begins.
constexpr TThreadPriority PriorityInClass(TPriorityClass priorityClass) {
    switch (priorityClass) {
        case TPriorityClass::Low:
            return TThreadPriority::Idle;
        case TPriorityClass::BelowNormal:
            return TThreadPriority::BelowNormal;
        case TPriorityClass::Normal:
            return TThreadPriority::Normal;
        case TPriorityClass::AboveNormal:
            return TThreadPriority::AboveNormal;
        case TPriorityClass::High:
            return TThreadPriority::Highest;
    }
    return TThreadPriority::Normal;
}

/// For the calling thread. False, and nothing changed, where the system does not allow it.
bool SetPriorityOfThisThread(TThreadPriority priority) noexcept;

}  // namespace tarnwick
