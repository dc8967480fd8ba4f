#pragma once

#include <array>

#include "processing/Figures.h"

namespace lobegraph {

/// A turn by whole degrees, 0 to 359 clockwise from the top of its plot: dB, 0 at its strongest reading.
using DegreeLevels = std::array<double, 360>;

/// A whole turn of any number of readings, a straight line in dB between them.
/// @param cut of a full turn, at least one reading
DegreeLevels ByDegrees(const PatternCut& cut);

/// Level at any angle, degrees, a straight line in dB between whole degrees.
double LevelAtDeg(const DegreeLevels& levels, double degrees);

/// The turn turned clockwise.
DegreeLevels Turned(const DegreeLevels& levels, double degrees);

}  // namespace lobegraph
