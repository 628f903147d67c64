#pragma once
// How long a solve has been at work. Pauses and the time that a question waits for its answer do not
// count; they may overlap. Any thread.

#include <cstdint>
#include <mutex>

#include "platform/clock.h"

namespace tarnwick {

class CSolveClock {
  public:
    CSolveClock() : m_startMs(NowMs()) {}

    /// Stands still until as many calls of Release have come.
    void Hold() {
        const std::lock_guard guard(m_lock);
        if (m_holds++ == 0) {
            m_heldSinceMs = NowMs();
        }
    }
    void Release() {
        const std::lock_guard guard(m_lock);
        if (--m_holds == 0) {
            m_startMs += NowMs() - m_heldSinceMs;
        }
    }
    std::uint64_t ElapsedMs() const {
        const std::lock_guard guard(m_lock);
        return static_cast<std::uint64_t>((m_holds > 0 ? m_heldSinceMs : NowMs()) - m_startMs);
    }

  private:
    mutable std::mutex m_lock;
    std::int64_t m_startMs;
    std::int64_t m_heldSinceMs = 0;
    int m_holds = 0;
};

}  // namespace tarnwick
