// The nice value belongs to each thread by itself here; a new thread inherits its maker's. So that the
// steps of a thread and of the thread that made it do not add up, they count from the process.

#include "platform/thread_priority.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

/// From the process's own nice value, by TThreadPriority. A step of two is a processor's share of about
/// two thirds against the next.
constexpr std::array<int, 7> NiceSteps = {19, 4, 2, 0, -2, -4, -10};
constexpr int LeastNice = -20;
constexpr int MostNice = 19;

}  // namespace

bool SetPriorityOfThisThread(TThreadPriority priority) noexcept {
    const auto process = static_cast<id_t>(getpid());  // its first thread
    const auto thread = static_cast<id_t>(syscall(SYS_gettid));
    const int step = NiceSteps[static_cast<std::size_t>(priority)];
    const int nice = std::clamp(getpriority(PRIO_PROCESS, process) + step, LeastNice, MostNice);
    return setpriority(PRIO_PROCESS, thread, nice) == 0;
}

}  // namespace tarnwick
