#include "processing/bearing/SectorAgain.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/TurningAntenna.h"

namespace lobegraph {
namespace {

using From = DegreeReading::From;

constexpr double kSignalDeg = 100;

/// A pattern of which the bearings from one clockwise to the other were heard.
BearingPattern Heard(double fromDeg, double widthDeg, double db) {
  BearingPattern pattern;
  pattern.SignalDeg = kSignalDeg;
  pattern.SignalKnown = true;
  for (double i = 0; i <= widthDeg && i < 360; ++i) {
    DegreeReading& reading = pattern.At(DegreeOf(kSignalDeg - fromDeg - i));
    reading.Is = From::Samples;
    reading.Level = reading.Lowest = reading.Highest =
        static_cast<float>(test::LopsidedLevel(kSignalDeg - fromDeg - i) * std::pow(10, db / 20));
  }
  return pattern;
}

int At(double headingDeg) { return DegreeOf(kSignalDeg - headingDeg); }

TEST(BearingSector, IsAsWideAsClockwise) {
  EXPECT_EQ((BearingSector{10, 40}.WidthDeg()), 30);
  EXPECT_EQ((BearingSector{350, 10}.WidthDeg()), 20);
  EXPECT_EQ((BearingSector{40, 10}.WidthDeg()), 330);
  EXPECT_EQ((BearingSector{0, 0}.WidthDeg()), 360);
  EXPECT_EQ((BearingSector{0, 360}.WidthDeg()), 360);
}

TEST(SectorAgain, TakesTheSectorsPlaceLevelledOnItsOverlap) {
  BearingPattern before = Heard(0, 359, 0);
  for (double heading = 350; heading <= 380; ++heading) before.At(At(heading)).Level *= 5;  // a passer-by
  const BearingPattern again = Heard(345, 40, 2);
  const SectorTaken taken = TakeSectorAgain(before, again, {350, 20});
  EXPECT_EQ(taken.Replaced, 31);
  ASSERT_TRUE(taken.DifferenceDb);
  EXPECT_NEAR(*taken.DifferenceDb, 2, 0.01);
  const BearingPattern whole = Heard(0, 359, 0);
  for (int d = 0; d < 360; ++d) EXPECT_NEAR(taken.Pattern.At(d).Level, whole.At(d).Level, 0.5) << d;
  EXPECT_TRUE(taken.Pattern.At(At(350)).TakenAgain);
  EXPECT_TRUE(taken.Pattern.At(At(20)).TakenAgain);
  EXPECT_FALSE(taken.Pattern.At(At(349)).TakenAgain);
  EXPECT_FALSE(taken.Pattern.At(At(21)).TakenAgain);
}

TEST(SectorAgain, LowestAndHighestAreLevelledToo) {
  const SectorTaken taken = TakeSectorAgain(Heard(0, 359, 0), Heard(95, 30, 6), {100, 120});
  const DegreeReading& reading = taken.Pattern.At(At(110));
  EXPECT_NEAR(reading.Lowest, reading.Level, 0.01);
  EXPECT_NEAR(reading.Highest, reading.Level, 0.01);
}

TEST(SectorAgain, ADegreeThatWasNotHeardAgainStaysAsItWas) {
  const BearingPattern before = Heard(0, 359, 0);
  const SectorTaken taken = TakeSectorAgain(before, Heard(95, 15, 1), {100, 120});
  EXPECT_EQ(taken.Replaced, 11);
  EXPECT_EQ(taken.Pattern.At(At(115)).Level, before.At(At(115)).Level);
  EXPECT_NEAR(*taken.DifferenceDb, 1, 0.01) << "one side is enough";
}

TEST(SectorAgain, WithoutAnOverlapItStandsAsItWasHeard) {
  const SectorTaken taken = TakeSectorAgain(Heard(0, 359, 0), Heard(100, 20, 3), {100, 120});
  EXPECT_FALSE(taken.DifferenceDb);
  EXPECT_NEAR(taken.Pattern.At(At(110)).Level, test::LopsidedLevel(-10) * std::pow(10, 3 / 20.0), 1);
}

TEST(SectorAgain, WhatWasFilledOrNeverVisitedLevelsNothing) {
  BearingPattern before = Heard(0, 359, 0);
  for (int beside = 1; beside <= 5; ++beside) {
    before.At(At(100 - beside)).Is = From::Neighbours;
    before.At(At(120 + beside)).Is = From::NeverVisited;
  }
  EXPECT_FALSE(TakeSectorAgain(before, Heard(90, 40, 3), {100, 120}).DifferenceDb);
}

TEST(SectorAgain, AWholeTurnReplacesAll) {
  const SectorTaken taken = TakeSectorAgain(Heard(0, 359, 0), Heard(0, 359, 3), {0, 360});
  EXPECT_EQ(taken.Replaced, 360);
  EXPECT_FALSE(taken.DifferenceDb);
}

}  // namespace
}  // namespace lobegraph
