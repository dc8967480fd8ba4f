#include "acquisition/tone/ToneFollower.h"

#include <algorithm>
#include <cmath>

#include "acquisition/tone/ToneFinder.h"

namespace lobegraph {
namespace {

constexpr double kFollowSeconds = 1.0;
/// A tone that was not seen for a while may have moved on.
constexpr double kUnseenHzPerSecond = 2.0;

}  // namespace

void ToneFollower::Fix(double hz) {
  Begin(hz);
  fixed_ = true;
}

void ToneFollower::Begin(double hz) {
  hz_ = foundHz_ = hz;
  unseenSeconds_ = 0.0;
  fixed_ = left_ = false;
}

/// Beyond the edge by a lobe, so that a tone which leaves is seen to.
Band ToneFollower::SearchBand(double lobeHz) const {
  const double reach = lobeHz + kUnseenHzPerSecond * unseenSeconds_;
  return {std::max(*hz_ - reach, foundHz_ - kFollowHz - lobeHz),
          std::min(*hz_ + reach, foundHz_ + kFollowHz + lobeHz)};
}

void ToneFollower::Follow(const PowerSpectrum& spectrum, double seconds) {
  if (!hz_ || fixed_) return;
  unseenSeconds_ += seconds;
  const auto seen = LineIn(spectrum, SearchBand(spectrum.MainLobeHz));
  if (!seen) return;
  unseenSeconds_ = 0.0;
  left_ = std::abs(*seen - foundHz_) > kFollowHz;
  const double step = 1.0 - std::exp(-seconds / kFollowSeconds);
  *hz_ = std::clamp(*hz_ + step * (*seen - *hz_), foundHz_ - kFollowHz, foundHz_ + kFollowHz);
}

}  // namespace lobegraph
