#pragma once

#include <algorithm>
#include <cmath>

#include "acquisition/levels/ReadingCutter.h"
#include "support/SoundSamples.h"

namespace lobegraph::test {

inline std::int16_t Sample(double value) {
  return static_cast<std::int16_t>(std::lround(std::clamp(value, -32768.0, 32767.0)));
}

/// Two channels as a sound card delivers them; the shorter one counts.
inline SoundStretch Stretch(std::span<const float> left, std::span<const float> right) {
  SoundStretch stretch;
  for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
    stretch.Samples.push_back(Sample(left[i]));
    stretch.Samples.push_back(Sample(right[i]));
  }
  return stretch;
}

/// The same on both.
inline SoundStretch Stretch(std::span<const float> both) { return Stretch(both, both); }

}  // namespace lobegraph::test
