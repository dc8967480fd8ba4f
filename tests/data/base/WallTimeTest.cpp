#include "data/base/WallTime.h"

#include <gtest/gtest.h>

#include <ctime>

#include "support/TimeZone.h"

namespace lobegraph {
namespace {

TEST(WallTimeTest, HasMillisecondsAndTheOffsetOfThatMoment) {
  const TimeZone utc("UTC");
  EXPECT_EQ(IsoTime(1'795'257'753'045), "2026-11-21T10:42:33.045+00:00");
  TimeZone::Set("EST5EDT,M3.2.0,M11.1.0");
  EXPECT_EQ(IsoTime(1'795'257'753'999), "2026-11-21T05:42:33.999-05:00");
  EXPECT_EQ(IsoTime(1'782'000'000'000), "2026-06-20T20:00:00.000-04:00");
  TimeZone::Set("NPT-5:45");
  EXPECT_EQ(IsoTime(0), "1970-01-01T05:45:00.000+05:45");
}

TEST(WallTimeTest, ATimeBefore1970IsNoFault) {
  const TimeZone utc("UTC");
  EXPECT_EQ(IsoTime(-1), "1969-12-31T23:59:59.999+00:00");
}

TEST(WallTimeTest, AFilesNameSortsByTime) {
  const TimeZone utc("UTC");
  EXPECT_EQ(TimeForFileName(1'795'257'753'045), "2026-11-21 10.42.33");
}

TEST(WallTimeTest, NowIsNow) {
  EXPECT_NEAR(static_cast<double>(WallTimeMs()), static_cast<double>(std::time(nullptr)) * 1000.0, 5000.0);
}

}  // namespace
}  // namespace lobegraph
