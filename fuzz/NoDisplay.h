#pragma once

#include "acquisition/core/Clock.h"
#include "acquisition/core/MeterDisplay.h"
#include "acquisition/meters/MeterState.h"

namespace lobegraph::fuzz {

/// A meter window that nobody looks at.
class NoDisplay final : public MeterDisplay {
 public:
  void ShowWindow() override {}
  void HideWindow() override {}

 protected:
  void Show(const MeterShown&) override {}
};

/// A clock that nobody winds.
class StoppedClock final : public Clock {
 public:
  std::int32_t timeGetTime() override { return 0; }
  void Sleep(int) override {}
  void SleepToNextTick() override {}
};

/// What holds for a meter whatever it was told.
inline bool InRange(const MeterState& state) {
  constexpr float kHighestDb = 60.1F, kHighestLevel = 1011.6F;
  const bool decibels = state.MeterDb >= 0 && state.MeterDb <= kHighestDb;
  return decibels && state.MeterLevel >= 0 && state.MeterLevel <= kHighestLevel;
}

}  // namespace lobegraph::fuzz
