#pragma once

#include <optional>

#include "processing/bearing/BearingPattern.h"

namespace lobegraph {

/// From one bearing clockwise to another, both among it; 0 to below 360.
struct BearingSector {
  double FromDeg = 0;
  double ToDeg = 0;

  /// Above 0 to 360: a sector from a bearing to itself is a whole turn.
  double WidthDeg() const;
};

/// What became of a sector that was taken again.
struct SectorTaken {
  BearingPattern Pattern;
  int Replaced = 0;  ///< degrees
  /// How much stronger the second taking was, measured on both sides of the sector and taken away; none when
  /// nothing of them was heard twice: the sector then stands as it was heard.
  std::optional<double> DifferenceDb;
};

/// How far beyond a sector it has to be taken, so that it can be levelled.
inline constexpr double kLevellingDeg = 5;

/// The degrees of the sector as they were heard the second time, levelled on 5 degrees at each side of it. A
/// degree that was not heard again stays as it was.
SectorTaken TakeSectorAgain(const BearingPattern& before, const BearingPattern& again,
                            const BearingSector& sector);

}  // namespace lobegraph
