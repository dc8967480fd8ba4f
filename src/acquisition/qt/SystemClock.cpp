#include "acquisition/qt/SystemClock.h"

#include <cerrno>
#include <ctime>

namespace lobegraph {
namespace {

constexpr std::int64_t kNsPerUs = 1'000;
constexpr std::int64_t kNsPerMs = 1'000'000;
constexpr std::int64_t kNsPerSecond = 1'000'000'000;

std::int64_t NowNs(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return now.tv_sec * kNsPerSecond + now.tv_nsec;
}

std::int64_t MonotonicNs() { return NowNs(CLOCK_MONOTONIC); }

}  // namespace

SystemClock::SystemClock() : startNs_(MonotonicNs()) {}

std::int64_t SystemClock::ElapsedNs() const { return MonotonicNs() - startNs_; }

std::int32_t SystemClock::timeGetTime() {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(ElapsedNs() / kNsPerMs));
}

/// The clock of the time since boot runs on in a suspend, the monotonic one does not.
std::int64_t SystemClock::SuspendedMs() { return (NowNs(CLOCK_BOOTTIME) - MonotonicNs()) / kNsPerMs; }

void SystemClock::Sleep(int milliseconds) { SleepUntil(ElapsedNs() + milliseconds * kNsPerMs); }

void SystemClock::SleepToNextTick() { SleepUntil((ElapsedNs() / kNsPerMs + 1) * kNsPerMs); }

void SystemClock::SleepMicroseconds(int microseconds) { SleepUntil(ElapsedNs() + microseconds * kNsPerUs); }

/// To an absolute time, so that a signal in between does not make the sleep longer.
void SystemClock::SleepUntil(std::int64_t elapsedNs) const {
  const std::int64_t untilNs = startNs_ + elapsedNs;
  const timespec until{untilNs / kNsPerSecond, untilNs % kNsPerSecond};
  while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) continue;
}

}  // namespace lobegraph
