#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "processing/bearing/BearingFigures.h"

namespace lobegraph {
namespace {

constexpr double kOverDeg = 10;
constexpr double kStandsDegPerS = 0.1;
constexpr double kHalfStep =
    0.75;  ///< of the rotator's step: what a standing antenna's bearing may still creep
constexpr std::size_t kEnoughStrides = 4;

/// The time of each 10 degrees of the way, whichever way they were turned.
std::vector<double> StridesOf(const BearingTrack& track) {
  std::vector<double> strides;
  double gone = 0, lasted = 0;
  for (const BearingTrack::Piece& piece : track.Pieces()) {
    double seconds = piece.ToS - piece.FromS, way = std::abs(piece.ToDeg - piece.FromDeg);
    const bool stands = way < kStandsDegPerS * seconds || way < kHalfStep * track.StepDeg();
    if (!piece.Known || stands) continue;
    while (gone + way >= kOverDeg) {
      const double share = (kOverDeg - gone) / way;
      strides.push_back(lasted + share * seconds);
      seconds -= share * seconds;
      way -= kOverDeg - gone;
      gone = lasted = 0;
    }
    gone += way;
    lasted += seconds;
  }
  return strides;
}

}  // namespace

std::optional<TurningSpeed> SpeedOf(const BearingTrack& track) {
  std::vector<double> strides = StridesOf(track);
  if (strides.size() >= kEnoughStrides) {
    // Starting and stopping say nothing of how evenly it turns.
    strides.erase(strides.begin());
    strides.pop_back();
  }
  if (strides.empty()) return std::nullopt;
  const auto [shortest, longest] = std::minmax_element(strides.begin(), strides.end());
  const double total = std::accumulate(strides.begin(), strides.end(), 0.0);
  return TurningSpeed{kOverDeg / *longest, kOverDeg * static_cast<double>(strides.size()) / total,
                      kOverDeg / *shortest};
}

}  // namespace lobegraph
