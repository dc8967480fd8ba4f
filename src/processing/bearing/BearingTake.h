#pragma once

#include <vector>

#include "processing/bearing/BearingPattern.h"
#include "processing/bearing/BearingTrack.h"
#include "processing/bearing/LevelBuckets.h"

namespace lobegraph {

/// How what was taken is placed.
struct BearingPlacing {
  double SignalDeg = 0;  ///< bearing of the signal
  bool SignalKnown = false;
  double DelayS = 0;  ///< how much later a level is heard than the position of its moment is told
};

/// What was heard and where the antenna pointed, over time: everything that a pattern by bearing comes from.
struct BearingTake {
  BearingTrack Track;
  std::vector<LevelBucket> Heard;  ///< in the order of time
};

/// Puts levels where the antenna was, as soon as that is known. Times are seconds and go forward.
class BearingPlacer {
 public:
  explicit BearingPlacer(const BearingPlacing& placing) : placing_(placing), table_(placing.SignalDeg) {}

  void AddPosition(double timeS, double toldDeg) { take_.Track.Add(timeS, toldDeg); }
  void AddLevel(double timeS, float level) { buckets_.Add(timeS, level); }

  /// Places what can be placed. @return the directions that the antenna has left meanwhile for the first
  /// time, in the order of time: their level will not change by this pass
  std::vector<int> Advance();
  /// Places the rest with the last position told. Nothing may be added after it.
  std::vector<int> Finish();
  /// Forgets all but the last position: a wait for motion may last.
  void Restart();

  const BearingTake& Take() const { return take_; }
  const DegreeTable& Table() const { return table_; }
  BearingPattern Pattern() const;

 private:
  void PlaceUntil(double timeS, std::vector<int>& left);
  void Leave(std::vector<int>& left);

  BearingPlacing placing_;
  LevelBuckets buckets_;
  BearingTake take_;
  std::size_t placed_ = 0;  ///< of what was heard
  DegreeTable table_;
  std::optional<int> in_;  ///< the degree that the antenna is in
  std::array<bool, kDegrees> leftBefore_{};
};

/// The pattern of a whole take.
BearingPattern PatternOf(const BearingTake& take, const BearingPlacing& placing);

}  // namespace lobegraph
