#pragma once

#include <cstdint>

namespace lobegraph {

/// Milliseconds that only go forward: a change of the date does not move a turn's schedule.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Milliseconds since an arbitrary start, in 32 bits with a sign: after 24.8 days it goes on at the most
  /// negative number. Differences hold across that, see MsBetween; moments to come are kept in a LongTime.
  virtual std::int32_t timeGetTime() = 0;
  /// Sleeps that many milliseconds without serving the window.
  virtual void Sleep(int milliseconds) = 0;
  /// Sleeps (never spins) until timeGetTime next changes.
  virtual void SleepToNextTick() = 0;
  /// Milliseconds for which the computer has been suspended since an arbitrary start; timeGetTime stood still
  /// meanwhile. 0 for a clock that does not know.
  virtual std::int64_t SuspendedMs() { return 0; }
};

/// Milliseconds from one time of the clock to a later one, at most 49 days after it.
inline std::uint32_t MsBetween(std::int32_t earlier, std::int32_t later) {
  return static_cast<std::uint32_t>(later) - static_cast<std::uint32_t>(earlier);
}

/// A clock's time in 64 bits, which no program outlives. Asked at least every 49 days.
class LongTime {
 public:
  explicit LongTime(Clock& clock) : clock_(clock), last_(clock.timeGetTime()) {}

  /// Milliseconds since this object was made.
  std::int64_t NowMs() {
    const std::int32_t now = clock_.timeGetTime();
    nowMs_ += MsBetween(last_, now);
    last_ = now;
    return nowMs_;
  }

 private:
  Clock& clock_;
  std::int32_t last_;
  std::int64_t nowMs_ = 0;
};

/// Serves what waits in the window's queue.
class EventPump {
 public:
  virtual ~EventPump() = default;
  /// All of it: the buttons, device notices, painting.
  virtual void ProcessPendingEvents() = 0;
  /// What the user sees and presses; the notices of devices stay in the queue, so that the level of a reading
  /// that is under way does not change. Nothing where there is no window.
  virtual void ServeWindow() {}
};

/// Serves the window once, then sleeps: how a wait gives devices and buttons their turn.
inline void Pause(EventPump& pump, Clock& clock, int milliseconds) {
  pump.ProcessPendingEvents();
  clock.Sleep(milliseconds);
}

}  // namespace lobegraph
