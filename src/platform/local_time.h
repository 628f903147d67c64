#pragma once

// The wall clock as people read it, for the heads of log lines. Nothing is measured with it: that is
// clock.h.

#include <string>

namespace tarnwick {

/// Local date and time, "2024-03-09 17:05:00". Any thread. Throws std::bad_alloc only.
std::string LocalTimeText();

}  // namespace tarnwick
