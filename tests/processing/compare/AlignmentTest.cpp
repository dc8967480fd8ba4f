#include "processing/compare/Alignment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace lobegraph {
namespace {

double Lopsided(double degrees) {
  const double radians = degrees * std::numbers::pi / 180.0;
  const double level = std::pow((1.0 + std::cos(radians)) / 2.0, 4.0) +
                       0.08 * (1.0 + std::cos(3.0 * radians + 1.0)) / 2.0 + 0.01;
  return 20.0 * std::log10(level / 1.1);
}

PatternCut CutOfTurn(int readings, double startDeg, double antennaDeg) {
  PatternCut cut;
  cut.StepDeg = 360.0 / readings;
  cut.StartDeg = startDeg;
  for (int i = 0; i < readings; ++i) cut.LevelDb.push_back(Lopsided(startDeg + i * cut.StepDeg - antennaDeg));
  const double strongest = *std::max_element(cut.LevelDb.begin(), cut.LevelDb.end());
  for (double& level : cut.LevelDb) level -= strongest;
  return cut;
}

DegreeLevels Turn(double antennaDeg) { return ByDegrees(CutOfTurn(360, 0.0, antennaDeg)); }

TEST(DegreeLevelsTest, AreTheReadingsWhereTheyStandOnThePlot) {
  const PatternCut cut = CutOfTurn(360, 90.0, 0.0);
  const DegreeLevels levels = ByDegrees(cut);
  EXPECT_DOUBLE_EQ(levels[90], cut.LevelDb[0]);
  EXPECT_DOUBLE_EQ(levels[89], cut.LevelDb[359]);
  EXPECT_DOUBLE_EQ(levels[0], cut.LevelDb[270]);
}

TEST(DegreeLevelsTest, AnyNumberOfReadingsMakesATurn) {
  for (const int readings : {90, 180, 341, 360, 361}) {
    const DegreeLevels levels = ByDegrees(CutOfTurn(readings, 33.0, 120.0));
    for (const int degree : {0, 100, 120, 200, 359})
      EXPECT_NEAR(levels[static_cast<std::size_t>(degree)] - levels[120],
                  Lopsided(degree - 120.0) - Lopsided(0.0), 0.3)
          << readings << " readings, " << degree << " degrees";
  }
  EXPECT_EQ(ByDegrees({.LevelDb = {-3.0}, .StepDeg = 360.0}), [] {
    DegreeLevels all{};
    all.fill(-3.0);
    return all;
  }());
}

TEST(DegreeLevelsTest, BetweenDegreesTheLevelIsAStraightLine) {
  DegreeLevels levels{};
  levels[0] = -2.0;
  levels[359] = -6.0;
  EXPECT_DOUBLE_EQ(LevelAtDeg(levels, -0.5), -4.0);
  EXPECT_DOUBLE_EQ(LevelAtDeg(levels, 719.75), -3.0);
  EXPECT_DOUBLE_EQ(Turned(levels, 1.0)[1], -2.0) << "clockwise";
}

TEST(AlignmentTest, FindsByHowMuchATurnIsTurned) {
  for (const double degrees : {0.0, 7.0, 33.4, -90.25, 179.7}) {
    const Alignment alignment = AlignmentOf(Turn(0.0), Turn(-degrees));
    EXPECT_NEAR(std::remainder(alignment.TurnDeg - degrees, 360.0), 0.0, 0.1) << degrees;
    EXPECT_NEAR(alignment.OffsetDb, 0.0, 0.05);
  }
}

TEST(AlignmentTest, LevelsAreBroughtTogether) {
  DegreeLevels other = Turn(0.0);
  for (double& level : other) level -= 2.5;
  EXPECT_NEAR(AlignmentOf(Turn(0.0), other).OffsetDb, 2.5, 1e-6);
}

TEST(AlignmentTest, DeepNullsDecideNothing) {
  DegreeLevels other = Turn(-20.0);
  for (std::size_t i = 200; i < 230; ++i) other[i] = -300.0;
  EXPECT_NEAR(AlignmentOf(Turn(0.0), other).TurnDeg, 20.0, 3.0);
}

TEST(AlignmentTest, ACircleMatchesAsItIs) {
  DegreeLevels circle{};
  const Alignment alignment = AlignmentOf(circle, circle);
  EXPECT_EQ(alignment.TurnDeg, 0.0);
  EXPECT_EQ(alignment.OffsetDb, 0.0);
}

TEST(RepeatedTest, MeanAndDeviationOfTurnsThatLieElsewhereAndAreNoisy) {
  std::mt19937 random(1);
  std::normal_distribution<double> noise(0.0, 0.3);
  std::vector<DegreeLevels> turns;
  for (const double turned : {0.0, 40.0, -75.5, 180.0, 3.3, 9.0}) {
    turns.push_back(Turn(turned));
    for (double& level : turns.back()) level += noise(random);
  }
  const RepeatedTurns repeated = Repeated(turns);
  ASSERT_EQ(repeated.Alignments.size(), 6U);
  EXPECT_EQ(repeated.Alignments[0].TurnDeg, 0.0);
  EXPECT_NEAR(repeated.Alignments[2].TurnDeg, 75.5, 0.3);
  double deviation = 0.0;
  for (std::size_t i = 0; i < 360; ++i) {
    deviation += repeated.DeviationDb[i] / 360.0;
    if (Turn(0.0)[i] > -20.0) {
      EXPECT_NEAR(repeated.MeanDb[i], Turn(0.0)[i], 0.8) << i;
    }
  }
  EXPECT_NEAR(deviation, 0.28, 0.06);
  EXPECT_EQ(*std::ranges::max_element(repeated.MeanDb), 0.0);
}

TEST(RepeatedTest, OneTurnIsItsOwnMean) {
  const std::vector<DegreeLevels> turns{Turn(10.0)};
  const RepeatedTurns repeated = Repeated(turns);
  EXPECT_EQ(repeated.MeanDb, turns[0]);
  EXPECT_EQ(repeated.DeviationDb, DegreeLevels{});
}

}  // namespace
}  // namespace lobegraph
