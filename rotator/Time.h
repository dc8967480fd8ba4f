#pragma once

#include <ctime>

namespace lobegraph {

inline double ClockS(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Seconds of the system's monotonic clock.
inline double MonotonicS() { return ClockS(CLOCK_MONOTONIC); }

/// The same, and it goes on while the computer sleeps.
inline double MonotonicAsleepS() { return ClockS(CLOCK_BOOTTIME); }

}  // namespace lobegraph
