#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>

#include "acquisition/core/Clock.h"

namespace lobegraph {

/// A clock that moves only when told: by Advance, by a sleep, or by a fixed step after each read.
class FakeClock final : public Clock {
 public:
  std::int32_t NowMs = 1000;
  std::int64_t Suspended = 0;        ///< milliseconds
  std::int32_t MsPerRead = 0;        ///< added after each read
  std::int64_t SleptMs = 0;          ///< all that was slept
  int TicksSlept = 0;                ///< calls of SleepToNextTick
  std::function<void(int)> OnSleep;  ///< sees each Sleep after it has passed

  /// Beyond the largest number it goes on at the smallest.
  void Advance(std::int32_t milliseconds) {
    NowMs = static_cast<std::int32_t>(static_cast<std::uint32_t>(NowMs) +
                                      static_cast<std::uint32_t>(milliseconds));
    readsAtThisTime_ = 0;
  }

  /// A loop that waits for a time that never comes is a failing test, not a hanging one.
  std::int32_t timeGetTime() override {
    if (++readsAtThisTime_ > kMostReads) throw std::logic_error("time stands still");
    const std::int32_t now = NowMs;
    if (MsPerRead != 0) Advance(MsPerRead);
    return now;
  }

  void Sleep(int milliseconds) override {
    SleptMs += milliseconds;
    Advance(milliseconds);
    if (OnSleep) OnSleep(milliseconds);
  }

  void SleepToNextTick() override {
    ++TicksSlept;
    Advance(1);
  }

  std::int64_t SuspendedMs() override { return Suspended; }

 private:
  static constexpr int kMostReads = 1'000'000;
  int readsAtThisTime_ = 0;
};

/// Counts the yields; a test acts inside them.
class FakePump final : public EventPump {
 public:
  int Yields = 0;
  int Served = 0;                    ///< times that the window alone was served
  std::function<void(int)> OnYield;  ///< number of the yield, from 1
  std::function<void(int)> OnServe;

  void ProcessPendingEvents() override {
    if (++Yields > kMostYields) throw std::logic_error("a loop yields for ever");
    if (OnYield) OnYield(Yields);
  }
  void ServeWindow() override {
    ++Served;
    if (OnServe) OnServe(Served);
  }

 private:
  static constexpr int kMostYields = 10'000'000;
};

}  // namespace lobegraph
