#include "processing/bearing/DegreeTable.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {

int DegreeOf(double deg) { return static_cast<int>(std::floor(WithinTurn(deg) + 0.5)) % kDegrees; }

int DegreeTable::Add(const LevelBucket& bucket, double headingDeg) {
  const double direction = signalDeg_ - headingDeg;
  const int degree = DegreeOf(direction), pass = PassAt(headingDeg);
  const int counted = static_cast<int>(std::floor(direction + 0.5));
  auto& visits = visits_[static_cast<std::size_t>(degree)];
  if (visits.empty() || visits.back().Pass != pass || visits.back().Counted != counted)
    visits.push_back({.Pass = pass, .Counted = counted, .Lowest = bucket.Lowest, .Highest = bucket.Highest});
  DegreeVisit& visit = visits.back();
  visit.Sum += bucket.Sum;
  visit.Count += bucket.Count;
  visit.Lowest = std::min(visit.Lowest, bucket.Lowest);
  visit.Highest = std::max(visit.Highest, bucket.Highest);
  visit.HeadingSum += headingDeg;
  visit.TimeSum += bucket.TimeS;
  ++visit.Buckets;
  return degree;
}

int DegreeTable::PassAt(double headingDeg) {
  if (!farthestDeg_) farthestDeg_ = headingDeg;
  const double way = headingDeg - *farthestDeg_;
  if (sense_ == 0 && std::abs(way) > kTurnedRoundDeg) sense_ = way > 0 ? 1 : -1;
  if (sense_ != 0 && way * sense_ < -kTurnedRoundDeg) {
    ++pass_;
    sense_ = -sense_;
  }
  if (way * sense_ > 0) farthestDeg_ = headingDeg;
  return pass_;
}

}  // namespace lobegraph
