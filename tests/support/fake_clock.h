#pragma once

// A clock that stands still until the test moves it. One at a time; the real clock comes back with
// the object's end.

#include <atomic>
#include <cstdint>

#include "platform/clock.h"

namespace tarnwick {

class CFakeClock {
  public:
    CFakeClock() {
        s_now = 0;
        SetClock([]() noexcept { return s_now.load(); });
    }
    CFakeClock(const CFakeClock&) = delete;
    CFakeClock& operator=(const CFakeClock&) = delete;
    ~CFakeClock() { SetClock(nullptr); }

    void Advance(std::int64_t milliseconds) { s_now += milliseconds; }

  private:
    static inline std::atomic<std::int64_t> s_now{0};
};

}  // namespace tarnwick
