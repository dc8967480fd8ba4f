#include "acquisition/levels/SampleClock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace lobegraph {
namespace {

constexpr double kRate = 44100.0;
constexpr int kBlock = 441;  // 10 ms

/// Blocks that would come every 10 ms, each late by a random time, in order.
class LateBlocks {
 public:
  LateBlocks(double rateError, double worstDelayMs) : rateError_(rateError), delay_(0.0, worstDelayMs) {}

  void Come(SampleClock& clock, int blocks) {
    for (int i = 0; i < blocks; ++i) {
      count_ += kBlock;
      const double due = 1000.0 * static_cast<double>(count_) / (kRate * (1.0 + rateError_)) + kLatencyMs;
      lastMs_ = std::max(lastMs_, static_cast<std::int64_t>(due + delay_(random_)));
      clock.Note(count_, lastMs_);
    }
  }
  std::int64_t LastMs() const { return lastMs_; }
  /// What had come by a time if no block were late.
  double TrueCount(std::int64_t timeMs) const {
    return (static_cast<double>(timeMs) - kLatencyMs) * kRate * (1.0 + rateError_) / 1000.0;
  }
  static constexpr double kLatencyMs = 20.0;

 private:
  double rateError_;
  std::uniform_real_distribution<double> delay_;
  std::mt19937 random_{5};
  std::int64_t count_ = 0;
  std::int64_t lastMs_ = 0;
};

TEST(SampleClockTest, BeforeTheFirstBlockNothingHasCome) { EXPECT_EQ(SampleClock(kRate).CountAt(5000), 0); }

TEST(SampleClockTest, TheEndOfABlockHasComeWhenTheBlockCame) {
  SampleClock clock(kRate);
  clock.Note(441, 1000);
  EXPECT_EQ(clock.CountAt(1000), 441);
  EXPECT_EQ(clock.CountAt(1010), 882) << "a little ahead";
  EXPECT_EQ(clock.CountAt(995), 221);
  EXPECT_EQ(clock.CountAt(0), 0) << "never fewer than none";
}

TEST(SampleClockTest, LateBlocksMoveNoBoundary) {
  SampleClock clock(kRate);
  LateBlocks blocks(0.0, 40.0);
  blocks.Come(clock, 50);
  for (int i = 0; i < 2000; ++i) {
    blocks.Come(clock, 1);
    EXPECT_NEAR(static_cast<double>(clock.CountAt(blocks.LastMs())), blocks.TrueCount(blocks.LastMs()),
                3.0 * 44.1)
        << "within three milliseconds";
  }
}

TEST(SampleClockTest, HoldsTwoClocksTogetherThatDiffer) {
  SampleClock clock(kRate);
  LateBlocks blocks(0.001, 0.0);
  blocks.Come(clock, 120'000);
  EXPECT_NEAR(static_cast<double>(clock.CountAt(blocks.LastMs())), blocks.TrueCount(blocks.LastMs()),
              5.0 * 44.1)
      << "twenty minutes at a thousandth too fast: more than a second's worth of samples";
}

TEST(SampleClockTest, AfterSamplesThatNobodyReportedLostItFindsTheLineAgain) {
  SampleClock clock(kRate);
  for (int i = 1; i <= 500; ++i) clock.Note(i * kBlock, i * 10);
  // Half a second without a block.
  for (int i = 501; i <= 1000; ++i) clock.Note(i * kBlock, i * 10 + 500);
  EXPECT_NEAR(static_cast<double>(clock.CountAt(10'500)), 1000.0 * kBlock, 45.0);
}

}  // namespace
}  // namespace lobegraph
