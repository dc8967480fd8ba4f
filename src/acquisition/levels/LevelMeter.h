#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "acquisition/levels/LevelMonitor.h"
#include "acquisition/levels/ReadingCutter.h"
#include "acquisition/levels/ReadingMeter.h"
#include "acquisition/levels/SampleClock.h"

namespace lobegraph {

/// From captured sound to measured readings. Times are milliseconds of one clock that only goes forward.
class LevelMeter {
 public:
  /// @param readingSeconds planned length of a reading
  LevelMeter(const LevelChoice& choice, double samplesPerSecond, double readingSeconds);

  /// A block of whole frames has come in, left and right in turn.
  void Hear(std::span<const std::int16_t> interleaved, std::int64_t nowMs);
  /// The sound server has lost frames.
  void HearGap(std::int64_t frames, std::int64_t nowMs);

  /// A reading begins with what comes in from a time on.
  void Open(std::int64_t timeMs) { cutter_.Open(clock_.CountAt(timeMs)); }
  /// It ends with what had come in by a time, and the next one begins there.
  void Close(std::int64_t timeMs);
  /// It ends so, and no other begins.
  void CloseLast(std::int64_t timeMs);

  /// The readings measured since the last call, in their order. A reading is measured as soon as its sound
  /// has come in.
  std::vector<MeasuredReading> Take();
  const LevelStatus& Status() const { return monitor_.Status(); }
  const LevelChoice& Choice() const { return meter_.Choice(); }

 private:
  void Advance();

  ReadingMeter meter_;
  LevelMonitor monitor_;
  SampleClock clock_;
  ReadingCutter cutter_;
  std::vector<MeasuredReading> measured_;
};

}  // namespace lobegraph
