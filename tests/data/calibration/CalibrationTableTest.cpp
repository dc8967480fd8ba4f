#include "data/calibration/CalibrationTable.h"

#include <gtest/gtest.h>

#include <random>

#include "data/calibration/CalibrationText.h"

namespace lobegraph {
namespace {

CalibrationTable TableOf(std::vector<CalibrationPoint> points) {
  const CalibrationOutcome outcome = CalibrationOutcome::Of(std::move(points));
  EXPECT_EQ(outcome.Refusal, "");
  return *outcome.Table;
}

TEST(CalibrationTableTest, WithoutPointsNothingIsChanged) {
  EXPECT_EQ(CalibrationTable().TrueDb(-12.5), -12.5);
  EXPECT_TRUE(TableOf({}).Empty());
}

TEST(CalibrationTableTest, GoesThroughItsPointsInAnyOrder) {
  const CalibrationTable table = TableOf({{20, 14}, {0, 0}, {40, 40}, {30, 25}});
  for (const CalibrationPoint& point : {CalibrationPoint{0, 0}, {20, 14}, {30, 25}, {40, 40}})
    EXPECT_NEAR(table.TrueDb(point.HeardDb), point.TrueDb, 1e-12);
}

TEST(CalibrationTableTest, IsTheMonotoneCubic) {
  // Slopes by hand at 0, 10, 20, 40: three-point ends (0, held at 0, and 1.6) and weighted harmonic means.
  const CalibrationTable table = TableOf({{0, 0}, {10, 2}, {20, 10}, {40, 40}});
  const double inner1 = (30.0 + 30.0) / (30.0 / 0.2 + 30.0 / 0.8);
  const double inner2 = (50.0 + 40.0) / (50.0 / 0.8 + 40.0 / 1.5);
  EXPECT_NEAR(table.TrueDb(5.0), 1.0 + 10.0 / 8.0 * (0.0 - inner1), 1e-9);
  EXPECT_NEAR(table.TrueDb(15.0), 6.0 + 10.0 / 8.0 * (inner1 - inner2), 1e-9);
  const double last = ((2.0 * 20.0 + 10.0) * 1.5 - 20.0 * 0.8) / 30.0;
  EXPECT_NEAR(table.TrueDb(30.0), 25.0 + 20.0 / 8.0 * (inner2 - last), 1e-9);
}

TEST(CalibrationTableTest, AStraightLineStaysStraight) {
  const CalibrationTable table = TableOf({{-40, -60}, {-20, -30}, {-10, -15}, {0, 0}});
  for (double heard = -40.0; heard <= 0.0; heard += 0.37) EXPECT_NEAR(table.TrueDb(heard), 1.5 * heard, 1e-9);
}

TEST(CalibrationTableTest, RisesWhereverItsPointsRise) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> step(0.001, 20.0);
  for (int round = 0; round < 300; ++round) {
    std::vector<CalibrationPoint> points{{-60.0, -60.0}};
    for (int i = 0; i < 8; ++i)
      points.push_back({points.back().HeardDb + step(random), points.back().TrueDb + step(random)});
    const CalibrationTable table = TableOf(points);
    double before = table.TrueDb(points.front().HeardDb - 5.0);
    for (double heard = points.front().HeardDb - 4.99; heard < points.back().HeardDb + 5.0; heard += 0.01) {
      const double now = table.TrueDb(heard);
      ASSERT_GE(now, before - 1e-9) << heard;
      before = now;
    }
  }
}

TEST(CalibrationTableTest, BeyondItsEndsTheLastErrorHolds) {
  const CalibrationTable table = TableOf({{0, 3}, {10, 8}, {20, 14}});
  EXPECT_DOUBLE_EQ(table.TrueDb(-10), -7);
  EXPECT_DOUBLE_EQ(table.TrueDb(30), 24);
}

TEST(CalibrationTableTest, OneOrTwoPointsAreAShiftAndALine) {
  EXPECT_DOUBLE_EQ(TableOf({{10, 7}}).TrueDb(-30), -33);
  EXPECT_DOUBLE_EQ(TableOf({{0, 0}, {20, 10}}).TrueDb(5), 2.5);
}

TEST(CalibrationTableTest, APlateauStaysFlat) {
  const CalibrationTable table = TableOf({{0, 0}, {10, 5}, {20, 5}, {30, 12}});
  for (double heard = 10.0; heard <= 20.0; heard += 0.5) EXPECT_NEAR(table.TrueDb(heard), 5.0, 1e-12);
}

TEST(CalibrationTableTest, PointsThatFallAreRefusedWithTheReason) {
  const CalibrationOutcome outcome = CalibrationOutcome::Of({{-10, 0}, {-20, -10}, {-15, -20}});
  EXPECT_FALSE(outcome.Table);
  EXPECT_EQ(
      outcome.Refusal,
      "-15.0 dB is louder than -20.0 dB but stands for the weaker signal (-20.0 dB and -10.0 dB): take these "
      "points again.");
}

TEST(CalibrationTableTest, ALevelHeardTwiceIsRefusedWithTheReason) {
  EXPECT_EQ(
      CalibrationOutcome::Of({{1, 2}, {1, 3}}).Refusal,
      "1.0 dB is heard twice, for 2.0 dB and for 3.0 dB: the receiver does not tell these signals apart.");
}

TEST(CalibrationTextTest, ReadsTwoNumbersALineInAnyOrder) {
  const CalibrationFile file = ReadCalibration("20 14 # above S9\r\n0 0\n\n40\t40\n10 5");
  ASSERT_TRUE(file.Outcome.Table);
  EXPECT_EQ(file.Outcome.Table->Points(),
            (std::vector<CalibrationPoint>{{0, 0}, {10, 5}, {20, 14}, {40, 40}}));
}

TEST(CalibrationTextTest, AFileWithoutPointsChangesNothing) {
  EXPECT_TRUE(ReadCalibration("").Outcome.Table->Empty());
  EXPECT_TRUE(ReadCalibration("# nothing\n\n").Outcome.Table->Empty());
}

TEST(CalibrationTextTest, ALineThatIsNoneIsNamed) {
  for (const char* text : {"0 0\n1\n", "0 0\na b\n", "0 0\n1 2 3\n", "0 0\n1 1e308\n", "0 0\n1 1001\n",
                           "0 0\n1,5 2\n", "0 0\nnan 2\n", "0 0\ninf 2\n", "0 0\n0x10 2\n", "0 0\n1e999 2\n"})
    EXPECT_EQ(ReadCalibration(text).Outcome.Refusal, "line 2 of the calibration is not two numbers") << text;
  EXPECT_EQ(ReadCalibration(std::string_view("0 0\n1\0 2\n", 9)).Outcome.Refusal,
            "line 2 of the calibration is not two numbers");
}

TEST(CalibrationTextTest, AnEndlessFileIsRefused) {
  std::string text;
  for (int i = 0; i < 10'001; ++i) text += std::to_string(i * 0.01) + " " + std::to_string(i * 0.01) + "\n";
  EXPECT_EQ(ReadCalibration(text).Outcome.Refusal, "the calibration has more than 10000 points");
}

TEST(CalibrationTextTest, WhatIsWrittenIsReadBack) {
  const CalibrationTable table = TableOf({{-42.125, -60}, {-20.5, -30}, {-1.25, -1.25}});
  const CalibrationNotes notes{"tone", "2024-05-01 10:20"};
  const CalibrationFile file = ReadCalibration(CalibrationText(table, notes));
  EXPECT_EQ(file.Outcome.Table->Points(), table.Points());
  EXPECT_EQ(file.Notes, notes);
}

TEST(CalibrationTextTest, ANoteCannotBecomeALine) {
  const CalibrationFile file = ReadCalibration(CalibrationText(TableOf({{0, 0}}), {"tone\n5 5", ""}));
  EXPECT_EQ(file.Outcome.Table->Points().size(), 1U);
  EXPECT_EQ(file.Notes.Method, "tone 5 5");
}

}  // namespace
}  // namespace lobegraph
