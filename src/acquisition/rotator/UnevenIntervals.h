#pragma once

#include <cmath>

namespace lobegraph {

/// Intervals around a mean, none like the next: a rotator that turns one of its steps between two questions
/// would otherwise be met at the same place of each step, and the answers be off by the same part of it for
/// minutes.
class UnevenIntervals {
 public:
  /// From 0.6 to 1.4 times the mean, evenly spread over any few of them.
  double Next(double meanS) {
    constexpr double kGoldenShare = 0.6180339887498949;
    share_ = std::fmod(share_ + kGoldenShare, 1.0);
    return meanS * (0.6 + 0.8 * share_);
  }

 private:
  double share_ = 0;
};

}  // namespace lobegraph
