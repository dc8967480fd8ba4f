#include "acquisition/spectrum/Segments.h"

#include <gtest/gtest.h>

#include <numeric>

#include "support/SoundSamples.h"

namespace lobegraph {
namespace {

constexpr double kRate = test::kSampleRate;

TEST(SegmentsTest, CoverTheStretchFromItsBeginToItsEnd) {
  for (const std::size_t samples : {1U, 2U, 3U, 1235U, 7350U, 7364U, 147000U}) {
    const Segments segments = SegmentsOf(samples, kRate);
    EXPECT_EQ(segments.Starts.front(), 0U) << samples;
    EXPECT_EQ(segments.Starts.back() + segments.Length, samples) << samples;
    for (std::size_t i = 1; i < segments.Starts.size(); ++i) {
      const std::size_t step = segments.Starts[i] - segments.Starts[i - 1];
      EXPECT_LE(static_cast<double>(step), static_cast<double>(segments.Length) / 3.0 + 1.0) << samples;
    }
  }
}

TEST(SegmentsTest, AreThreeQuartersOfAShortStretchAndAFifthOfASecondOfALongOne) {
  EXPECT_EQ(SegmentsOf(7350, kRate).Length, 5513U);
  EXPECT_EQ(SegmentsOf(1235, kRate).Length, 926U);
  EXPECT_EQ(SegmentsOf(147000, kRate).Length, 8820U);
}

TEST(SegmentsTest, TheMainLobeIsTwoLinesWideToEachSide) {
  EXPECT_DOUBLE_EQ(MainLobeHz(8820, kRate), 10.0);
  EXPECT_NEAR(MainLobeHz(926, kRate), 95.2, 0.1);
}

TEST(SegmentsTest, OverlappingWindowsAreWorthFewerLooksThanTheyAre) {
  EXPECT_DOUBLE_EQ(IndependentLooks({100, {0}}), 1.0);
  EXPECT_DOUBLE_EQ(IndependentLooks({100, {0, 100, 200}}), 3.0) << "side by side";
  // Half overlap of the Hann window: a correlation of 1/6 between neighbours.
  EXPECT_NEAR(IndependentLooks({1000, {0, 500}}), 2.0 / (1.0 + 2.0 * 0.5 / 36.0), 1e-3);
  const double seventh = IndependentLooks(SegmentsOf(147000, kRate));
  EXPECT_GT(seventh, 147000.0 / 8820.0);
  EXPECT_LT(seventh, 48.0);
}

TEST(SegmentsTest, TheWindowIsHannsAtTheMiddleOfEachSample) {
  const std::vector<float> window = HannWindow(4);
  EXPECT_NEAR(window[0], 0.146447, 1e-6);
  EXPECT_NEAR(window[1], 0.853553, 1e-6);
  EXPECT_EQ(window[2], window[1]);
  EXPECT_FLOAT_EQ(window[3], window[0]);
  EXPECT_FLOAT_EQ(HannWindow(1)[0], 1.0F);
}

}  // namespace
}  // namespace lobegraph
