// The system keeps a mask for each thread and none for a process, so a change walks all threads. A thread
// that was made by one which had not been reached yet has the old mask: the walk is repeated until it meets
// nobody new.

#include "platform/processors.h"

#include <sched.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// As many as Linux can manage.
constexpr int MaxProcessors = 8192;

/// A mask for that many; the fixed type of the system ends at 1024.
struct TFreeMask {
    void operator()(cpu_set_t* pMask) const { CPU_FREE(pMask); }
};
using TMask = std::unique_ptr<cpu_set_t, TFreeMask>;

const std::size_t MaskBytes = CPU_ALLOC_SIZE(MaxProcessors);

TMask EmptyMask() {
    TMask mask(CPU_ALLOC(MaxProcessors));
    if (!mask) {
        throw std::bad_alloc();
    }
    CPU_ZERO_S(MaskBytes, mask.get());
    return mask;
}

std::set<pid_t> ThreadsOfThisProcess() {
    std::set<pid_t> threads;
    std::error_code error;
    fs::directory_iterator entry("/proc/self/task", error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        pid_t thread = 0;
        std::from_chars(name.data(), name.data() + name.size(), thread);
        threads.insert(thread);
    }
    return threads;
}

/// A thread that has ended counts as moved.
bool MoveThread(pid_t thread, const TMask& mask) {
    return ::sched_setaffinity(thread, MaskBytes, mask.get()) == 0 || errno == ESRCH;
}

}  // namespace

std::vector<int> AllowedProcessors() {
    const TMask mask = EmptyMask();
    std::vector<int> processors;
    if (::sched_getaffinity(::getpid(), MaskBytes, mask.get()) == 0) {
        for (int i = 0; i < MaxProcessors; ++i) {
            if (CPU_ISSET_S(static_cast<std::size_t>(i), MaskBytes, mask.get())) {
                processors.push_back(i);
            }
        }
    }
    return processors.empty() ? std::vector<int>{0} : processors;
}

bool SetAllowedProcessors(const std::vector<int>& processors) {
    const TMask mask = EmptyMask();
    for (const int processor : processors) {
        if (processor < 0 || processor >= MaxProcessors) {
            return false;
        }
        CPU_SET_S(static_cast<std::size_t>(processor), MaskBytes, mask.get());
    }
    // The first thread stands for the process: what it may do, the others may.
    if (!MoveThread(::getpid(), mask)) {
        return false;
    }
    std::set<pid_t> moved{::getpid()};
    for (bool bFoundNew = true; bFoundNew;) {
        bFoundNew = false;
        for (const pid_t thread : ThreadsOfThisProcess()) {
            if (moved.insert(thread).second) {
                bFoundNew = true;
                MoveThread(thread, mask);
            }
        }
    }
    return true;
}

}  // namespace tarnwick
