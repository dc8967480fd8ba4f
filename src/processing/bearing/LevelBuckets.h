#pragma once

#include <deque>
#include <optional>

namespace lobegraph {

/// Level samples of some hundredths of a second, as one.
struct LevelBucket {
  double TimeS = 0;  ///< the mean of its samples' times
  double Sum = 0;    ///< of the levels, linear
  int Count = 0;
  float Lowest = 0;
  float Highest = 0;

  double Mean() const { return Count == 0 ? 0 : Sum / Count; }
};

/// Gathers level samples into buckets as they come. Times are seconds and do not go back.
class LevelBuckets {
 public:
  static constexpr double kWidthS = 0.01;

  void Add(double timeS, float level);
  /// The oldest bucket that is complete: a sample of a later one has come.
  std::optional<LevelBucket> Next();
  /// The last one is complete too.
  void Finish();

 private:
  void Close();

  std::deque<LevelBucket> ready_;
  LevelBucket filling_;
  double endsS_ = 0;
  double timeSum_ = 0;
};

}  // namespace lobegraph
