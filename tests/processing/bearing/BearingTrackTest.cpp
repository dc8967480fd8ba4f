#include "processing/bearing/BearingTrack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "support/TurningAntenna.h"

namespace lobegraph {
namespace {

using test::Turning;
using test::TurningAntenna;

BearingTrack TrackOf(const std::vector<std::pair<double, double>>& told) {
  BearingTrack track;
  for (const auto& [time, deg] : told) track.Add(time, deg);
  return track;
}

TEST(Angles, AreCountedWithinOneTurnAndTheShortWay) {
  EXPECT_EQ(WithinTurn(0), 0);
  EXPECT_EQ(WithinTurn(360), 0);
  EXPECT_EQ(WithinTurn(-10), 350);
  EXPECT_EQ(WithinTurn(730), 10);
  EXPECT_EQ(WithinTurn(-1e-20), 0);
  EXPECT_EQ(ShortWay(359, 1), 2);
  EXPECT_EQ(ShortWay(1, 359), -2);
  EXPECT_EQ(ShortWay(0, 180), 180);
  EXPECT_EQ(ShortWay(0, 181), -179);
  EXPECT_EQ(InTurnNearest(1, 359), 361);
  EXPECT_EQ(InTurnNearest(90, 450), 450);
  EXPECT_EQ(InTurnNearest(359, 0), -1);
}

TEST(BearingTrack, BeforeAnythingIsToldNothingIsKnown) {
  const BearingTrack track;
  EXPECT_TRUE(track.Empty());
  EXPECT_EQ(track.At(0), std::nullopt);
  EXPECT_TRUE(track.Pieces().empty());
}

TEST(BearingTrack, BearingsRunOnOverNorth) {
  struct Row {
    std::vector<double> Told, Counted;
  };
  for (const Row& row : {Row{{358, 359, 0, 1}, {358, 359, 360, 361}}, Row{{1, 0, 359, 358}, {1, 0, -1, -2}},
                         Row{{449, 450, 90, 91}, {449, 450, 450, 451}},
                         Row{{-179, -180, 179}, {-179, -180, -181}}, Row{{359, 360, 361}, {359, 360, 361}}}) {
    BearingTrack track;
    double time = 0;
    for (std::size_t i = 0; i < row.Told.size(); ++i) {
      track.Add(time += 0.2, row.Told[i]);
      EXPECT_NEAR(track.LastDeg(), row.Counted[i], 1e-9) << row.Told[i];
    }
  }
}

TEST(BearingTrack, AChangeHappenedBetweenTheTwoQuestionsBetweenTheTwoValues) {
  const BearingTrack track = TrackOf({{10, 4}, {10.2, 4}, {10.4, 5}, {10.6, 5}, {10.8, 6}});
  EXPECT_DOUBLE_EQ(track.At(10.3).value(), 4.5);
  EXPECT_DOUBLE_EQ(track.At(10.7).value(), 5.5);
  EXPECT_DOUBLE_EQ(track.At(10.5).value(), 5);
  EXPECT_EQ(track.At(9.9), std::nullopt);
  EXPECT_EQ(track.At(10.81), std::nullopt);
  EXPECT_EQ(track.StepDeg(), 1);
}

TEST(BearingTrack, WhatIsSettledStaysWhateverComes) {
  Turning turning{.Swing = 0.2, .RunUpS = 2, .ResolutionDeg = 4};
  const TurningAntenna antenna(turning);
  BearingTrack track;
  std::vector<std::pair<double, double>> settled;
  for (double t = 0; t < antenna.EndS(); t += 0.2) {
    track.Add(t, antenna.ToldDeg(t));
    for (const auto& [time, deg] : settled) ASSERT_EQ(track.At(time), deg);
    if (track.SettledS() > 0)
      settled.emplace_back(track.SettledS() - 0.05, track.At(track.SettledS() - 0.05).value_or(0));
  }
  EXPECT_GT(settled.size(), 100U);
}

struct ErrorRow {
  double Swing, ResolutionDeg, PollS, MostDeg, MostRmsDeg;
};

TEST(BearingTrack, AChangeIsStraightenedByItsNeighboursByAtMostHalfAStep) {
  // 5 degrees a second in whole degrees, asked ten times a second; one change is seen 0.1 s late.
  BearingTrack track;
  for (int i = 0; i <= 120; ++i) {
    const double deg = std::floor(i * 0.5 + 0.25);
    track.Add(i * 0.1, i == 60 ? deg - 1 : deg);
  }
  const double seenS = 6.05, told = 29.5, even = 30.25;
  EXPECT_GT(track.At(seenS).value(), told + 0.3);
  EXPECT_LE(track.At(seenS).value(), told + 0.5);
  EXPECT_NEAR(track.At(seenS).value(), even, 0.5);
}

TEST(BearingTrack, AnUnevenTurnIsFollowedWithinTheStepOrTheWayBetweenTwoQuestions) {
  for (const ErrorRow& row :
       {ErrorRow{0.2, 1, 0.2, 0.7, 0.2}, ErrorRow{0.2, 0.1, 0.2, 0.15, 0.04},
        ErrorRow{0.2, 4, 0.2, 1.6, 0.35}, ErrorRow{0.3, 1, 0.1, 0.6, 0.15}, ErrorRow{0.3, 1, 0.5, 1.1, 0.25},
        ErrorRow{0.3, 4, 0.5, 2.3, 0.6}, ErrorRow{0, 1, 0.2, 0.7, 0.2}, ErrorRow{0.2, 1, 2, 3, 0.6}}) {
    for (const double degPerS : {6.0, -6.0}) {
      const Turning turning{
          .DegPerS = degPerS, .Swing = row.Swing, .RunUpS = 2, .ResolutionDeg = row.ResolutionDeg};
      const TurningAntenna antenna(turning);
      BearingTrack track;
      for (double t = 0; t < antenna.EndS(); t += row.PollS) track.Add(t, antenna.ToldDeg(t));
      double most = 0, squares = 0;
      int count = 0;
      for (double t = 0; t < track.LastS(); t += 0.01, ++count) {
        const double error = track.At(t).value() - antenna.Deg(t);
        most = std::max(most, std::abs(error));
        squares += error * error;
      }
      EXPECT_LT(most, row.MostDeg) << row.ResolutionDeg << " deg, " << row.PollS << " s";
      EXPECT_LT(std::sqrt(squares / count), row.MostRmsDeg)
          << row.ResolutionDeg << " deg, " << row.PollS << " s";
    }
  }
}

TEST(BearingTrack, AStandingAntennaStaysWithinItsCell) {
  BearingTrack track;
  double t = 0;
  for (; t < 20; t += 0.2) track.Add(t, 90);
  for (double deg = 90; deg < 100; deg += 1, t += 0.2) track.Add(t, deg);
  for (double until = t + 30; t < until; t += 0.2) track.Add(t, 100);
  for (double at = 0; at < 19; at += 0.5) EXPECT_NEAR(track.At(at).value(), 90, 0.51);
  for (double at = 23; at < 50; at += 0.5) EXPECT_NEAR(track.At(at).value(), 100, 0.51);
}

TEST(BearingTrack, AFastRotatorThatStopsBetweenSlowQuestionsIsWhereItSaysAtOnce) {
  // 9 degrees a second, a question every 2 seconds, in whole degrees.
  const BearingTrack track =
      TrackOf({{0, 0}, {2, 1}, {4, 19}, {6, 37}, {8, 37}, {10, 37}, {12, 37}, {14, 55}, {16, 73}});
  for (const double t : {6.0, 7.0, 9.0, 11.0, 12.0}) EXPECT_NEAR(track.At(t).value(), 37, 0.51) << t;
  EXPECT_NEAR(track.At(13).value(), 46, 0.51);
}

TEST(BearingTrack, GoingBackIsFollowed) {
  Turning forth{.WayDeg = 60}, back{.DegPerS = -6, .FromDeg = 60, .WayDeg = 30};
  const TurningAntenna first(forth), second(back);
  BearingTrack track;
  for (double t = 0; t < 10; t += 0.2) track.Add(t, first.ToldDeg(t));
  for (double t = 10; t < 15; t += 0.2) track.Add(t, second.ToldDeg(t - 10));
  EXPECT_NEAR(track.At(5).value(), 30, 0.8);
  EXPECT_NEAR(track.At(12.5).value(), 45, 0.8);
}

TEST(BearingTrack, AJumpIsNotTurnedThroughButPassed) {
  BearingTrack track;
  double t = 0;
  for (double deg = 0; deg < 100; deg += 1.2, t += 0.2) track.Add(t, std::round(deg));
  const double jumps = t;
  for (double deg = 140; deg < 200; deg += 1.2, t += 0.2) track.Add(t, std::round(deg));
  EXPECT_EQ(track.At(jumps - 0.1), std::nullopt);
  EXPECT_TRUE(track.At(jumps - 0.3));
  EXPECT_TRUE(track.At(jumps + 0.1));
  const auto pieces = track.Pieces();
  const auto unknown =
      std::count_if(pieces.begin(), pieces.end(), [](const auto& piece) { return !piece.Known; });
  EXPECT_EQ(unknown, 1);
  EXPECT_NEAR(pieces.back().ToDeg, 199, 1.5);
}

TEST(BearingTrack, AFastRotatorAskedSeldomDoesNotJump) {
  const Turning turning{.DegPerS = 36, .Swing = 0.2, .RunUpS = 0.5};
  const TurningAntenna antenna(turning);
  BearingTrack track;
  for (double t = 0; t < antenna.EndS(); t += 0.5) track.Add(t, antenna.ToldDeg(t));
  for (const auto& piece : track.Pieces()) EXPECT_TRUE(piece.Known);
}

TEST(BearingTrack, CoarseStepsAreNoJumps) {
  const Turning turning{.Swing = 0.3, .ResolutionDeg = 4, .PollS = 0.1};
  const TurningAntenna antenna(turning);
  BearingTrack track;
  for (double t = 0; t < antenna.EndS(); t += 0.1) track.Add(t, antenna.ToldDeg(t));
  for (const auto& piece : track.Pieces()) EXPECT_TRUE(piece.Known);
}

TEST(BearingTrack, WithoutAnswersForMoreThanThreeSecondsNobodyKnowsWhenItWasPassed) {
  const BearingTrack track = TrackOf({{0, 0}, {0.2, 1}, {0.4, 2}, {3.5, 20}, {3.7, 21}});
  EXPECT_EQ(track.At(2), std::nullopt);
  EXPECT_TRUE(track.At(0.35));
  EXPECT_TRUE(track.At(3.6));
  const BearingTrack patient = TrackOf({{0, 0}, {0.2, 1}, {0.4, 2}, {3.4, 20}});
  EXPECT_TRUE(patient.At(2));
}

TEST(BearingTrack, TimeThatStandsStillOrGoesBackSaysNothing) {
  const BearingTrack track = TrackOf({{1, 10}, {1, 50}, {0.5, 60}, {1.2, 11}});
  EXPECT_EQ(track.LastDeg(), 11);
  EXPECT_DOUBLE_EQ(track.At(1.1).value(), 10.5);
}

}  // namespace
}  // namespace lobegraph
