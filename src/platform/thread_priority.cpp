// The nice value belongs to each thread by itself here; a new thread inherits its maker's. So that the
// steps of a thread and of the thread that made it do not add up, they count from the process.

#include "platform/thread_priority.h"

#include <pthread.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace tarnwick {
namespace {

/// From the process's own nice value, by TThreadPriority. A step of two is a processor's share of about
/// two thirds against the next.
constexpr std::array<int, 7> NiceSteps = {19, 4, 2, 0, -2, -4, -10};
constexpr int LeastNice = -20;
constexpr int MostNice = 19;

int StepOf(TThreadPriority priority) {
    return NiceSteps[static_cast<std::size_t>(priority)];
}

bool SetNice(id_t thread, int nice) {
    return setpriority(PRIO_PROCESS, thread, std::clamp(nice, LeastNice, MostNice)) == 0;
}

/// The threads of this process that have the name now.
std::vector<id_t> ThreadsNamed(const std::string& name) {
    namespace fs = std::filesystem;
    std::vector<id_t> threads;
    std::error_code error;
    for (fs::directory_iterator entry("/proc/self/task", error), end; !error && entry != end;
         entry.increment(error)) {
        std::ifstream file(entry->path() / "comm");
        std::string line;
        if (std::getline(file, line) && line == name) {
            threads.push_back(
                static_cast<id_t>(std::strtoul(entry->path().filename().c_str(), nullptr, 10)));
        }
    }
    return threads;
}

}  // namespace

bool SetPriorityOfThisThread(TThreadPriority priority) noexcept {
    const auto process = static_cast<id_t>(getpid());  // its first thread
    const auto thread = static_cast<id_t>(syscall(SYS_gettid));
    return SetNice(thread, getpriority(PRIO_PROCESS, process) + StepOf(priority));
}

void NameThisThread(const char* name) noexcept {
    pthread_setname_np(pthread_self(), name);
}

bool ChangePriorityOfThreads(const char* name, TThreadPriority from, TThreadPriority to) noexcept {
    try {
        bool bAll = true;
        for (const id_t thread : ThreadsNamed(name)) {
            const int nice = getpriority(PRIO_PROCESS, thread) + StepOf(to) - StepOf(from);
            bAll &= SetNice(thread, nice) || errno == ESRCH;  // it may just have ended
        }
        return bAll;
    } catch (const std::exception&) {
        return false;
    }
}

bool IsPriorityAllowed(TThreadPriority priority) {
    bool bAllowed = false;
    std::thread([&] { bAllowed = SetPriorityOfThisThread(priority); }).join();
    return bAllowed;
}

}  // namespace tarnwick
