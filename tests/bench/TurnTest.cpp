#include "bench/Turn.h"

#include <gmock/gmock.h>

#include <cmath>

namespace lobegraph {
namespace {

double Steady(double) { return 0.5; }

TurnSettings TenSeconds() {
  TurnSettings settings;
  settings.SecondsPerTurn = 10;
  settings.StartBearingDeg = 0;
  return settings;
}

TEST(TurnTest, TheAntennaTurnsEvenlyFromItsStartBearing) {
  TurnSettings settings = TenSeconds();
  settings.StartBearingDeg = 270;
  const Turn turn(settings, &Steady);
  EXPECT_DOUBLE_EQ(turn.BearingDeg(0), 270);
  EXPECT_DOUBLE_EQ(turn.BearingDeg(2.5), 0);
  EXPECT_DOUBLE_EQ(turn.BearingDeg(5), 90);
  EXPECT_DOUBLE_EQ(turn.BearingDeg(12.5), 0);
}

TEST(TurnTest, ANegativeStartBearingIsTheSamePlace) {
  TurnSettings settings = TenSeconds();
  settings.StartBearingDeg = -90;
  EXPECT_DOUBLE_EQ(Turn(settings, &Steady).BearingDeg(0), 270);
}

TEST(TurnTest, TheLevelIsPeakTimesVoltage) {
  Turn turn(TenSeconds(), [](double bearing) { return bearing / 360; });
  EXPECT_DOUBLE_EQ(turn.Level(0), 0);
  EXPECT_DOUBLE_EQ(turn.Level(5), 450);
  EXPECT_DOUBLE_EQ(turn.TrueLevel(7.5), 675);
}

TEST(TurnTest, ALongRunRepeatsThePattern) {
  Turn turn(TenSeconds(), AntennaNamed("beam").Voltage);
  EXPECT_FALSE(turn.Over(1e6));
  for (double seconds = 0; seconds < 10; seconds += 0.25)
    EXPECT_NEAR(turn.TrueLevel(seconds), turn.TrueLevel(seconds + 30), 1e-6);
  EXPECT_EQ(turn.TurnsDone(9.9), 0);
  EXPECT_EQ(turn.TurnsDone(30.1), 3);
}

TEST(TurnTest, AfterTheLastTurnNothingIsHeard) {
  TurnSettings settings = TenSeconds();
  settings.Turns = 2;
  Turn turn(settings, &Steady);
  EXPECT_FALSE(turn.Over(19.99));
  EXPECT_EQ(turn.Level(19.99), 450);
  EXPECT_TRUE(turn.Over(20));
  EXPECT_EQ(turn.Level(20), 0);
}

TEST(TurnTest, SilenceComesBeforeTheTurnAndDoesNotShortenIt) {
  TurnSettings settings = TenSeconds();
  settings.SilenceSeconds = 3;
  settings.Turns = 1;
  Turn turn(settings, &Steady);
  EXPECT_EQ(turn.Level(2.99), 0);
  EXPECT_TRUE(turn.Silent(2.99));
  EXPECT_DOUBLE_EQ(turn.BearingDeg(2), 0);
  EXPECT_EQ(turn.Level(3), 450);
  EXPECT_FALSE(turn.Over(12.99));
  EXPECT_TRUE(turn.Over(13));
}

TEST(TurnTest, NoiseHasTheRmsThatWasAskedForAndHoldsFor10Milliseconds) {
  TurnSettings settings = TenSeconds();
  settings.NoiseDb = 0.5;
  Turn turn(settings, &Steady);
  double sum = 0, squares = 0;
  constexpr int kDraws = 20000;
  for (int draw = 0; draw < kDraws; ++draw) {
    const double level = turn.Level(draw * 0.01 + 0.001);
    EXPECT_EQ(turn.Level(draw * 0.01 + 0.009), level);
    const double db = 20 * std::log10(level / 450);
    sum += db;
    squares += db * db;
  }
  EXPECT_NEAR(sum / kDraws, 0, 0.02);
  EXPECT_NEAR(std::sqrt(squares / kDraws), 0.5, 0.02);
}

TEST(TurnTest, TheSameSeedGivesTheSameDisturbance) {
  TurnSettings settings = TenSeconds();
  settings.NoiseDb = 1;
  settings.SpikesPerTurn = 5;
  settings.Seed = 7;
  const auto levels = [&settings] {
    Turn turn(settings, &Steady);
    std::vector<double> heard;
    for (int k = 0; k < 1000; ++k) heard.push_back(turn.Level(k * 0.01));
    return heard;
  };
  const auto first = levels();
  EXPECT_EQ(levels(), first);
  settings.Seed = 8;
  EXPECT_NE(levels(), first);
}

int SpikesIn(Turn& turn, int turnNumber, double steady, double spiked) {
  int spikes = 0;
  bool before = false;
  for (int slot = 0; slot < 360; ++slot) {
    const double level = turn.Level(turnNumber * 10 + (slot + 0.5) * 10 / 360);
    EXPECT_TRUE(level == steady || level == spiked) << level;
    const bool now = level == spiked;
    EXPECT_FALSE(now && before) << "a spike stands alone: the slots beside it are undisturbed";
    spikes += now;
    before = now;
  }
  return spikes;
}

TEST(TurnTest, SpikesStandAloneAsOftenAsAskedForInEveryTurn) {
  for (const int wanted : {0, 1, 12, Turn::kMostSpikes}) {
    TurnSettings settings = TenSeconds();
    settings.SpikesPerTurn = wanted;
    Turn turn(settings, &Steady);
    for (int number = 0; number < 3; ++number) EXPECT_EQ(SpikesIn(turn, number, 450, 650), wanted);
  }
}

TEST(TurnTest, ASpikeGoesDownWhereThereIsNoRoomAbove) {
  TurnSettings settings = TenSeconds();
  settings.SpikesPerTurn = 12;
  Turn turn(settings, [](double) { return 1; });
  EXPECT_EQ(SpikesIn(turn, 0, 900, 700), 12);
}

TEST(TurnTest, NoLevelIsHigherThanSamplesCanCarry) {
  TurnSettings settings = TenSeconds();
  settings.PeakLevel = 1023;
  settings.NoiseDb = 20;
  Turn turn(settings, [](double) { return 1; });
  for (int k = 0; k < 1000; ++k) {
    const double level = turn.Level(k * 0.01);
    EXPECT_LE(level, Turn::kHighestLevel);
    EXPECT_GE(level, 0);
  }
}

TEST(Turn, AnAntennaThatSomebodyElseTurnsIsHeardInTheDirectionOfTheSignal) {
  Turn turn(TurnSettings{}, [](double direction) { return direction == 330 ? 1.0 : 0.25; });
  double heading = 0;
  turn.Follow([&](double) { return 0 - heading; });
  EXPECT_EQ(turn.TrueLevel(1), 225);
  heading = 30;
  EXPECT_EQ(turn.TrueLevel(2), 900);
  EXPECT_EQ(turn.BearingDeg(2), 330);
}

}  // namespace
}  // namespace lobegraph
