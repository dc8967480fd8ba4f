#include "processing/compare/DegreeLevels.h"

#include <cmath>

namespace lobegraph {
namespace {

constexpr double kTurnDeg = 360.0;

double WithinTurn(double degrees) {
  const double rest = std::fmod(degrees, kTurnDeg);
  return rest < 0.0 ? rest + kTurnDeg : rest;
}

/// A straight line between the samples of a ring. @param place 0 or more
template <typename Ring>
double OnRing(const Ring& ring, double place) {
  const double below = std::floor(place);
  const double share = place - below;
  const auto first = static_cast<std::size_t>(below) % ring.size();
  const auto second = (first + 1) % ring.size();
  return ring[first] + share * (ring[second] - ring[first]);
}

}  // namespace

DegreeLevels ByDegrees(const PatternCut& cut) {
  DegreeLevels levels{};
  for (std::size_t degree = 0; degree < levels.size(); ++degree)
    levels[degree] =
        OnRing(cut.LevelDb, WithinTurn(static_cast<double>(degree) - cut.StartDeg) / cut.StepDeg);
  return levels;
}

double LevelAtDeg(const DegreeLevels& levels, double degrees) { return OnRing(levels, WithinTurn(degrees)); }

DegreeLevels Turned(const DegreeLevels& levels, double degrees) {
  DegreeLevels turned{};
  for (std::size_t degree = 0; degree < turned.size(); ++degree)
    turned[degree] = LevelAtDeg(levels, static_cast<double>(degree) - degrees);
  return turned;
}

}  // namespace lobegraph
