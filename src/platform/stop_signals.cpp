#include "platform/stop_signals.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>

namespace tarnwick {
namespace {

constexpr int StatusInterrupted = 130;  // 128 + SIGINT, as shells report it

std::atomic<bool> g_bStopRequested{false};
// A handler may touch nothing that takes a lock.
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void OnStopSignal(int /*signal*/) {
    if (g_bStopRequested.exchange(true, std::memory_order_relaxed)) {
        ::_exit(StatusInterrupted);
    }
}

}  // namespace

void InstallStopSignals() {
    struct sigaction action {};
    action.sa_handler = OnStopSignal;
    // Output that is being written when the signal comes goes on.
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);

    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGXFSZ, &ignore, nullptr);
}

bool StopRequested() noexcept {
    return g_bStopRequested.load(std::memory_order_relaxed);
}

}  // namespace tarnwick
