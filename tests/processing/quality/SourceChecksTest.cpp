#include "processing/quality/SourceChecks.h"

#include <gtest/gtest.h>

#include <random>

#include "processing/quality/TurnFixture.h"

namespace lobegraph {
namespace {

using test::BeamDb;
using test::CleanTurn;
using test::LevelAt;

void Scale(TurnReadings& turn, std::size_t from, std::size_t to, double db) {
  for (std::size_t i = from; i < to; ++i) turn.Levels[i] *= static_cast<float>(std::pow(10.0, db / 20.0));
}

TEST(ClosureTest, AWholeTurnComesBackToWhereItBegan) {
  EXPECT_NEAR(*ClosureDb(CleanTurn()), 0.0, 0.01);
  EXPECT_EQ(CheckClosure(CleanTurn()).Found, Verdict::Good);
}

TEST(ClosureTest, ADriftingSourceLeavesItOpen) {
  TurnReadings turn = CleanTurn();
  for (std::size_t i = 0; i < 360; ++i) Scale(turn, i, i + 1, -1.0 * static_cast<double>(i) / 360.0);
  const QualityItem item = CheckClosure(turn);
  EXPECT_NEAR(*item.Number, -1.0, 0.02);
  EXPECT_EQ(item.Found, Verdict::Doubtful);
  EXPECT_EQ(item.Finding, "The turn does not close: its end is 1.0 dB weaker than its start.");
  for (std::size_t i = 0; i < 360; ++i) Scale(turn, i, i + 1, 4.0 * static_cast<double>(i) / 360.0);
  EXPECT_EQ(CheckClosure(turn).Found, Verdict::Bad);
  EXPECT_NE(CheckClosure(turn).Finding.find("stronger"), std::string::npos);
}

TEST(ClosureTest, LessThanATurnCannotTell) {
  TurnReadings turn = CleanTurn();
  turn.WholeTurn = false;
  EXPECT_EQ(CheckClosure(turn).Found, Verdict::NotKnown);
  EXPECT_FALSE(ClosureDb({}));
  turn = CleanTurn();
  turn.Levels[359] = 0.0F;
  EXPECT_FALSE(ClosureDb(turn)) << "silence has no decibels";
}

TEST(ClosureTest, AtTheFloorItSaysThatItCannotTell) {
  TurnReadings turn = CleanTurn();
  Scale(turn, 359, 360, -2.0);
  for (ReadingDetail& detail : turn.Details) detail.FloorLevel = static_cast<float>(LevelAt(-28.0));
  EXPECT_EQ(CheckClosure(turn).Found, Verdict::NotKnown);
}

TEST(DriftTest, TheReferenceTellsIt) {
  TurnReadings turn = CleanTurn();
  EXPECT_EQ(CheckDrift(turn).Found, Verdict::NotKnown);
  for (std::size_t i = 0; i < 360; ++i)
    turn.Details[i].ReferenceLevel = static_cast<float>(LevelAt(-1.5 * static_cast<double>(i) / 360.0));
  const QualityItem item = CheckDrift(turn);
  EXPECT_NEAR(*item.Number, 1.5, 0.1);
  EXPECT_EQ(item.Found, Verdict::Doubtful);
  turn.Quotient = true;
  EXPECT_EQ(CheckDrift(turn).Found, Verdict::Good) << "it is taken out";
}

TEST(DriftTest, DirectionsMeasuredTwiceTellIt) {
  TurnReadings turn = CleanTurn();
  turn.OverlapDb = -0.3;
  EXPECT_EQ(CheckDrift(turn).Found, Verdict::Good);
  turn.OverlapDb = -2.3;
  EXPECT_EQ(CheckDrift(turn).Found, Verdict::Bad);
  EXPECT_EQ(CheckDrift(turn).Finding, "The source moved by 2.3 dB.");
}

TEST(StepsTest, AJumpThatStaysIsFound) {
  for (const double db : {-6.0, -3.0, -1.2, 1.5, 4.0})
    for (const std::size_t at : {40U, 120U, 180U, 250U}) {
      TurnReadings turn = CleanTurn();
      Scale(turn, at, 360, db);
      const QualityItem item = CheckSteps(turn);
      EXPECT_EQ(item.Found, Verdict::Bad) << db << " at " << at;
      EXPECT_NEAR(item.Number.value_or(0.0), db, 0.3);
      ASSERT_EQ(item.Arcs.size(), 1U);
      EXPECT_NEAR(item.Arcs[0].First, static_cast<double>(at), 1.0);
    }
}

TEST(StepsTest, AChangeInTheMiddleOfAReadingIsOneStep) {
  TurnReadings turn = CleanTurn();
  Scale(turn, 100, 101, -1.5);
  Scale(turn, 101, 360, -4.0);
  const QualityItem item = CheckSteps(turn);
  EXPECT_NEAR(item.Number.value_or(0.0), -4.0, 0.3);
  EXPECT_EQ(item.Arcs, (std::vector<Arc>{{100, 100}}));
}

TEST(StepsTest, WhatComesBackIsNone) {
  TurnReadings turn = CleanTurn();
  Scale(turn, 100, 200, -3.0);
  EXPECT_EQ(CheckSteps(turn).Found, Verdict::Good) << "the turn closes: it may be the antenna";
}

TEST(StepsTest, TwoStepsAreAddedUp) {
  TurnReadings turn = CleanTurn();
  Scale(turn, 60, 360, -2.0);
  Scale(turn, 300, 360, -2.5);
  const QualityItem item = CheckSteps(turn);
  EXPECT_NEAR(item.Number.value_or(0.0), -4.5, 0.4);
  EXPECT_EQ(item.Arcs.size(), 2U);
}

TEST(StepsTest, ASlowDriftIsNone) {
  TurnReadings turn = CleanTurn();
  for (std::size_t i = 0; i < 360; ++i) Scale(turn, i, i + 1, -4.0 * static_cast<double>(i) / 360.0);
  EXPECT_EQ(CheckSteps(turn).Found, Verdict::Good);
}

TEST(StepsTest, NoiseMakesNoSteps) {
  std::mt19937 random(4);
  std::normal_distribution<double> noise(0.0, 0.2);
  for (int round = 0; round < 200; ++round) {
    TurnReadings turn = CleanTurn();
    for (std::size_t i = 0; i < 360; ++i) Scale(turn, i, i + 1, noise(random));
    EXPECT_EQ(CheckSteps(turn).Found, Verdict::Good);
  }
}

TEST(StepsTest, LessThanATurnCannotTell) {
  TurnReadings turn = CleanTurn();
  turn.WholeTurn = false;
  EXPECT_EQ(CheckSteps(turn).Found, Verdict::NotKnown);
  EXPECT_EQ(CheckSteps({}).Found, Verdict::NotKnown);
}

/// What a receiver makes of a turn.
struct Receiver {
  double SnrDb = 35.0;    ///< tone at the beam over the noise in 2400 Hz
  double RangeDb = 30.0;  ///< of the antenna
  bool Agc = false;
  double DecaySeconds = 0.5;
  double MeasuredDb = 0.3;  ///< rms error of a measured power
};

TurnReadings TurnOf(const Receiver& receiver, std::uint64_t seed) {
  constexpr double kLobeOf2400Db = -18.8;  // 32 Hz
  constexpr double kReadingSeconds = 1.0 / 6.0;
  std::mt19937_64 random(seed);
  std::normal_distribution<double> error(0.0, receiver.MeasuredDb);
  TurnReadings turn = CleanTurn();
  double envelope = 0.0;
  for (std::size_t i = 0; i < 360; ++i) {
    const double toneDb =
        std::max(BeamDb(static_cast<double>(i) - 180.0 + static_cast<double>(seed % 90)) / 20.0, -1.0) *
        receiver.RangeDb;
    const double tone = std::pow(10.0, toneDb / 10.0);
    const double noise = std::pow(10.0, -receiver.SnrDb / 10.0);
    const double total = std::sqrt(tone + noise);
    const double fall = std::exp(-kReadingSeconds / receiver.DecaySeconds);
    envelope = std::max(total, envelope * fall + total * (1.0 - fall));
    const double gain = receiver.Agc ? 1.0 / envelope : 1.0;
    const double lobeNoise = noise * std::pow(10.0, kLobeOf2400Db / 10.0);
    ReadingDetail& detail = turn.Details[i];
    detail.ToneLevel = static_cast<float>(300.0 * gain * std::sqrt(tone + lobeNoise) *
                                          std::pow(10.0, error(random) * 0.2 / 20.0));
    detail.NoiseLevel =
        static_cast<float>(300.0 * gain * std::sqrt(lobeNoise) * std::pow(10.0, error(random) / 20.0));
    turn.Levels[i] = *detail.ToneLevel;
  }
  return turn;
}

TEST(AgcTest, IsToldOnAndOffRightlyInAHundredTurnsEach) {
  for (const double range : {20.0, 30.0, 45.0})
    for (const double snr : {25.0, 35.0, 50.0})
      for (const double decay : {0.2, 5.0})
        for (std::uint64_t seed = 1; seed <= 100; ++seed) {
          const auto on =
              AgcSlope(TurnOf({.SnrDb = snr, .RangeDb = range, .Agc = true, .DecaySeconds = decay}, seed));
          const auto off = AgcSlope(TurnOf({.SnrDb = snr, .RangeDb = range}, seed));
          ASSERT_TRUE(on && off);
          ASSERT_LE(*on, 0.5) << range << " dB, snr " << snr << ", decay " << decay << ", turn " << seed;
          ASSERT_GE(*off, 0.75) << range << " dB, snr " << snr << ", turn " << seed;
        }
}

TEST(AgcTest, BelowSixDecibelsItCannotTell) {
  for (std::uint64_t seed = 1; seed <= 100; ++seed) {
    EXPECT_FALSE(AgcSlope(TurnOf({.RangeDb = 4.0, .Agc = true}, seed)));
    EXPECT_FALSE(AgcSlope(TurnOf({.RangeDb = 4.0}, seed)));
  }
  const QualityItem item = CheckAgc(TurnOf({.RangeDb = 4.0}, 1));
  EXPECT_EQ(item.Found, Verdict::NotKnown);
  EXPECT_EQ(item.Value, "cannot tell: tone over noise covers less than 6 dB");
}

TEST(AgcTest, OnIsBadAndSaysWhatToDo) {
  const QualityItem item = CheckAgc(TurnOf({.Agc = true}, 3));
  EXPECT_EQ(item.Found, Verdict::Bad);
  EXPECT_EQ(item.Finding, "The receiver's AGC was on: the beam is flattened, the lobes are too strong.");
  EXPECT_NE(item.WhatToDo.find("Switch it off"), std::string::npos);
}

TEST(AgcTest, OffIsGood) { EXPECT_EQ(CheckAgc(TurnOf({}, 3)).Found, Verdict::Good); }

TEST(AgcTest, ForTheToneOverTheNoiseItIsTakenOut) {
  TurnReadings turn = TurnOf({.Agc = true}, 3);
  turn.OverNoise = true;
  EXPECT_EQ(CheckAgc(turn).Found, Verdict::Good);
}

TEST(AgcTest, BetweenItSaysThatItCannotTell) {
  TurnReadings turn = TurnOf({}, 3);
  for (ReadingDetail& detail : turn.Details) {
    const float half = std::pow(*detail.ToneLevel / 300.0F, -0.4F);
    detail.ToneLevel = *detail.ToneLevel * half;
    detail.NoiseLevel = *detail.NoiseLevel * half;
  }
  EXPECT_EQ(CheckAgc(turn).Found, Verdict::NotKnown);
}

TEST(AgcTest, ReadingsThatSayNothingDoNotCount) {
  TurnReadings turn = TurnOf({}, 3);
  for (std::size_t i = 0; i < 345; ++i) turn.Details[i].Clipped = 1;
  EXPECT_FALSE(AgcSlope(turn)) << "too few are left";
  EXPECT_FALSE(AgcSlope({}));
}

}  // namespace
}  // namespace lobegraph
