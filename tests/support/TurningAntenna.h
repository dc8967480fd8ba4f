#pragma once

#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

#include "acquisition/rotator/UnevenIntervals.h"
#include "processing/bearing/Angles.h"

namespace lobegraph::test {

/// How a rotator turns, and what it tells of it.
struct Turning {
  double DegPerS = 6;  ///< negative: counter-clockwise
  double Swing = 0;    ///< share by which the speed swings, once a turn
  double RunUpS = 0;   ///< from rest to its speed
  double FromDeg = 0;
  double WayDeg = 360;  ///< then it stands
  double ResolutionDeg = 1;
  double PollS = 0.2;
  double WaitsS = 0;  ///< before it begins
};

/// Where an uneven rotator is over time, in steps of a millisecond.
class TurningAntenna {
 public:
  explicit TurningAntenna(const Turning& turning) : turning_(turning) {
    constexpr double kStepS = 0.001;
    double gone = 0;
    for (double t = 0; gone < turning.WayDeg; t += kStepS) {
      way_.push_back(gone);
      if (t < turning.WaitsS) continue;
      const double up = turning.RunUpS > 0 ? std::min((t - turning.WaitsS) / turning.RunUpS + 1e-3, 1.0) : 1;
      const double swing = 1 + turning.Swing * std::sin(gone * std::numbers::pi / 180 + 0.7);
      gone += std::abs(turning.DegPerS) * up * swing * kStepS;
    }
    way_.push_back(turning.WayDeg);
  }

  double EndS() const { return static_cast<double>(way_.size() - 1) * 0.001; }
  double Deg(double timeS) const {
    const auto step = static_cast<std::size_t>(std::max(0.0, std::min(timeS, EndS())) * 1000);
    return turning_.FromDeg + (turning_.DegPerS < 0 ? -way_[step] : way_[step]);
  }
  /// As the rotator tells it.
  double ToldDeg(double timeS) const {
    return std::round(Deg(timeS) / turning_.ResolutionDeg) * turning_.ResolutionDeg;
  }

 private:
  Turning turning_;
  std::vector<double> way_;
};

/// A lopsided antenna by direction from its boresight, clockwise; 1000 in the main direction. Its beam is 102
/// degrees wide; a lobe on the right is 14 dB down, one on the left 20 dB.
inline double LopsidedLevel(double directionDeg) {
  const auto lobe = [&](double at, double widthDeg, double db) {
    const double off = ShortWay(at, directionDeg) / widthDeg;
    return std::pow(10, db / 20) * std::exp(-std::numbers::ln2 / 2 * 4 * off * off);
  };
  return 1000 * (lobe(0, 102, 0) + lobe(120, 60, -14) + lobe(-130, 60, -20) + 0.01);
}

/// Feeds what is heard, every 5 milliseconds, and what is told, as it comes.
/// @param delayS by how much later a level is heard than it was
template <typename Position, typename Level>
void Feed(const TurningAntenna& antenna, const Turning& turning, double signalDeg, double fromS, double toS,
          const Position& position, const Level& level, double delayS = 0) {
  double nextPollS = fromS;
  UnevenIntervals intervals;
  for (double t = fromS; t < toS; t += 0.005) {
    if (t >= nextPollS) {
      position(t, antenna.ToldDeg(t));
      nextPollS += intervals.Next(turning.PollS);
    }
    level(t, static_cast<float>(LopsidedLevel(signalDeg - antenna.Deg(t - delayS))));
  }
}

}  // namespace lobegraph::test
