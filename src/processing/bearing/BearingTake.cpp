#include "processing/bearing/BearingTake.h"

#include <utility>

namespace lobegraph {

std::vector<int> BearingPlacer::Advance() {
  std::vector<int> left;
  while (const auto bucket = buckets_.Next()) take_.Heard.push_back(*bucket);
  PlaceUntil(take_.Track.SettledS(), left);
  return left;
}

std::vector<int> BearingPlacer::Finish() {
  buckets_.Finish();
  std::vector<int> left = Advance();
  PlaceUntil(take_.Track.LastS(), left);
  Leave(left);
  return left;
}

void BearingPlacer::PlaceUntil(double timeS, std::vector<int>& left) {
  for (; placed_ < take_.Heard.size(); ++placed_) {
    const LevelBucket& bucket = take_.Heard[placed_];
    const double wasS = bucket.TimeS - placing_.DelayS;
    if (wasS > timeS) return;
    const auto heading = take_.Track.At(wasS);
    if (!heading) continue;
    const int degree = table_.Add(bucket, *heading);
    if (in_ && *in_ != degree) Leave(left);
    in_ = degree;
  }
}

void BearingPlacer::Leave(std::vector<int>& left) {
  if (in_ && !std::exchange(leftBefore_[static_cast<std::size_t>(*in_)], true)) left.push_back(*in_);
}

void BearingPlacer::Restart() {
  BearingPlacer fresh(placing_);
  if (!take_.Track.Empty()) fresh.AddPosition(take_.Track.LastS(), take_.Track.LastDeg());
  *this = std::move(fresh);
}

BearingPattern BearingPlacer::Pattern() const {
  return PatternOf(table_, PassedOn(take_.Track, placing_.SignalDeg), placing_.SignalKnown);
}

BearingPattern PatternOf(const BearingTake& take, const BearingPlacing& placing) {
  DegreeTable table(placing.SignalDeg);
  for (const LevelBucket& bucket : take.Heard)
    if (const auto heading = take.Track.At(bucket.TimeS - placing.DelayS)) table.Add(bucket, *heading);
  return PatternOf(table, PassedOn(take.Track, placing.SignalDeg), placing.SignalKnown);
}

}  // namespace lobegraph
