#include "processing/bearing/BearingFigures.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/TurningAntenna.h"

namespace lobegraph {
namespace {

using test::Turning;
using test::TurningAntenna;

LevelBucket Bucket(double level, double timeS) {
  return {timeS, level, 1, static_cast<float>(level), static_cast<float>(level)};
}

BearingTrack TrackOf(const Turning& turning) {
  const TurningAntenna antenna(turning);
  BearingTrack track;
  for (double t = 0; t < antenna.EndS() + 3; t += turning.PollS) track.Add(t, antenna.ToldDeg(t));
  return track;
}

TEST(TurningSpeed, OfAnEvenRotatorIsOne) {
  const auto speed = SpeedOf(TrackOf({.DegPerS = 6, .WaitsS = 20}));
  ASSERT_TRUE(speed);
  EXPECT_NEAR(speed->Mean, 6, 0.05);
  EXPECT_NEAR(speed->Lowest, 6, 0.5);
  EXPECT_NEAR(speed->Highest, 6, 0.5);
}

TEST(TurningSpeed, OfAnUnevenOneIsItsRangeWhicheverWayItTurns) {
  for (const double degPerS : {6.0, -6.0}) {
    const auto speed = SpeedOf(TrackOf({.DegPerS = degPerS, .Swing = 0.2, .RunUpS = 2}));
    ASSERT_TRUE(speed);
    EXPECT_NEAR(speed->Lowest, 4.8, 0.3);
    EXPECT_NEAR(speed->Highest, 7.2, 0.5);
  }
}

TEST(TurningSpeed, AnAntennaThatStandsHasNone) {
  EXPECT_FALSE(SpeedOf({}));
  EXPECT_FALSE(SpeedOf(TrackOf({.WayDeg = 5})));
  BearingTrack unsteady;
  for (int i = 0; i < 600; ++i) unsteady.Add(i * 0.2, i % 7 == 0 ? 46 : 45);
  const auto speed = SpeedOf(unsteady);
  EXPECT_TRUE(!speed || speed->Highest < 2);
}

DegreeTable Turned(double from, double to, double drift) {
  DegreeTable table(0);
  double time = 0;
  for (double deg = from; deg <= to; deg += 0.25)
    table.Add(Bucket(test::LopsidedLevel(-deg) * std::pow(10, drift * (deg - from) / 360 / 20), time += 0.04),
              deg);
  return table;
}

TEST(Closure, IsTheDriftBetweenTheSameBearingsATurnApart) {
  const auto closure = ClosureOf(Turned(0, 380, 0.7));
  ASSERT_TRUE(closure);
  EXPECT_NEAR(closure->Db, 0.7, 0.02);
  EXPECT_NEAR(closure->Degrees, 21, 1);
  EXPECT_NEAR(closure->ApartS, 57.6, 0.5);
}

TEST(Closure, AFallingSourceHasANegativeOne) { EXPECT_NEAR(ClosureOf(Turned(0, 380, -3))->Db, -3, 0.05); }

TEST(Closure, WithoutAnOverlapThereIsNone) {
  EXPECT_FALSE(ClosureOf(Turned(0, 359, 1)));
  EXPECT_FALSE(ClosureOf(DegreeTable(0)));
}

TEST(Closure, WhatIsFarDownCountsOnlyWhenThereIsNothingElse) {
  DegreeTable table(0);
  double time = 0;
  const auto hear = [&](double deg, double level) {
    for (int i = 0; i < 3; ++i) table.Add(Bucket(level, time += 0.01), deg);
  };
  for (int deg = 0; deg < 360; ++deg) hear(deg, deg < 10 ? 10 : 1000);
  for (int deg = 360; deg < 370; ++deg) hear(deg, 20);
  EXPECT_NEAR(ClosureOf(table)->Db, 6.02, 0.01) << "only weak ones were heard twice";
  for (int deg = 370; deg < 375; ++deg) hear(deg, 1000);
  EXPECT_NEAR(ClosureOf(table)->Db, 0, 0.01);
}

TEST(Closure, TheEdgeOfAVisitIsNoReading) {
  DegreeTable table(0);
  double time = 0;
  for (double deg = 0; deg < 359.5; deg += 0.25) table.Add(Bucket(100, time += 0.01), deg);
  table.Add(Bucket(500, time += 0.01), 360);
  EXPECT_FALSE(ClosureOf(table));
}

/// Over the beam, which stands at the signal, to and fro.
BearingTake ToAndFro(double delayS, double degPerS = 6, double resolution = 1) {
  const Turning forth{.DegPerS = degPerS, .FromDeg = 120, .WayDeg = 180, .ResolutionDeg = resolution};
  const Turning back{.DegPerS = -degPerS, .FromDeg = 300, .WayDeg = 180, .ResolutionDeg = resolution};
  const TurningAntenna first(forth), second(back);
  BearingPlacer placer({});
  const auto position = [&](double t, double deg) { placer.AddPosition(t, deg); };
  const auto level = [&](double t, float heard) { placer.AddLevel(t, heard); };
  const double turns = first.EndS() + 1;
  test::Feed(first, forth, 210, 0, turns, position, level, delayS);
  test::Feed(
      second, back, 210, 0, second.EndS() + 1, [&](double t, double deg) { position(t + turns, deg); },
      [&](double t, float heard) { level(t + turns, heard); }, delayS);
  placer.Finish();
  return placer.Take();
}

TEST(BearingDelay, IsHalfTheDifferenceOfThePeaksOverTheSpeed) {
  for (const double delay : {0.0, 0.03, 0.25, 1.0, -0.4})
    for (const double resolution : {0.1, 1.0}) {
      const auto measured = DelayOf(ToAndFro(delay, 6, resolution));
      ASSERT_TRUE(measured) << delay;
      EXPECT_NEAR(measured->Seconds, delay, 0.04) << delay << " at " << resolution;
      EXPECT_NEAR((measured->ForthDeg + measured->BackDeg) / 2, 210, 1.5);
    }
}

TEST(BearingDelay, ATakeOfOneWayHasNone) {
  const Turning turning{};
  const TurningAntenna antenna(turning);
  BearingPlacer placer({});
  test::Feed(
      antenna, turning, 210, 0, antenna.EndS(), [&](double t, double deg) { placer.AddPosition(t, deg); },
      [&](double t, float level) { placer.AddLevel(t, level); });
  placer.Finish();
  EXPECT_FALSE(DelayOf(placer.Take()));
  EXPECT_FALSE(DelayOf({}));
}

TEST(BearingDelay, ABeamThatIsNotWhollyPassedHasNone) {
  BearingPlacer placer({});
  double t = 0;
  const auto pass = [&](double from, double to, double step) {
    for (double deg = from; step > 0 ? deg < to : deg > to; deg += step, t += 0.05) {
      placer.AddPosition(t, deg);
      placer.AddLevel(t, static_cast<float>(test::LopsidedLevel(210 - deg)));
    }
  };
  pass(150, 215, 0.3);
  pass(215, 150, -0.3);
  placer.Finish();
  EXPECT_FALSE(DelayOf(placer.Take()));
}

}  // namespace
}  // namespace lobegraph
