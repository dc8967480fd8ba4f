#include "processing/bearing/BearingPattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace lobegraph {
namespace {

using From = DegreeReading::From;
using testing::ElementsAre;

LevelBucket Bucket(float level, double timeS = 0) {
  return {timeS, static_cast<double>(level), 1, level, level};
}

/// The signal in the north: heading h hears direction -h.
struct Rig {
  DegreeTable Table{0};
  PassedDegrees Passed;
  double TimeS = 0;

  void Hear(double headingDeg, float level) { Table.Add(Bucket(level, TimeS += 0.01), headingDeg); }
  void HearFrom(double headingDeg, double toDeg, float level = 500) {
    for (double deg = headingDeg; deg <= toDeg; deg += 1) Hear(deg, level);
    Passed.Pass(-headingDeg, -toDeg);
  }
  BearingPattern Pattern() const { return PatternOf(Table, Passed, true); }
};

TEST(DegreeTable, AnAngleBelongsToItsNearestDegree) {
  EXPECT_EQ(DegreeOf(0), 0);
  EXPECT_EQ(DegreeOf(0.49), 0);
  EXPECT_EQ(DegreeOf(0.5), 1);
  EXPECT_EQ(DegreeOf(359.5), 0);
  EXPECT_EQ(DegreeOf(359.49), 359);
  EXPECT_EQ(DegreeOf(-0.5), 0);
  EXPECT_EQ(DegreeOf(-90), 270);
  EXPECT_EQ(DegreeOf(450), 90);
}

TEST(DegreeTable, WhileTheAntennaTurnsRightTheSignalWandersLeftRoundIt) {
  DegreeTable table(100);
  EXPECT_EQ(table.Add(Bucket(1), 100), 0) << "pointing at the signal";
  EXPECT_EQ(table.Add(Bucket(1), 130), 330) << "turned right, the signal stands left";
  EXPECT_EQ(table.Add(Bucket(1), 70), 30);
  EXPECT_EQ(table.Add(Bucket(1), 280), 180);
}

TEST(DegreeTable, SamplesOfOnePassAreOneVisit) {
  DegreeTable table(0);
  table.Add({1.0, 30, 3, 8, 12}, -10.2);
  table.Add({2.0, 10, 1, 10, 10}, -9.8);
  ASSERT_EQ(table.At(10).size(), 1U);
  const DegreeVisit& visit = table.At(10).front();
  EXPECT_FLOAT_EQ(visit.Level(), 10);
  EXPECT_EQ(visit.Lowest, 8);
  EXPECT_EQ(visit.Highest, 12);
  EXPECT_NEAR(visit.HeadingDeg(), -10, 1e-9);
  EXPECT_NEAR(visit.TimeS(), 1.5, 1e-9);
}

TEST(DegreeTable, TurningRoundAndTheNextTurnAreOtherVisits) {
  Rig rig;
  for (int deg = 0; deg <= 40; ++deg) rig.Hear(deg, 1);
  for (int deg = 40; deg >= 20; --deg) rig.Hear(deg, 2);
  for (int deg = 20; deg <= 400; ++deg) rig.Hear(deg, 3);
  EXPECT_EQ(rig.Table.At(DegreeOf(-10)).size(), 2U) << "first turn and second";
  EXPECT_EQ(rig.Table.At(DegreeOf(-30)).size(), 4U) << "forth, back, forth, second turn";
  EXPECT_EQ(rig.Table.At(DegreeOf(-30)).front().Level(), 1);
  EXPECT_EQ(rig.Table.At(DegreeOf(-200)).size(), 1U);
}

TEST(DegreeTable, AnUnsteadyBearingTurnsNothingRound) {
  Rig rig;
  for (int deg = 0; deg <= 100; ++deg) {
    rig.Hear(deg, 1);
    rig.Hear(deg - 3, 1);
  }
  for (int deg = 4; deg < 97; ++deg) EXPECT_EQ(rig.Table.At(DegreeOf(-deg)).size(), 1U) << deg;
}

TEST(BearingPattern, NothingHeardIsNothingMeasured) {
  const BearingPattern pattern = Rig().Pattern();
  EXPECT_EQ(pattern.CountOf(From::NeverVisited), 360);
  EXPECT_EQ(pattern.At(7).Level, 0);
  EXPECT_THAT(pattern.Arcs(From::NeverVisited), ElementsAre(DegreeArc{0, 360}));
}

TEST(BearingPattern, AWholeTurnIsAllMeasured) {
  Rig rig;
  rig.HearFrom(0, 359);
  const BearingPattern pattern = rig.Pattern();
  EXPECT_EQ(pattern.CountOf(From::Samples), 360);
  EXPECT_TRUE(pattern.Arcs(From::Neighbours).empty());
  EXPECT_NEAR(pattern.At(90).HeadingDeg, 270, 1e-9);
  EXPECT_TRUE(pattern.SignalKnown);
}

TEST(BearingPattern, AMissingDegreeIsFilledInDecibelsBetweenItsNeighbours) {
  Rig rig;
  rig.HearFrom(0, 359);
  Rig holed;
  for (int deg = 0; deg < 360; ++deg)
    if (deg < 100 || deg > 102) holed.Hear(deg, deg < 100 ? 1000.F : 10.F);
  holed.Passed.Pass(0, -359);
  const BearingPattern pattern = holed.Pattern();
  // Direction 257 to 260 is bearing 103 down to 100: from 20 dB to 60 dB in steps of 10.
  EXPECT_EQ(pattern.CountOf(From::Neighbours), 3);
  EXPECT_NEAR(pattern.At(DegreeOf(-100)).Level, 316.2, 0.1);
  EXPECT_NEAR(pattern.At(DegreeOf(-101)).Level, 100, 0.01);
  EXPECT_NEAR(pattern.At(DegreeOf(-102)).Level, 31.62, 0.01);
  EXPECT_THAT(pattern.Arcs(From::Neighbours), ElementsAre(DegreeArc{258, 3}));
  EXPECT_NEAR(pattern.At(DegreeOf(-101)).HeadingDeg, 101, 1e-9);
}

TEST(BearingPattern, SilenceBesideAGapIsNoLogarithmOfZero) {
  Rig rig;
  for (int deg = 0; deg < 360; ++deg)
    if (deg != 10 && deg != 20) rig.Hear(deg, deg > 5 && deg < 15 ? 0.F : 100.F);
  const BearingPattern pattern = rig.Pattern();
  EXPECT_EQ(pattern.At(DegreeOf(-10)).Level, 0);
  EXPECT_TRUE(std::isfinite(pattern.At(DegreeOf(-20)).Level));
  Rig edge;
  for (int deg = 0; deg < 360; ++deg)
    if (deg != 10) edge.Hear(deg, deg < 10 ? 0.F : 100.F);
  EXPECT_NEAR(edge.Pattern().At(DegreeOf(-10)).Level, 10, 0.01);
}

TEST(BearingPattern, AGapOverWhichTheAntennaPassedIsFilledHoweverWideItIs) {
  Rig rig;
  rig.HearFrom(0, 100);
  rig.HearFrom(141, 359);
  rig.Passed.Pass(-100, -141);
  const BearingPattern pattern = rig.Pattern();
  EXPECT_EQ(pattern.CountOf(From::Neighbours), 40);
  EXPECT_EQ(pattern.CountOf(From::NeverVisited), 0);
}

TEST(BearingPattern, WhatWasNeverVisitedHoldsTheLowestLevelMeasured) {
  Rig rig;
  rig.HearFrom(0, 99, 500);
  rig.HearFrom(100, 180, 30);
  const BearingPattern pattern = rig.Pattern();
  EXPECT_EQ(pattern.CountOf(From::Samples), 181);
  EXPECT_EQ(pattern.CountOf(From::NeverVisited), 179);
  EXPECT_EQ(pattern.At(DegreeOf(-270)).Level, 30);
  EXPECT_THAT(pattern.Arcs(From::NeverVisited), ElementsAre(DegreeArc{1, 179}));
}

TEST(BearingPattern, ATurnThatStopsThreeDegreesShortIsClosed) {
  Rig rig;
  rig.HearFrom(10, 366);
  const BearingPattern pattern = rig.Pattern();
  EXPECT_EQ(pattern.CountOf(From::Neighbours), 3);
  EXPECT_EQ(pattern.CountOf(From::NeverVisited), 0);
  Rig five, six;
  five.HearFrom(10, 364);
  six.HearFrom(10, 363);
  EXPECT_EQ(five.Pattern().CountOf(From::Neighbours), 5);
  EXPECT_EQ(six.Pattern().CountOf(From::NeverVisited), 6);
}

TEST(BearingPattern, ArcsRunOverZero) {
  Rig rig;
  rig.HearFrom(20, 340);
  const auto arcs = rig.Pattern().Arcs(From::NeverVisited);
  EXPECT_THAT(arcs, ElementsAre(DegreeArc{341, 39}));
  EXPECT_EQ(arcs[0].Last(), 19);
}

TEST(BearingPattern, WhatWasHeardFirstCounts) {
  Rig rig;
  rig.HearFrom(0, 359, 500);
  rig.HearFrom(360, 400, 700);
  EXPECT_EQ(rig.Pattern().At(DegreeOf(-20)).Level, 500);
}

TEST(PassedDegrees, AreThoseBetweenWhicheverWay) {
  PassedDegrees passed;
  passed.Pass(358.6, 362.4);
  for (const int degree : {359, 0, 1, 2}) EXPECT_TRUE(passed.Passed(degree)) << degree;
  EXPECT_FALSE(passed.Passed(358));
  EXPECT_FALSE(passed.Passed(3));
  PassedDegrees back;
  back.Pass(10, 5);
  EXPECT_TRUE(back.Passed(5));
  EXPECT_TRUE(back.Passed(10));
  EXPECT_FALSE(back.Passed(4));
  PassedDegrees all;
  all.Pass(-1e6, 1e6);
  EXPECT_TRUE(all.Passed(123));
}

}  // namespace
}  // namespace lobegraph
