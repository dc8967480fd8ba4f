#pragma once

#include <cstdint>

namespace lobegraph {

/// Milliseconds that only go forward: a change of the date does not move a turn's schedule.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Milliseconds since an arbitrary start, 32 bits signed.
  virtual std::int32_t timeGetTime() = 0;
  /// Sleeps that many milliseconds without serving the window.
  virtual void Sleep(int milliseconds) = 0;
  /// Sleeps (never spins) until timeGetTime next changes.
  virtual void SleepToNextTick() = 0;
};

/// Serves what waits in the window's queue: the halt button, device notices, painting.
class EventPump {
 public:
  virtual ~EventPump() = default;
  virtual void ProcessPendingEvents() = 0;
};

/// Serves the window once, then sleeps: how a wait gives devices and buttons their turn.
inline void Pause(EventPump& pump, Clock& clock, int milliseconds) {
  pump.ProcessPendingEvents();
  clock.Sleep(milliseconds);
}

}  // namespace lobegraph
