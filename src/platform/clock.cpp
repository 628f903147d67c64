#include "platform/clock.h"

#include <atomic>
#include <chrono>

namespace tarnwick {
namespace {

std::int64_t RealClock() noexcept {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
}

std::atomic<TClockFunction> g_clock{RealClock};

}  // namespace

std::int64_t NowMs() noexcept {
    return g_clock.load(std::memory_order_relaxed)();
}

void SetClock(TClockFunction clock) noexcept {
    g_clock.store(clock != nullptr ? clock : RealClock, std::memory_order_relaxed);
}

}  // namespace tarnwick
