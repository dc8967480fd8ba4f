#include "bench/rotator/Motor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

constexpr double kStart = 50;
constexpr double kReacts = Motor::kReactsS;

MotorSettings Wide() { return {.LowestDeg = -180, .HighestDeg = 450}; }

TEST(Motor, StandsUntilItIsTold) {
  Motor motor(Wide(), kStart);
  EXPECT_EQ(motor.DegAt(kStart), 0);
  EXPECT_EQ(motor.DegAt(kStart + 30), 0);
}

TEST(Motor, TurnsAtItsSpeedAndStops) {
  Motor motor(Wide(), kStart);
  motor.Turn(true, kStart);
  EXPECT_NEAR(motor.DegAt(kStart + kReacts), 0, 0.02);
  EXPECT_NEAR(motor.DegAt(kStart + kReacts + 10), 60, 0.02);
  motor.Stop(kStart + 10);
  EXPECT_NEAR(motor.DegAt(kStart + 20), 60, 0.02) << "after the time that it takes to obey";
  motor.Turn(false, kStart + 20);
  EXPECT_NEAR(motor.DegAt(kStart + 30), 60 - 6 * (10 - kReacts), 0.02);
}

TEST(Motor, GoesWhereItIsSentAndStaysThere) {
  Motor motor(Wide(), kStart);
  motor.GoTo(-45, kStart);
  EXPECT_NEAR(motor.DegAt(kStart + kReacts + 5), -30, 0.02);
  EXPECT_EQ(motor.DegAt(kStart + 9), -45);
  motor.GoTo(1000, kStart + 10);
  EXPECT_EQ(motor.DegAt(kStart + 200), 450) << "it has an end";
  MotorSettings parks = Wide();
  parks.ParkDeg = 30;
  Motor parked(parks, kStart);
  parked.Park(kStart);
  EXPECT_EQ(parked.DegAt(kStart + 10), 30);
}

TEST(Motor, RunsUpAndDown) {
  MotorSettings settings = Wide();
  settings.RunUpS = settings.RunDownS = 2;
  Motor motor(settings, kStart);
  motor.Turn(true, kStart);
  EXPECT_NEAR(motor.DegAt(kStart + kReacts + 1), 1.5, 0.02);
  EXPECT_NEAR(motor.DegAt(kStart + kReacts + 2), 6, 0.02);
  EXPECT_NEAR(motor.DegAt(kStart + kReacts + 4), 18, 0.03);
  motor.Stop(kStart + 4);
  EXPECT_NEAR(motor.DegAt(kStart + 20), 24, 0.05) << "half its speed for two seconds more";
  motor.GoTo(100, kStart + 20);
  EXPECT_NEAR(motor.DegAt(kStart + 40), 100, 0.01) << "braked in time";
}

TEST(Motor, SwingsOnceATurn) {
  MotorSettings settings = Wide();
  settings.SwingShare = 0.2;
  Motor motor(settings, kStart);
  motor.Turn(true, kStart);
  double slowest = 100, fastest = 0;
  for (double t = kStart + 1; t < kStart + 60; t += 0.1) {
    const double speed = (motor.DegAt(t + 0.1) - motor.DegAt(t)) / 0.1;
    slowest = std::min(slowest, speed);
    fastest = std::max(fastest, speed);
  }
  EXPECT_NEAR(slowest, 4.8, 0.05);
  EXPECT_NEAR(fastest, 7.2, 0.05);
}

TEST(Motor, HasItsEndsItsStallsAndItsWiresExchanged) {
  MotorSettings settings = Wide();
  settings.StallAtDeg = 30;
  Motor stalls(settings, kStart);
  stalls.Turn(true, kStart);
  EXPECT_EQ(stalls.DegAt(kStart + 20), 30);
  settings = Wide();
  settings.Reversed = true;
  Motor reversed(settings, kStart);
  reversed.Turn(true, kStart);
  EXPECT_NEAR(reversed.DegAt(kStart + kReacts + 5), -30, 0.02);
  reversed.GoTo(90, kStart + 6);
  EXPECT_EQ(reversed.DegAt(kStart + 60), -180) << "it runs away";
}

TEST(Motor, RemembersSecondsAndKnowsALittleAhead) {
  Motor motor(Wide(), kStart);
  motor.Turn(true, kStart);
  const double ahead = motor.DegAt(kStart + 10.1);
  motor.Stop(kStart + 10);
  EXPECT_EQ(motor.DegAt(kStart + 10.1), ahead) << "what was played ahead stays true";
  EXPECT_NEAR(motor.DegAt(kStart + 8), 6 * (8 - kReacts), 0.02);
  motor.DegAt(kStart + 60);
  EXPECT_NEAR(motor.DegAt(kStart + 1), 60, 0.05) << "the oldest it knows";
  EXPECT_NEAR(motor.DegAt(kStart + 1e6), 60, 0.05) << "years later";
}

}  // namespace
}  // namespace lobegraph
