#include "processing/bearing/BearingTake.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "support/TurningAntenna.h"

namespace lobegraph {
namespace {

using test::LopsidedLevel;
using test::Turning;
using test::TurningAntenna;
using From = DegreeReading::From;

constexpr double kSignalDeg = 211;

double Db(double a, double b) { return 20 * std::log10(a / b); }

BearingPlacer Placed(const Turning& turning, const BearingPlacing& placing = {kSignalDeg, true, 0},
                     double delayS = 0) {
  const TurningAntenna antenna(turning);
  BearingPlacer placer(placing);
  test::Feed(
      antenna, turning, kSignalDeg, 0, antenna.EndS() + 3,
      [&](double t, double deg) { placer.AddPosition(t, deg); },
      [&](double t, float level) { placer.AddLevel(t, level); }, delayS);
  placer.Finish();
  return placer;
}

/// Degrees between the -3 dB points of a pattern whose beam is up.
double Beamwidth(const BearingPattern& pattern) {
  double top = 0;
  for (const DegreeReading& reading : pattern.Degrees)
    top = std::max(top, static_cast<double>(reading.Level));
  const auto edge = [&](int sense) {
    for (int i = 0; i < 180; ++i) {
      const double here = Db(pattern.At((i * sense + 360) % 360).Level, top) + 3.0103;
      const double next = Db(pattern.At(((i + 1) * sense + 360) % 360).Level, top) + 3.0103;
      if (here >= 0 && next < 0) return i + here / (here - next);
    }
    return 180.0;
  };
  return edge(1) + edge(-1);
}

double RmsDb(const BearingPattern& pattern) {
  double squares = 0;
  int count = 0;
  for (int d = 0; d < 360; ++d) {
    if (Db(LopsidedLevel(d), LopsidedLevel(0)) < -25) continue;
    squares += std::pow(Db(pattern.At(d).Level, LopsidedLevel(d)), 2);
    ++count;
  }
  return std::sqrt(squares / count);
}

BearingPattern TruePattern() {
  BearingPattern pattern;
  for (int d = 0; d < 360; ++d) pattern.At(d) = {From::Samples, static_cast<float>(LopsidedLevel(d))};
  return pattern;
}

TEST(BearingTake, AnUnevenTurnGivesTheAntennasOwnPattern) {
  double squares = 0;
  const std::vector<double> speeds{5.6, 5.8, 6.0, 6.2, 6.4};
  for (const double speed : speeds) {
    const BearingPattern pattern = Placed({.DegPerS = speed, .Swing = 0.2, .RunUpS = 2}).Pattern();
    EXPECT_LE(pattern.CountOf(From::Neighbours), 3);
    EXPECT_EQ(pattern.CountOf(From::NeverVisited), 0);
    const double error = Beamwidth(pattern) - Beamwidth(TruePattern());
    EXPECT_NEAR(error, 0, 0.6) << speed;
    squares += error * error;
    EXPECT_LT(RmsDb(pattern), 0.05) << speed;
  }
  EXPECT_LT(std::sqrt(squares / static_cast<double>(speeds.size())), 0.3);
}

TEST(BearingTake, TurningEitherWayGivesTheSamePictureNeverAMirroredOne) {
  const Turning right{.Swing = 0.2, .RunUpS = 2},
      left{.DegPerS = -6, .Swing = 0.2, .RunUpS = 2, .FromDeg = 360};
  const BearingPattern byRight = Placed(right).Pattern(), byLeft = Placed(left).Pattern();
  for (int d = 0; d < 360; ++d) {
    if (Db(LopsidedLevel(d), LopsidedLevel(0)) < -25) continue;
    EXPECT_NEAR(Db(byRight.At(d).Level, byLeft.At(d).Level), 0, 0.6) << d;
  }
  const double lopsidedDb = Db(LopsidedLevel(120), LopsidedLevel(240));
  EXPECT_GT(lopsidedDb, 2);
  EXPECT_NEAR(Db(byRight.At(120).Level, byRight.At(240).Level), lopsidedDb, 0.5)
      << "the stronger lobe is right";
}

TEST(BearingTake, WithoutTheSignalsBearingThePictureIsOnlyTurned) {
  const Turning turning{};
  const BearingPattern known = Placed(turning).Pattern(), unknown = Placed(turning, {0, false, 0}).Pattern();
  EXPECT_FALSE(unknown.SignalKnown);
  for (int d = 0; d < 360; ++d) {
    const int turned = (d + 360 - static_cast<int>(kSignalDeg)) % 360;
    if (known.At(d).Is != From::Samples || unknown.At(turned).Is != From::Samples) continue;
    EXPECT_NEAR(Db(known.At(d).Level, unknown.At(turned).Level), 0, 0.3) << d;
  }
}

TEST(BearingTake, AConstantDelayIsTakenAway) {
  const Turning turning{};
  const BearingPattern wrong = Placed(turning, {kSignalDeg, true, 0}, 0.5).Pattern();
  const BearingPattern right = Placed(turning, {kSignalDeg, true, 0.5}, 0.5).Pattern();
  EXPECT_GT(RmsDb(wrong), 0.2);
  EXPECT_LT(RmsDb(right), 0.1);
}

TEST(BearingTake, PlacingAsItComesAndAllAtOnceAreTheSame) {
  const BearingPlacing placing{kSignalDeg, true, 0.03};
  const BearingPlacer placer = Placed({.Swing = 0.3, .RunUpS = 1}, placing);
  const BearingPattern asItCame = placer.Pattern(), atOnce = PatternOf(placer.Take(), placing);
  for (int d = 0; d < 360; ++d) {
    EXPECT_EQ(asItCame.At(d).Level, atOnce.At(d).Level) << d;
    EXPECT_EQ(asItCame.At(d).Is, atOnce.At(d).Is) << d;
  }
}

TEST(BearingPlacer, EachDegreeIsToldWhenItIsLeft) {
  for (const double degPerS : {6.0, -6.0}) {
    const Turning turning{.DegPerS = degPerS, .FromDeg = 180};
    const TurningAntenna antenna(turning);
    BearingPlacer placer({kSignalDeg, true, 0});
    std::vector<int> left;
    test::Feed(
        antenna, turning, kSignalDeg, 0, antenna.EndS() + 1,
        [&](double t, double deg) { placer.AddPosition(t, deg); },
        [&](double t, float level) {
          placer.AddLevel(t, level);
          const auto now = placer.Advance();
          left.insert(left.end(), now.begin(), now.end());
        });
    const auto last = placer.Finish();
    left.insert(left.end(), last.begin(), last.end());
    EXPECT_GE(left.size(), 357U);
    EXPECT_EQ(left.front(), 31) << "the signal stands 31 degrees right of south";
    const int next = degPerS > 0 ? 30 : 32;
    EXPECT_EQ(left[1], next);
    std::sort(left.begin(), left.end());
    EXPECT_EQ(std::unique(left.begin(), left.end()), left.end()) << "each once";
  }
}

TEST(BearingPlacer, StartingAgainForgetsAllButTheLastPosition) {
  BearingPlacer placer({0, false, 0});
  for (double t = 0; t < 100; t += 0.01) placer.AddLevel(t, 5);
  placer.AddPosition(99, 10);
  placer.AddPosition(100, 11);
  placer.Advance();
  placer.Restart();
  EXPECT_TRUE(placer.Take().Heard.empty());
  placer.AddLevel(100.5, 7);
  placer.AddPosition(101, 12);
  placer.Finish();
  EXPECT_EQ(placer.Pattern().CountOf(From::Samples), 1);
  EXPECT_GT(placer.Pattern().CountOf(From::Samples), 0);
}

TEST(BearingPlacer, WhatIsHeardWhileNobodyKnowsTheBearingIsNotPlaced) {
  BearingPlacer placer({});
  for (double t = 0; t < 20; t += 0.1) {
    if (t < 5 || t > 15) placer.AddPosition(t, std::round(t * 6));
    placer.AddLevel(t, 100);
  }
  placer.Finish();
  const BearingPattern pattern = placer.Pattern();
  const auto arcs = pattern.Arcs(From::Neighbours);
  ASSERT_FALSE(arcs.empty());
  EXPECT_NEAR(arcs.back().Count, 59, 3) << "passed, and filled";
}

TEST(LevelBuckets, SamplesOfAHundredthAreOne) {
  LevelBuckets buckets;
  buckets.Add(1.001, 10);
  buckets.Add(1.005, 20);
  buckets.Add(1.009, 60);
  EXPECT_FALSE(buckets.Next());
  buckets.Add(1.012, 5);
  const auto bucket = buckets.Next();
  ASSERT_TRUE(bucket);
  EXPECT_DOUBLE_EQ(bucket->Mean(), 30);
  EXPECT_EQ(bucket->Lowest, 10);
  EXPECT_EQ(bucket->Highest, 60);
  EXPECT_NEAR(bucket->TimeS, 1.005, 1e-9);
  EXPECT_FALSE(buckets.Next());
  buckets.Finish();
  EXPECT_EQ(buckets.Next()->Lowest, 5);
  buckets.Finish();
  EXPECT_FALSE(buckets.Next());
}

TEST(LevelBuckets, ASlowSourceHasABucketForEachSample) {
  LevelBuckets buckets;
  for (int i = 0; i < 5; ++i) buckets.Add(i, 1);
  int count = 0;
  while (buckets.Next()) ++count;
  EXPECT_EQ(count, 4);
}

}  // namespace
}  // namespace lobegraph
