#include "processing/bearing/LevelBuckets.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {

void LevelBuckets::Add(double timeS, float level) {
  if (timeS >= endsS_) {
    Close();
    endsS_ = (std::floor(timeS / kWidthS) + 1) * kWidthS;
  }
  filling_.Lowest = filling_.Count == 0 ? level : std::min(filling_.Lowest, level);
  filling_.Highest = std::max(filling_.Highest, level);
  filling_.Sum += static_cast<double>(level);
  ++filling_.Count;
  timeSum_ += timeS;
}

std::optional<LevelBucket> LevelBuckets::Next() {
  if (ready_.empty()) return std::nullopt;
  const LevelBucket next = ready_.front();
  ready_.pop_front();
  return next;
}

void LevelBuckets::Finish() { Close(); }

void LevelBuckets::Close() {
  if (filling_.Count > 0) {
    filling_.TimeS = timeSum_ / filling_.Count;
    ready_.push_back(filling_);
  }
  filling_ = {};
  timeSum_ = 0;
}

}  // namespace lobegraph
