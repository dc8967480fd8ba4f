#pragma once

#include <cmath>
#include <numbers>

#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// A smooth beam of `count` readings with its maximum of `peak` at index `at`: a raised cosine over the whole
/// turn, never below `floor`. Half power lies 65.5 degrees off the beam.
inline ReadingsRecord BeamRecord(int count = 360, int at = 0, float peak = 900.F, float floor = 5.F) {
  ReadingsRecord record;
  record.NumReadings = static_cast<std::int16_t>(count - 1);
  record.ReadingCount = count;
  for (int i = 0; i < count; ++i) {
    const double angle = 2.0 * std::numbers::pi * (i - at) / count;
    record.Readings(i) = std::max(floor, peak * static_cast<float>(0.5 + 0.5 * std::cos(angle)));
  }
  record.SaveReadings();
  return record;
}

}  // namespace lobegraph
