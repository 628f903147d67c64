#pragma once

// The one source of time.
//
// Time limits, waits and "time to solve" ask here and nowhere else, so that a test can drive a
// scheduler without waiting. Any thread.

#include <cstdint>

namespace tarnwick {

/// Milliseconds since an arbitrary moment. Never goes back, whatever happens to the wall clock.
std::int64_t NowMs() noexcept;

/// Another source for NowMs, called from any thread; null brings the real clock back. For tests,
/// which set it before the threads that read it start.
using TClockFunction = std::int64_t (*)() noexcept;
void SetClock(TClockFunction clock) noexcept;

}  // namespace tarnwick
