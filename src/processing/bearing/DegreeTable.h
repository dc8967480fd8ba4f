#pragma once

#include <array>
#include <optional>
#include <vector>

#include "processing/bearing/Angles.h"
#include "processing/bearing/LevelBuckets.h"

namespace lobegraph {

inline constexpr int kDegrees = 360;

/// The whole degree that an angle belongs to: 0 to 359.
int DegreeOf(double deg);

/// What was heard in one direction while the antenna passed it once.
struct DegreeVisit {
  int Pass = 0;     ///< changes where the antenna turns round
  int Counted = 0;  ///< the degree counted on over north: differs by 360 in the next turn
  double Sum = 0;   ///< of the samples
  int Count = 0;
  float Lowest = 0;  ///< of the samples
  float Highest = 0;
  double HeadingSum = 0;  ///< of the antenna's bearings, one a bucket
  double TimeSum = 0;
  int Buckets = 0;

  float Level() const { return static_cast<float>(Sum / Count); }
  double HeadingDeg() const { return HeadingSum / Buckets; }
  double TimeS() const { return TimeSum / Buckets; }
};

/// Everything heard, by the direction in which the signal stood from the antenna: clockwise from its
/// boresight, in whole degrees. While the antenna turns right the signal wanders left round it.
class DegreeTable {
 public:
  static constexpr double kTurnedRoundDeg = 5;  ///< going back by less is unsteadiness, not another pass

  /// @param signalDeg bearing of the signal; 0 when it is not known: all directions are then off by it
  explicit DegreeTable(double signalDeg) : signalDeg_(signalDeg) {}

  /// @param headingDeg where the antenna pointed, counted on over north; in the order of time
  /// @return the degree
  int Add(const LevelBucket& bucket, double headingDeg);

  /// In the order of time; empty where nothing was heard.
  const std::vector<DegreeVisit>& At(int degree) const { return visits_[static_cast<std::size_t>(degree)]; }
  double SignalDeg() const { return signalDeg_; }

 private:
  int PassAt(double headingDeg);

  double signalDeg_;
  std::array<std::vector<DegreeVisit>, kDegrees> visits_;
  std::optional<double> farthestDeg_;  ///< of the present sense
  int sense_ = 0;
  int pass_ = 0;
};

}  // namespace lobegraph
