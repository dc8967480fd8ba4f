#pragma once

#include <optional>

#include "processing/bearing/BearingTake.h"

namespace lobegraph {

/// How fast the antenna turned, degrees a second, each over 10 degrees of its way.
struct TurningSpeed {
  double Lowest = 0;
  double Mean = 0;
  double Highest = 0;
};
/// None for an antenna that turned less than 10 degrees.
std::optional<TurningSpeed> SpeedOf(const BearingTrack& track);

/// The difference between what was heard when the antenna pointed the same way again, and before: drift of
/// source or receiver.
struct Closure {
  double Db = 0;      ///< mean; positive: the later one is stronger
  int Degrees = 0;    ///< directions that were compared
  double ApartS = 0;  ///< mean time between
};
/// None when nothing was covered twice. Directions weaker than 25 dB below the strongest do not count as long
/// as there are stronger ones.
std::optional<Closure> ClosureOf(const DegreeTable& table);

/// By how much later levels are heard than the positions of their moment are told, from a take that passes
/// the beam to and fro: half the difference of the two peaks, over the speed.
struct MeasuredDelay {
  double Seconds = 0;
  double ForthDeg = 0;  ///< bearing of the peak when the antenna turned the first way
  double BackDeg = 0;   ///< and the other
};
/// None when the take has no two passes of opposite sense over one beam.
std::optional<MeasuredDelay> DelayOf(const BearingTake& take);

}  // namespace lobegraph
