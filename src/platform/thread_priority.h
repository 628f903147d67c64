#pragma once

// Which of a program's threads go first when the processors are short.
//
// A thread may always step back. Only a privileged process may come forward again, or one whose user the
// administrator has granted it (the limit RLIMIT_NICE).

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

/// Gives the calling thread a name of at most 15 bytes, which the threads that it makes later inherit.
void NameThisThread(const char* name) noexcept;

/// Moves all threads of that name in this process from one priority to another. Differences between
/// them stay. False where the system did not allow it for all of them.
bool ChangePriorityOfThreads(const char* name, TThreadPriority from, TThreadPriority to) noexcept;

/// Whether a new thread of this process would get that priority.
bool IsPriorityAllowed(TThreadPriority priority);

/// For the calling thread. False, and nothing changed, where the system does not allow it.
bool SetPriorityOfThisThread(TThreadPriority priority) noexcept;

}  // namespace tarnwick
