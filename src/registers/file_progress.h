#pragma once

// How far the reading or writing of a long file is, told to whoever waits, and the wish to stop.

#include <cstdint>
#include <functional>

#include "platform/clock.h"

namespace tarnwick {

/// Called at the start and then a few times a second at most: bytes done, and of how many at most.
/// False stops the work.
using TFileProgress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

/// Calls a TFileProgress, which may be empty, not more often than it wants. One thread.
class CFileProgress {
  public:
    explicit CFileProgress(TFileProgress progress) : m_progress(std::move(progress)) {}

    /// For every record. False if the work shall stop, also in all later calls.
    bool Tick(std::uint64_t done, std::uint64_t total) {
        if (m_progress && m_ticks++ % TicksPerLook == 0) {
            const std::int64_t now = NowMs();
            if (m_ticks == 1 || now - m_lastCallMs >= CallEveryMs) {
                m_lastCallMs = now;
                m_bStopped = !m_progress(done, total) || m_bStopped;
            }
        }
        return !m_bStopped;
    }
    [[nodiscard]] bool IsStopped() const { return m_bStopped; }

  private:
    static constexpr unsigned TicksPerLook = 1024;  // about a millisecond
    static constexpr std::int64_t CallEveryMs = 100;

    TFileProgress m_progress;
    unsigned m_ticks = 0;
    std::int64_t m_lastCallMs = 0;
    bool m_bStopped = false;
};

}  // namespace tarnwick
