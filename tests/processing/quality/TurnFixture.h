#pragma once

#include <cmath>
#include <numbers>

#include "processing/quality/TurnReadings.h"

namespace lobegraph::test {

inline double LevelAt(double db, double peak = 900.0) { return peak * std::pow(10.0, db / 20.0); }

/// A beam of some 70 degrees with round lobes 20 dB down; dB relative to its peak, smooth everywhere.
inline double BeamDb(double degrees) {
  const double radians = degrees * std::numbers::pi / 180.0;
  const double front = std::pow((1.0 + std::cos(radians)) / 2.0, 3.0);
  return 20.0 * std::log10((front + 0.1) / 1.1);
}

/// A turn of 360 readings of that beam, the beam in its middle, every sample measured, nothing wrong.
inline TurnReadings CleanTurn() {
  TurnReadings turn;
  turn.TurnSeconds = 60.0;
  for (int i = 0; i < 360; ++i) {
    const double db = BeamDb(i - 180.0);
    turn.Levels.push_back(static_cast<float>(LevelAt(db)));
    ReadingDetail detail;
    detail.Samples = 7364;
    detail.SpreadDb = 0.1F;
    detail.ToneHz = 800.0F;
    detail.ToneLevel = turn.Levels.back();
    detail.NoiseLevel = detail.FloorLevel = static_cast<float>(LevelAt(-41.0));
    turn.Details.push_back(detail);
  }
  return turn;
}

}  // namespace lobegraph::test
