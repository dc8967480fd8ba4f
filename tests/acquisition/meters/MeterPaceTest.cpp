// How often a meter speaks.
#include "acquisition/meters/MeterPace.h"

#include <gtest/gtest.h>

#include <limits>

namespace lobegraph {
namespace {

std::uint32_t After(std::initializer_list<std::pair<int, std::int32_t>> received) {
  MeterPace pace;
  for (const auto& [values, atMs] : received) pace.Received(values, atMs);
  return pace.SilentAfterMs();
}

TEST(MeterPace, IsASecondUntilThreeIntervalsAreKnown) {
  EXPECT_EQ(After({}), 1000U);
  EXPECT_EQ(After({{1, 0}, {1, 50}, {1, 100}}), 1000U);
  EXPECT_EQ(After({{1, 0}, {1, 50}, {1, 100}, {1, 150}}), 100U);
}

TEST(MeterPace, APauseDoesNotCount) {
  EXPECT_EQ(After({{1, 0}, {1, 50}, {1, 100}, {1, 90'000}, {1, 90'050}, {1, 90'100}}), 100U);
}

TEST(MeterPace, BetweenTwoHeapsOfAnAdapterNobodyIsSilent) {
  EXPECT_EQ(After({{4, 0}, {4, 16}, {4, 32}, {4, 48}}), 32U);
  EXPECT_EQ(After({{1, 0}, {0, 10}, {1, 50}, {0, 60}, {1, 100}, {1, 150}}), 100U)
      << "a text without a number";
}

TEST(MeterPace, FollowsAMeterThatChangesItsPace) {
  MeterPace pace;
  for (int i = 0; i < 100; ++i) pace.Received(1, i * 10);
  for (int i = 0; i < 9; ++i) pace.Received(1, 1000 + i * 400);
  EXPECT_EQ(pace.SilentAfterMs(), 800U);
}

TEST(MeterPace, AMeterFasterThanTheClockHasAPaceOf1Ms) {
  EXPECT_EQ(After({{9, 0}, {9, 1}, {9, 2}, {9, 3}}), 2U);
}

TEST(MeterPace, GoesOnWhereTheClockGoesOnAtItsSmallestNumber) {
  const std::int32_t last = std::numeric_limits<std::int32_t>::max();
  const std::int32_t first = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(After({{1, last - 149}, {1, last - 99}, {1, last - 49}, {1, first}}), 100U);
}

}  // namespace
}  // namespace lobegraph
