#include "processing/Transforms.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/base/RunTimeError.h"
#include "processing/PreparePlot.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

ReadingsRecord FlatRecord(int count, float level) {
  ReadingsRecord record;
  record.NumReadings = static_cast<std::int16_t>(count - 1);
  record.ReadingCount = count;
  for (int i = 0; i < count; ++i) record.Readings(i) = level;
  record.SaveReadings();
  return record;
}

TEST(SmoothTest, TakesTwoInPlacePassesOfThreeReadingsPlusATenth) {
  ReadingsRecord record = FlatRecord(4, 0.F);
  const std::vector<double> start = {3, 6, 9, 12};
  for (int i = 0; i < 4; ++i) record.Readings(i) = static_cast<float>(start[static_cast<std::size_t>(i)]);
  std::vector<double> expected = start;
  for (int pass = 0; pass < 2; ++pass)
    for (std::size_t i = 0; i < 4; ++i)
      expected[i] = (expected[i] + expected[(i + 3) % 4] + expected[(i + 1) % 4]) / 3 + 0.1;
  Smooth(record);
  for (int i = 0; i < 4; ++i)
    EXPECT_NEAR(record.Readings(i), expected[static_cast<std::size_t>(i)], 1e-5) << i;
}

TEST(SmoothTest, WalksFromReading0WhileItsEndsWrapToThePlottedRangeOnPurpose) {
  ReadingsRecord record = FlatRecord(10, 0.F);
  record.Readings(0) = 30.F;
  record.Readings(1) = 60.F;
  record.Readings(8) = 90.F;
  record.TrimFront = 2;
  record.TrimEnd = 1;  // plotted 2 to 8, so seven readings from reading 0 on are walked
  Smooth(record);
  EXPECT_EQ(record.Readings(9), 0.F);
  EXPECT_EQ(record.Readings(8), 90.F) << "not walked";
  EXPECT_EQ(record.Readings(7), 0.F) << "not walked";
  // Pass 1: (30 + 90 + 60) / 3 + .1 = 60.1; then (60 + 60.1 + 0) / 3 + .1. Pass 2 begins (60.1 + 90
  // + 40.1333) / 3 + .1.
  EXPECT_NEAR(record.Readings(0), 63.5111, 1e-3);
}

TEST(SmoothTest, NeverLeavesALevelBelowATenth) {
  ReadingsRecord record = FlatRecord(100, 0.F);
  Smooth(record);
  for (int i = 0; i < 100; ++i) EXPECT_GE(record.Readings(i), .1F);
  EXPECT_EQ(record.Readings(100), 0.F);
}

TEST(ReverseTest, TwiceGivesBackReadingsTrimsAndRotation) {
  ReadingsRecord record = BeamRecord(361, 77);
  record.TrimFront = 3;
  record.TrimEnd = 9;
  record.Rotate = 90.F;
  const ReadingArray before = record.Readings;
  Reverse(record);
  EXPECT_EQ(record.Readings(360 - 77), before(77));
  EXPECT_EQ(record.Readings(0), before(360));
  EXPECT_EQ(record.TrimFront, 9);
  EXPECT_EQ(record.TrimEnd, 3);
  EXPECT_EQ(record.Rotate, 270.F);
  Reverse(record);
  EXPECT_EQ(record.Readings, before);
  EXPECT_EQ(record.TrimFront, 3);
  EXPECT_EQ(record.Rotate, 90.F);
}

TEST(ReverseTest, ARotationOf0StaysAndANearlyWholeTurnBecomes0) {
  ReadingsRecord record = BeamRecord(100);
  Reverse(record);
  EXPECT_EQ(record.Rotate, 0.F);
  record.Rotate = .3F;
  Reverse(record);
  EXPECT_EQ(record.Rotate, 0.F);
}

TEST(DeSpikeTest, ASingleReadingFarAboveBothNeighboursIsReplacedByThePreviousSlope) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  record.Readings(49) = 110.F;
  record.Readings(50) = 400.F;
  EXPECT_TRUE(DeSpike(record, 50, 1000.F).Done);
  EXPECT_EQ(record.Readings(50), 120.F) << "110 continued by the 10 it rose from 100";
  EXPECT_EQ(record.Readings(49), 110.F);
}

TEST(DeSpikeTest, AStepThatStaysIsNoSpike) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  for (int i = 50; i < 100; ++i) record.Readings(i) = 400.F;
  const ReadingArray before = record.Readings;
  DeSpike(record, 50, 1000.F);
  EXPECT_EQ(record.Readings, before);
}

TEST(DeSpikeTest, ADifferenceOfExactlyTheLevelIsNoSpike) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  record.Readings(50) = 150.F;
  DeSpike(record, 50, 1000.F);
  EXPECT_EQ(record.Readings(50), 150.F);
  DeSpike(record, 49, 1000.F);
  EXPECT_EQ(record.Readings(50), 100.F);
}

TEST(DeSpikeTest, BothNeighboursMustLieFurtherAwayThanTheLevel) {
  for (const int near : {49, 51}) {
    ReadingsRecord record = FlatRecord(100, 100.F);
    record.Readings(50) = 150.F;
    record.Readings(near) = 99.F;
    DeSpike(record, 50, 1000.F);
    EXPECT_EQ(record.Readings(50), 150.F) << near;
  }
}

TEST(DeSpikeTest, TheFirstReadingsNeighboursWrapRoundThePlottedSet) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  record.Readings(0) = 300.F;
  DeSpike(record, 50, 1000.F);
  EXPECT_EQ(record.Readings(0), 100.F);
  record.Readings(99) = 300.F;
  DeSpike(record, 50, 1000.F);
  EXPECT_EQ(record.Readings(99), 100.F);
}

TEST(DeSpikeTest, BeforeTheFirstReadingStandsTheLastOneAlone) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  record.Readings(0) = record.Readings(98) = 300.F;
  DeSpike(record, 50, 1000.F);
  EXPECT_LT(record.Readings(0), 300.F);
}

TEST(DeSpikeTest, AReplacementIsCappedAtThePeakInputLevel) {
  ReadingsRecord record = FlatRecord(100, 940.F);
  for (int i = 49; i < 100; ++i) record.Readings(i) = 980.F;
  record.Readings(50) = 100.F;
  // 980 continued by the 40 it rose would be 1020.
  DeSpike(record, 50, 1000.F);
  EXPECT_EQ(record.Readings(50), 1000.F);
}

TEST(DeSpikeTest, DifferencesAreRecomputedAfterEachReplacement) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  record.Readings(50) = 400.F;
  record.Readings(51) = 100.F;
  record.Readings(52) = 400.F;
  DeSpike(record, 50, 1000.F);
  EXPECT_EQ(record.Readings(50), 100.F);
  EXPECT_EQ(record.Readings(51), 100.F) << "no spike any more once its neighbour was mended";
  EXPECT_EQ(record.Readings(52), 100.F);
}

TEST(DeSpikeTest, WhatWouldBeNegativeBringsBackTheOriginals) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  const float valley[] = {180.F, 140.F, 100.F, 60.F, 20.F, 200.F, 60.F, 100.F, 140.F, 180.F};
  for (int i = 0; i < 100; ++i) record.Readings(i) = 200.F;
  for (int i = 0; i < 10; ++i) record.Readings(45 + i) = valley[i];
  const ReadingArray saved = record.SavedReadings;
  // The 200 at the bottom becomes 20 continued by the 40 it fell: -20.
  const DeSpikeOutcome outcome = DeSpike(record, 50, 1000.F);
  EXPECT_TRUE(outcome.Done);
  EXPECT_EQ(outcome.Message, "LBG032 Despike operation failed - original readings restored");
  EXPECT_EQ(record.Readings, saved);
}

TEST(DeSpikeTest, AnyNegativeReadingOf361BringsBackTheOriginals) {
  ReadingsRecord record = FlatRecord(100, 100.F);
  record.Readings(360) = -1.F;
  EXPECT_TRUE(DeSpike(record, 50, 1000.F).Message.has_value());
  EXPECT_EQ(record.Readings(360), 0.F);
}

TEST(DeSpikeTest, TooManyOrTooFewReadingsAreRefusedBeforeAnyChange) {
  ReadingsRecord record = FlatRecord(361, 100.F);
  record.Readings(5) = 900.F;
  DeSpikeOutcome outcome = DeSpike(record, 50, 1000.F);
  EXPECT_FALSE(outcome.Done);
  EXPECT_EQ(outcome.Message, "LBG010 More than 360 readings to plot");
  EXPECT_EQ(record.Readings(5), 900.F);
  for (const int count : {2, 59}) {
    record = FlatRecord(count, 100.F);
    outcome = DeSpike(record, 50, 1000.F);
    EXPECT_FALSE(outcome.Done);
    EXPECT_EQ(outcome.Message, "LBG011 Less than 60 readings - plot aborted");
  }
  record = FlatRecord(60, 100.F);
  EXPECT_TRUE(DeSpike(record, 50, 1000.F).Done);
}

struct OrientationCase {
  int A, B, Front;
  float Step, Rotate;
};

class OrientationTest : public ::testing::TestWithParam<OrientationCase> {};

TEST_P(OrientationTest, CentresTheBeamOn0) {
  const OrientationCase& c = GetParam();
  ReadingsRecord record;
  record.TrimFront = static_cast<std::int16_t>(c.Front);
  PlotResult plot;
  plot.Minus3dBIndexA = static_cast<std::int16_t>(c.A);
  plot.Minus3dBIndexB = static_cast<std::int16_t>(c.B);
  plot.DegreesPerReading = c.Step;
  EXPECT_EQ(OrientationOf(record, plot), c.Rotate);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, OrientationTest,
    ::testing::Values(OrientationCase{195, 165, 0, 1.F, 180.F}, OrientationCase{15, 345, 0, 1.F, 0.F},
                      OrientationCase{30, 0, 0, 1.F, 345.F}, OrientationCase{165, 135, 30, 1.2F, 216.F},
                      OrientationCase{16, 345, 0, 1.F, 0.F},   // 359.5 is shown as 360, that is 0
                      OrientationCase{18, 345, 0, 1.F, 358.F}  // 358.5, halves to even
                      ));

TEST(ClearPlotFieldsTest, ClearsWhatANewPatternMakesVoid) {
  ReadingsRecord record = BeamRecord(100);
  record.TrimFront = record.TrimEnd = 5;
  record.Rotate = 7.F;
  record.FileName = "a.lbg";
  record.Description = "typed";
  ClearPlotFields(record, false);
  EXPECT_EQ(record.TrimFront, 0);
  EXPECT_EQ(record.TrimEnd, 0);
  EXPECT_EQ(record.Rotate, 0.F);
  EXPECT_FALSE(record.HasReadings());
  EXPECT_EQ(record.FileName, "");
  EXPECT_EQ(record.Description, "typed") << "a description typed for the next pattern stays";
  ClearPlotFields(record, true);
  EXPECT_EQ(record.Description, "");
}

}  // namespace
}  // namespace lobegraph
