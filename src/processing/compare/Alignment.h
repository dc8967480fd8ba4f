#pragma once

#include <span>
#include <vector>

#include "processing/compare/DegreeLevels.h"

namespace lobegraph {

/// How one turn lies on another.
struct Alignment {
  double TurnDeg = 0.0;   ///< to be turned clockwise by, above -180 up to 180
  double OffsetDb = 0.0;  ///< to be added to its levels after that
};

/// The best match of two turns of one antenna: the largest cyclic correlation of their levels in dB, fine by
/// the parabola through its top and the neighbours. Levels below -40 dB count as -40: nulls are noise. The
/// offset makes the levels agree where both are within 20 dB of their strongest.
Alignment AlignmentOf(const DegreeLevels& reference, const DegreeLevels& other);

/// The turn as it lies on the reference.
DegreeLevels Aligned(const DegreeLevels& levels, const Alignment& alignment);

/// Several turns of one antenna on top of each other.
struct RepeatedTurns {
  std::vector<Alignment> Alignments;  ///< of each turn on their mean; the first one is not turned
  DegreeLevels MeanDb{};              ///< 0 at its strongest
  DegreeLevels DeviationDb{};  ///< standard deviation for each degree (of a sample); 0 for a single turn
};

/// @param turns one or more
RepeatedTurns Repeated(std::span<const DegreeLevels> turns);

}  // namespace lobegraph
