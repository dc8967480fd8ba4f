#include "processing/PreparePlot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/base/Numbers.h"
#include "support/FaultOf.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

PlotResult Plot(ReadingsRecord& record, const Placement& placement = {}, const PlotStyle& style = {},
                const PatternRules& rules = {}) {
  return PreparePlot(record, placement, style, rules);
}

TEST(PreparePlotTest, Rotation0To359IsAcceptedAnythingElseRefused) {
  for (const double degrees : {0.0, 1.0, 359.0, 358.7}) {
    ReadingsRecord record = BeamRecord();
    EXPECT_TRUE(Plot(record, {.Rotate = degrees}).PlotDone) << degrees;
  }
  for (const double degrees : {359.5, -1.0, 360.0, 1000.0}) {
    ReadingsRecord record = BeamRecord();
    const PlotResult plot = Plot(record, {.Rotate = degrees});
    EXPECT_EQ(plot.Message, "LBG007 Value for Rotate must be in the range 1 - 359") << degrees;
    EXPECT_EQ(plot.Refused, PlacementPart::Rotate);
    EXPECT_EQ(record.Rotate, 0.F);
    EXPECT_FALSE(plot.PlotDone);
    EXPECT_FALSE(plot.FieldsSettled);
    EXPECT_TRUE(plot.Trace.empty());
  }
}

TEST(PreparePlotTest, RotationZeroIsAcceptedAlthoughTheMessageNames1OnPurpose) {
  ReadingsRecord record = BeamRecord();
  EXPECT_TRUE(Plot(record, {.Rotate = 0.0}).PlotDone);
}

TEST(PreparePlotTest, TheFrontTrimMayReachTheLastReadingThatTheEndTrimLeaves) {
  ReadingsRecord record = BeamRecord();
  for (const double readings : {360.0, -1.0}) {
    const PlotResult plot = Plot(record, {.TrimFront = readings});
    EXPECT_EQ(plot.Message, "LBG008 Value for Trim Front or Trim End is out of range") << readings;
    EXPECT_EQ(plot.Refused, PlacementPart::TrimFront);
    EXPECT_EQ(record.TrimFront, 0);
  }
  EXPECT_FALSE(Plot(record, {.TrimFront = 359}).Message) << "one reading is left";
  EXPECT_EQ(Plot(record, {.TrimFront = 300, .TrimEnd = 60}).Refused, PlacementPart::TrimFront);
}

TEST(PreparePlotTest, ANegativeEndTrimIsRefused) {
  ReadingsRecord record = BeamRecord();
  const PlotResult plot = Plot(record, {.TrimEnd = -1});
  EXPECT_EQ(plot.Message, "LBG009 Value for Trim End or Trim Front is out of range");
  EXPECT_EQ(plot.Refused, PlacementPart::TrimEnd);
  EXPECT_EQ(record.TrimEnd, 0);
}

TEST(PreparePlotTest, TrimsAreRoundedHalvesToEven) {
  ReadingsRecord record = BeamRecord();
  Plot(record, {.TrimFront = 2.5, .TrimEnd = 3.5});
  EXPECT_EQ(record.TrimFront, 2);
  EXPECT_EQ(record.TrimEnd, 4);
  EXPECT_EQ(record.ReadingsPlotted, 354);
}

TEST(PreparePlotTest, ANumberBeyondItsTypeIsAnOverflow) {
  ReadingsRecord record = BeamRecord();
  EXPECT_EQ(FaultOf([&] { Plot(record, {.TrimFront = 40000}); }), 6);
  EXPECT_EQ(FaultOf([&] { Plot(record, {.TrimEnd = -32768}); }), 6);
  EXPECT_EQ(FaultOf([&] { Plot(record, {.Rotate = 1E39}); }), 6);
  EXPECT_EQ(FaultOf([&] { Plot(record, {.Rotate = TypedNumber("1E999")}); }), 6);
  EXPECT_EQ(FaultOf([&] { Plot(record, {.TrimEnd = TypedNumber("1E999")}); }), 6);
  record.NumReadings = 32767;
  EXPECT_EQ(FaultOf([&] { Plot(record); }), 6);
}

struct CountCase {
  int Count;
  bool Calibrating;
  const char* Message;  // empty: refused silently; null: plotted
};

class PlottedCountTest : public ::testing::TestWithParam<CountCase> {};

TEST_P(PlottedCountTest, DecidesWhetherASetIsPlotted) {
  const CountCase& c = GetParam();
  ReadingsRecord record = BeamRecord(c.Count);
  const PlotResult plot = Plot(record, {}, {}, {.AnyLength = c.Calibrating});
  EXPECT_EQ(plot.PlotDone, c.Message == nullptr);
  EXPECT_EQ(plot.Message.value_or(""), c.Message == nullptr ? "" : c.Message);
  EXPECT_EQ(record.ReadingsPlotted, c.Count);
}

INSTANTIATE_TEST_SUITE_P(Counts, PlottedCountTest,
                         ::testing::Values(CountCase{1, false, ""}, CountCase{1, true, ""},
                                           CountCase{2, false, "LBG011 Less than 60 readings - plot aborted"},
                                           CountCase{59, false,
                                                     "LBG011 Less than 60 readings - plot aborted"},
                                           CountCase{59, true, nullptr}, CountCase{60, false, nullptr},
                                           CountCase{360, false, nullptr},
                                           CountCase{361, false, "LBG010 More than 360 readings to plot"},
                                           CountCase{361, true, "LBG010 More than 360 readings to plot"}));

TEST(PreparePlotTest, ReadingsSpreadOverTheTurn) {
  ReadingsRecord record = BeamRecord(360);
  EXPECT_EQ(Plot(record).DegreesPerReading, 1.F);
  record = BeamRecord(300);
  EXPECT_EQ(Plot(record).DegreesPerReading, 1.2F);
  record.Plot180 = true;
  EXPECT_EQ(Plot(record).DegreesPerReading, .6F);
}

TEST(PreparePlotTest, A180DegreeSetAlwaysPlotsWithRotation270WhateverItsBoxHeld) {
  ReadingsRecord record = BeamRecord();
  record.Plot180 = true;
  Plot(record, {.Rotate = 40});
  EXPECT_EQ(record.Rotate, 270.F);
  Plot(record, {.Rotate = 40}, {.Rectangular = true});
  EXPECT_EQ(record.Rotate, 0.F) << "the rectangular drawing keeps 0";
}

TEST(PreparePlotTest, TheResultSaysHowItIsTurned) {
  ReadingsRecord record = BeamRecord();
  EXPECT_EQ(Plot(record, {.Rotate = 40}).RotationOffset, 40.F);
  record.Plot180 = true;
  EXPECT_EQ(Plot(record).RotationOffset, 270.F);
  EXPECT_EQ(Plot(record, {}, {.Rectangular = true}).RotationOffset, -90.F) << "centred on the axis";
}

TEST(PreparePlotTest, APlacementIsReadOffTheRecordInSevenDigits) {
  ReadingsRecord record = BeamRecord();
  record.Rotate = 123.45678F;
  record.TrimFront = 2;
  record.TrimEnd = 3;
  const Placement placement = PlacementOf(record);
  EXPECT_EQ(placement.Rotate, 123.4568);
  EXPECT_EQ(placement.TrimFront, 2.0);
  EXPECT_EQ(placement.TrimEnd, 3.0);
}

TEST(PreparePlotTest, ThePeakIsTheFirstOfEqualStrongestReadings) {
  ReadingsRecord record = BeamRecord(100, 50, 500.F);
  record.Readings(20) = 900.F;
  record.Readings(70) = 900.F;
  Plot(record);
  EXPECT_EQ(record.PeakIndex, 20);
  EXPECT_NEAR(record.PeakLevelDb, .9151F, 1e-4F);
}

TEST(PreparePlotTest, OnlyThePlottedRangeIsSearchedForThePeak) {
  ReadingsRecord record = BeamRecord(100, 50, 500.F);
  record.Readings(5) = 990.F;
  record.Readings(98) = 990.F;
  Plot(record, {.TrimFront = 6, .TrimEnd = 2});
  EXPECT_EQ(record.PeakIndex, 50);
}

TEST(PreparePlotTest, ASet60dBDownKeepsItsFormerPeak) {
  ReadingsRecord record;
  record.NumReadings = 99;
  record.PeakIndex = 42;
  for (int i = 0; i < 100; ++i) record.Readings(i) = 1.F;
  EXPECT_TRUE(Plot(record).PlotDone);
  EXPECT_EQ(record.PeakLevelDb, 60.F);
  EXPECT_EQ(record.PeakIndex, 42);
}

TEST(PreparePlotTest, TheTraceHoldsEachReadingAtItsAngleAndClosesA360DegreeFigure) {
  ReadingsRecord record = BeamRecord(180, 10);
  const PlotResult plot = Plot(record, {.TrimFront = 10, .TrimEnd = 50});
  ASSERT_EQ(plot.Trace.size(), 121U);
  EXPECT_EQ(plot.DegreesPerReading, 3.F);
  for (std::size_t i = 0; i < 120; ++i) EXPECT_EQ(plot.Trace[i].AngleDeg, 3.F * static_cast<float>(i));
  EXPECT_EQ(plot.Trace.back().AngleDeg, 0.F);
  EXPECT_EQ(plot.Trace.back().Radius, plot.Trace.front().Radius);
}

TEST(PreparePlotTest, A180DegreeFigureStaysOpen) {
  ReadingsRecord record = BeamRecord(180);
  record.Plot180 = true;
  const PlotResult plot = Plot(record);
  ASSERT_EQ(plot.Trace.size(), 180U);
  EXPECT_EQ(plot.Trace.back().AngleDeg, 179.F);
}

TEST(PreparePlotTest, RadiiFollowTheScaleAndAreRelativeToThePeak) {
  ReadingsRecord record = BeamRecord(100, 0, 800.F);
  record.Readings(1) = 400.F;
  const float db = 6.0206F;
  EXPECT_NEAR(Plot(record).Trace[1].Radius, 234.F * std::pow(10.F, -db / 35.F), .01F);
  EXPECT_NEAR(Plot(record, {}, {.Scale = PlotScale::Db50}).Trace[1].Radius, 234.F - 234.F / 50.F * db, .01F);
  EXPECT_NEAR(Plot(record, {}, {.Scale = PlotScale::Linear}).Trace[1].Radius, 117.F, .01F);
  EXPECT_EQ(Plot(record).Trace[0].Radius, 234.F);
}

TEST(PreparePlotTest, OnThe50dBScaleAReading50dBDownLiesAtTheCentre) {
  ReadingsRecord record = BeamRecord(100, 0, 1000.F);
  record.Readings(50) = 1.F;
  EXPECT_EQ(Plot(record, {}, {.Scale = PlotScale::Db50}).Trace[50].Radius, 0.F);
}

TEST(PreparePlotTest, TheMarksLieAtTheirIndexesWithSideBTwoUnitsShorterOnPurpose) {
  struct Row {
    PlotStyle Style;
    float Radius;
  };
  const Row rows[] = {{{}, 234.F * std::pow(10.F, -3.F / 35.F)},
                      {{.Scale = PlotScale::Db50}, 219.96F},
                      {{.Scale = PlotScale::Linear}, 165.438F}};
  for (const Row& row : rows) {
    ReadingsRecord record = BeamRecord(360, 100);
    const PlotResult plot = Plot(record, {}, row.Style);
    EXPECT_NEAR(plot.Minus3dBMarks[0].Radius, row.Radius, 1e-3F);
    EXPECT_NEAR(plot.Minus3dBMarks[1].Radius, row.Radius - 2.F, 1e-3F);
    EXPECT_EQ(plot.Minus3dBMarks[0].AngleDeg, plot.Minus3dBIndexA);
    EXPECT_EQ(plot.Minus3dBMarks[1].AngleDeg, plot.Minus3dBIndexB);
  }
}

TEST(PreparePlotTest, MarkAnglesCountFromTheFrontTrim) {
  ReadingsRecord record = BeamRecord(360, 100);
  const PlotResult plot = Plot(record, {.TrimFront = 10});
  EXPECT_FLOAT_EQ(plot.Minus3dBMarks[0].AngleDeg,
                  static_cast<float>(plot.Minus3dBIndexA - 10) * plot.DegreesPerReading);
}

TEST(PreparePlotTest, BeamwidthAndGainOfARaisedCosine) {
  ReadingsRecord record = BeamRecord(360, 100);
  record.Elements = "  3";
  const PlotResult plot = Plot(record);
  EXPECT_EQ(plot.Minus3dBIndexA, 165) << "3 dB lie 65.4 degrees off the beam";
  EXPECT_EQ(plot.Minus3dBIndexB, 35);
  EXPECT_EQ(plot.BeamwidthDeg, 130.F);
  EXPECT_EQ(plot.Figures.BeamwidthDeg, 130.F);
  EXPECT_NEAR(plot.Figures.GainDbi.value_or(0), 2.4239, .001);
}

TEST(PreparePlotTest, APatternWithoutMinus3dBPointsHasNoFigures) {
  ReadingsRecord record;
  record.NumReadings = 359;
  for (int i = 0; i < 360; ++i) record.Readings(i) = 500.F;
  const PlotResult plot = Plot(record);
  EXPECT_TRUE(plot.PlotDone);
  EXPECT_FALSE(plot.Figures.BeamwidthDeg);
  EXPECT_FALSE(plot.Figures.GainDbi);
  EXPECT_EQ(plot.Minus3dBIndexA, record.PeakIndex);
}

TEST(PreparePlotTest, AZeroReadingFailsButItsFieldsWereSettled) {
  ReadingsRecord record = BeamRecord(100);
  record.Readings(40) = 0.F;
  PlotResult plot = BeginPlot(record, {.Rotate = 30}, {}, {});
  EXPECT_TRUE(plot.FieldsSettled);
  EXPECT_EQ(record.Rotate, 30.F);
  EXPECT_EQ(FaultOf([&] { CompletePlot(record, {}, {}, plot); }), 11);
  EXPECT_FALSE(plot.PlotDone);
  EXPECT_TRUE(plot.Trace.empty());
  record.Readings(40) = -1.F;
  EXPECT_EQ(FaultOf([&] { CompletePlot(record, {}, {}, plot); }), 5);
}

TEST(PreparePlotTest, AZeroPeakLevelIsAnInvalidArgument) {
  ReadingsRecord record = BeamRecord(100);
  EXPECT_EQ(FaultOf([&] { Plot(record, {}, {}, {.PeakInputLevel = 0.F}); }), 5);
  record.Readings(0) = 0.F;
  EXPECT_EQ(FaultOf([&] { Plot(record, {}, {}, {.PeakInputLevel = 0.F}); }), 6);
}

TEST(PreparePlotTest, AStalePeakOutsideTheReadingsIsASubscriptErrorInLinearMode) {
  ReadingsRecord record;
  record.NumReadings = 99;
  record.PeakIndex = 400;
  for (int i = 0; i < 100; ++i) record.Readings(i) = 1.F;
  EXPECT_EQ(FaultOf([&] { Plot(record, {}, {.Scale = PlotScale::Linear}); }), 9);
}

TEST(PlotOriginalTest, BringsBackReadingsCountAndWholeRangeWithoutFigures) {
  ReadingsRecord record = BeamRecord(200, 20);
  const ReadingArray original = record.Readings;
  record.Readings(20) = 3.F;
  record.NumReadings = 100;
  record.TrimFront = 5;
  record.TrimEnd = 6;
  record.PeakLevelDb = 3.F;
  const PlotResult plot = PlotOriginal(record, {}, {});
  EXPECT_EQ(record.Readings, original);
  EXPECT_EQ(record.NumReadings, 199);
  EXPECT_EQ(record.TrimFront, 0);
  EXPECT_EQ(record.TrimEnd, 0);
  EXPECT_EQ(record.ReadingsPlotted, 200);
  EXPECT_EQ(record.PeakIndex, 20);
  EXPECT_EQ(plot.Trace.size(), 201U);
  EXPECT_FALSE(plot.Figures.BeamwidthDeg);
  EXPECT_FALSE(plot.PlotDone);
}

}  // namespace
}  // namespace lobegraph
