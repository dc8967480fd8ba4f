#pragma once

#include "acquisition/core/Clock.h"

namespace lobegraph {

/// The system's monotonic clock, which stands still while the computer is suspended. Starts at 0 when it is
/// made.
class SystemClock final : public Clock {
 public:
  SystemClock();
  std::int32_t timeGetTime() override;
  void Sleep(int milliseconds) override;
  void SleepToNextTick() override;
  std::int64_t SuspendedMs() override;
  void SleepMicroseconds(int microseconds);

 private:
  std::int64_t ElapsedNs() const;
  void SleepUntil(std::int64_t elapsedNs) const;

  std::int64_t startNs_;
};

}  // namespace lobegraph
