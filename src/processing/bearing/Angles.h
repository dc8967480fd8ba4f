#pragma once

#include <cmath>

namespace lobegraph {

inline constexpr double kTurnDeg = 360;

/// The same direction from 0 to below 360.
inline double WithinTurn(double deg) {
  const double within = std::fmod(deg, kTurnDeg);
  const double positive = within < 0 ? within + kTurnDeg : within;
  return positive >= kTurnDeg ? 0 : positive;  // the sum of a tiny negative and 360 is 360
}

/// The short way from one direction to another: above -180 to 180, clockwise positive.
inline double ShortWay(double fromDeg, double toDeg) {
  const double way = WithinTurn(toDeg - fromDeg);
  return way > kTurnDeg / 2 ? way - kTurnDeg : way;
}

/// The same direction, counted in the turn nearest to another angle: 1 near 359 is 361.
inline double InTurnNearest(double deg, double nearDeg) { return nearDeg + ShortWay(nearDeg, deg); }

}  // namespace lobegraph
