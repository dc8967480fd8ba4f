#pragma once

#include <array>
#include <optional>
#include <vector>

#include "processing/bearing/BearingTrack.h"
#include "processing/bearing/DegreeTable.h"

namespace lobegraph {

/// One direction of a pattern by bearing.
struct DegreeReading {
  enum class From {
    Samples,
    Neighbours,    ///< filled between them, in dB
    NeverVisited,  ///< holds the lowest level measured; neither to be drawn nor to count in a figure
  };

  From Is = From::NeverVisited;
  float Level = 0;   ///< linear, the mean of its samples
  float Lowest = 0;  ///< of the samples
  float Highest = 0;
  double HeadingDeg = 0;  ///< where the antenna pointed, 0 to below 360; of samples the mean
  double TimeS = 0;       ///< the mean of its samples' times; 0 without samples
  bool TakenAgain = false;
};

/// Degrees in a row, clockwise, both ends among them; may run over 0.
struct DegreeArc {
  int First = 0;
  int Count = 0;

  int Last() const { return (First + Count - 1) % kDegrees; }
  bool operator==(const DegreeArc&) const = default;
};

/// The antenna's own pattern: the level by the direction of the signal from it, clockwise from its boresight,
/// which is up. It does not matter which way the antenna turned.
struct BearingPattern {
  static constexpr int kMostFilledQuietly = 5;

  std::array<DegreeReading, kDegrees> Degrees;
  double SignalDeg = 0;
  bool SignalKnown = false;

  const DegreeReading& At(int degree) const { return Degrees[static_cast<std::size_t>(degree)]; }
  DegreeReading& At(int degree) { return Degrees[static_cast<std::size_t>(degree)]; }
  int CountOf(DegreeReading::From from) const;
  /// The arcs of one kind, in the order of their first degree.
  std::vector<DegreeArc> Arcs(DegreeReading::From from) const;
};

/// Degrees over which the antenna passed, sampled or not.
class PassedDegrees {
 public:
  void Pass(double fromDeg, double toDeg);
  bool Passed(int degree) const { return passed_[static_cast<std::size_t>(degree)]; }

 private:
  std::array<bool, kDegrees> passed_{};
};

/// The readings of a table. A degree without a sample is filled from its neighbours when the antenna passed
/// it, or when at most kMostFilledQuietly in a row are missing; the others were never visited. What was heard
/// first counts.
/// @param passed by direction, as the table's degrees
BearingPattern PatternOf(const DegreeTable& table, const PassedDegrees& passed, bool signalKnown);

/// The directions that lie between the positions of a track.
PassedDegrees PassedOn(const BearingTrack& track, double signalDeg);

}  // namespace lobegraph
