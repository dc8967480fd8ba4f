#include "data/table/PatternTable.h"

#include <gmock/gmock.h>

#include <cmath>

#include "data/base/RunTimeError.h"
#include "support/FaultOf.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

PatternTable Even(int count, double startDeg = 0.0) {
  PatternTable table;
  for (int i = 0; i < count; ++i)
    table.Points.push_back({startDeg + i * 360.0 / count, -10.0 + 10.0 * std::cos(i * 6.283185307 / count)});
  return table;
}

TEST(PatternTable, LevelsAtWholeDegreesAreReadOffStraightLines) {
  const auto levels = WholeDegrees({.Points = {{10, 0}, {350, -20}, {180, -10}}});
  EXPECT_DOUBLE_EQ(levels[10], 0);
  EXPECT_DOUBLE_EQ(levels[0], -10) << "half way from 350 to 10, across the top";
  EXPECT_DOUBLE_EQ(levels[95], -5);
  EXPECT_DOUBLE_EQ(levels[180], -10);
  EXPECT_NEAR(levels[181], -10 - 10.0 / 170, 1e-9);
}

TEST(PatternTable, LevelsAreRelativeToTheStrongestAndNeverFainterThanNothing) {
  const auto levels = WholeDegrees({.Points = {{0, 12}, {90, -999.99}, {180, 2}, {270, 2}}});
  EXPECT_DOUBLE_EQ(levels[0], 0);
  EXPECT_DOUBLE_EQ(levels[90], kFaintestDb);
  EXPECT_DOUBLE_EQ(levels[180], -10);
}

TEST(PatternTable, AnglesLieOnACircleAndRepeatedOnesCountWithTheirMean) {
  const auto levels = WholeDegrees({.Points = {{0, 0}, {360, -2}, {-90, -5}, {450, -7}}});
  EXPECT_DOUBLE_EQ(levels[0], 0) << "the mean of 0 and -2 is the strongest";
  EXPECT_DOUBLE_EQ(levels[270], -4);
  EXPECT_DOUBLE_EQ(levels[90], -6);
}

TEST(PatternTable, NoPointIsNoPattern) {
  ReadingsRecord record;
  EXPECT_THROW(WholeDegrees({}), RunTimeError);
  EXPECT_THROW(TakeUpTable({}, record), RunTimeError);
}

TEST(PatternTable, AnyNumberOfDirectionsAtOneAngleCountsWithItsMean) {
  PatternTable table;
  for (int i = 0; i < 3'000'000; ++i) AddPoint(table.Points, {i % 4 * 90.0, i < 1'500'000 ? -4.0 : -6.0});
  EXPECT_LE(table.Points.size(), 2'000'000U);
  AddPoint(table.Points, {45.0, 0.0});
  EXPECT_NEAR(WholeDegrees(table)[90], -5.0, 1e-6);
  EXPECT_EQ(WholeDegrees(table)[45], 0.0);
}

TEST(PatternTable, MoreThanAMillionAnglesAreNoPattern) {
  std::vector<TablePoint> points;
  EXPECT_EQ(FaultOf([&] {
              for (int i = 0; i < 3'000'000; ++i) AddPoint(points, {i * 1e-4, 0.0});
            }),
            fault::kTypeMismatch);
}

TEST(PatternTable, WhatIsNoAngleOrNoLevelIsRefused) {
  const double infinite = std::numeric_limits<double>::infinity();
  for (const TablePoint& point : {TablePoint{infinite, 0}, TablePoint{0, -infinite}, TablePoint{1e300, 0},
                                  TablePoint{0, std::nan("")}}) {
    std::vector<TablePoint> points;
    EXPECT_EQ(FaultOf([&] { AddPoint(points, point); }), fault::kTypeMismatch);
  }
}

TEST(PatternTable, EvenPointsBecomeTheReadingsThemselves) {
  for (const int count : {60, 72, 120, 360}) {
    ReadingsRecord record;
    TakeUpTable(Even(count, 30), record);
    EXPECT_EQ(record.NumReadings, count - 1);
    EXPECT_EQ(record.ReadingCount, count - 1);
    EXPECT_EQ(record.ReadingsPlotted, count);
    EXPECT_FALSE(record.Plot180);
    EXPECT_FLOAT_EQ(record.Readings(30 * count / 360), 1000.F) << count;
    EXPECT_EQ(record.PeakIndex, 30 * count / 360);
  }
}

TEST(PatternTable, AWholeFirstAngleBecomesTheRotation) {
  ReadingsRecord record;
  TakeUpTable(Even(60, 4), record);
  EXPECT_EQ(record.Rotate, 4.F);
  EXPECT_EQ(record.PeakIndex, 0);
}

TEST(PatternTable, OtherPointsAreReadOffAtWholeDegrees) {
  for (const PatternTable& table : {Even(36), Even(720), Even(60, 0.5)}) {
    ReadingsRecord record;
    TakeUpTable(table, record);
    EXPECT_EQ(record.NumReadings, 359);
    EXPECT_EQ(record.Rotate, 0.F);
    EXPECT_NEAR(record.Readings(0), 1000.F, 1.F);
  }
}

TEST(PatternTable, HalfATurnBecomesAHalfTurnSet) {
  PatternTable table;
  for (int degrees = -90; degrees <= 90; ++degrees)
    table.Points.push_back({1.0 * degrees, -std::abs(degrees) / 3.0});
  ReadingsRecord record;
  TakeUpTable(table, record);
  EXPECT_TRUE(record.Plot180);
  EXPECT_EQ(record.NumReadings, 179);
  EXPECT_FLOAT_EQ(record.Readings(90), 1000.F);
  EXPECT_NEAR(record.Readings(0), 1000.0 * std::pow(10.0, -1.5), 1e-3);
}

TEST(PatternTable, WordsAreTakenAlong) {
  PatternTable table = Even(60);
  table.Name = "yagi";
  table.CollectedBy = "maker";
  table.CollectedDate = "2024";
  table.Horizontal = false;
  ReadingsRecord record;
  TakeUpTable(table, record);
  EXPECT_EQ(record.Description, "yagi");
  EXPECT_EQ(record.CollectedBy, "maker");
  EXPECT_EQ(record.CollectedDate, "2024");
  EXPECT_FALSE(record.PolarizationHorizontal);
}

TEST(PatternTable, TextsAreTakenApart) {
  EXPECT_THAT(WordsOf("  a \tb  "), ElementsAre("a", "b"));
  EXPECT_THAT(WordsOf(",a,,b", ","), ElementsAre("a", "b"));
  EXPECT_EQ(Trimmed("  a b \r"), "a b");
}

TEST(PatternTable, ANumberMayHaveADecimalComma) {
  EXPECT_EQ(NumberIn(" -12,5 "), -12.5);
  EXPECT_EQ(NumberIn("1.5E+01"), 15.0);
  for (const char* text : {"", "x", "1 2", "1,2,3", "12dB", "1e999"}) EXPECT_FALSE(NumberIn(text)) << text;
}

}  // namespace
}  // namespace lobegraph
