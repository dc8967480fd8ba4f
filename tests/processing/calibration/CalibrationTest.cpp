#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "processing/calibration/CalibratedLevel.h"
#include "processing/calibration/CalibrationSteps.h"

namespace lobegraph {
namespace {

CalibrationTable Half() { return *CalibrationOutcome::Of({{-60, -30}, {-30, -15}, {0, 0}}).Table; }

TEST(CalibratedLevelTest, WithoutATableALevelIsTheSameToTheBit) {
  for (const float level : {0.0F, 1.0F, 123.456F, 1000.0F}) {
    const float calibrated = CalibratedLevel({}, level);
    EXPECT_EQ(std::memcmp(&calibrated, &level, sizeof level), 0);
  }
  EXPECT_EQ(CalibratedMeterDb({}, 33.3F), 33.3F);
}

TEST(CalibratedLevelTest, LevelAndMeterValueAgree) {
  for (const float meterDb : {0.0F, 12.3F, 45.6F, 60.0F}) {
    const float level = static_cast<float>(1000.0 * std::pow(10.0, (meterDb - 60.0) / 20.0));
    const float calibratedDb = CalibratedMeterDb(Half(), meterDb);
    EXPECT_NEAR(CalibratedLevel(Half(), level), 1000.0 * std::pow(10.0, (calibratedDb - 60.0) / 20.0), 0.01);
  }
}

TEST(CalibratedLevelTest, FollowsTheTable) {
  EXPECT_NEAR(CalibratedLevel(Half(), 100.0F), 316.2F, 0.1F) << "-20 dB heard is -10 dB";
  EXPECT_NEAR(CalibratedMeterDb(Half(), 40.0F), 50.0F, 1e-4F);
}

TEST(CalibratedLevelTest, StaysAtTheBottomOfTheRange) {
  const auto steep = *CalibrationOutcome::Of({{-20, -40}, {-10, -20}, {0, 0}}).Table;
  EXPECT_EQ(CalibratedLevel(steep, 1.0F), 1.0F);
  EXPECT_EQ(CalibratedMeterDb(steep, 5.0F), 0.0F);
  EXPECT_EQ(CalibratedLevel(steep, 0.0F), 0.0F) << "silence stays silence";
}

TEST(CalibrationStepsTest, AsksForOneSettingAfterTheOther) {
  CalibrationSteps steps(10.0);
  EXPECT_EQ(steps.Prompt(), "Set the attenuator to 0 dB, then Take.");
  EXPECT_EQ(steps.Take(0.0, {900.0}), "");
  EXPECT_EQ(steps.Prompt(), "Set the attenuator to 10 dB, then Take.");
  EXPECT_EQ(steps.Take(12.5, {300.0}), "") << "another value was typed";
  EXPECT_EQ(steps.Prompt(), "Set the attenuator to 22.5 dB, then Take.");
}

TEST(CalibrationStepsTest, ThreePointsMakeATableThatKeepsTheLoudestLevel) {
  CalibrationSteps steps(10.0);
  EXPECT_EQ(steps.Take(0.0, {500.0}), "");
  EXPECT_EQ(steps.Take(10.0, {300.0}), "");
  EXPECT_EQ(steps.Outcome().Refusal, "A calibration needs at least 3 points; 2 taken so far.");
  EXPECT_EQ(steps.Take(20.0, {100.0}), "");
  const CalibrationOutcome outcome = steps.Outcome();
  ASSERT_TRUE(outcome.Table);
  EXPECT_NEAR(CalibratedLevel(*outcome.Table, 500.0F), 500.0F, 0.01F);
  EXPECT_NEAR(CalibratedLevel(*outcome.Table, 300.0F), 158.1F, 0.1F);
  EXPECT_NEAR(CalibratedLevel(*outcome.Table, 100.0F), 50.0F, 0.1F);
}

TEST(CalibrationStepsTest, ALevelThatRisesIsRefusedAndWhatWasTakenStays) {
  CalibrationSteps steps(10.0);
  steps.Take(0.0, {500.0});
  steps.Take(10.0, {300.0});
  EXPECT_EQ(
      steps.Take(20.0, {310.0}),
      "At 20 dB the level (-10.2 dB) does not lie between its neighbours: the receiver's AGC is on, or the "
      "attenuator is not there yet.");
  EXPECT_NE(steps.Take(5.0, {200.0}), "") << "below a neighbour that is attenuated more";
  EXPECT_NE(steps.Take(20.0, {300.0}), "") << "the same level for two settings";
  EXPECT_EQ(steps.Steps().size(), 2U);
}

TEST(CalibrationStepsTest, ASettingIsTakenAnew) {
  CalibrationSteps steps(10.0);
  steps.Take(0.0, {500.0});
  steps.Take(10.0, {300.0});
  EXPECT_EQ(steps.Take(10.0, {350.0}), "");
  ASSERT_EQ(steps.Steps().size(), 2U);
  EXPECT_NEAR(steps.Steps()[1].HeardDb, -9.12, 0.01);
}

TEST(CalibrationStepsTest, WhatCannotBeMeasuredIsRefused) {
  CalibrationSteps steps(10.0);
  EXPECT_EQ(steps.Take(0.0, {.Level = 900.0, .Clipped = true}),
            "The sound is clipped: turn the audio down and begin anew.");
  EXPECT_EQ(steps.Take(0.0, {.Level = 900.0, .Steady = false}),
            "The level does not stand still: wait, or use a steady signal.");
  EXPECT_EQ(steps.Take(60.0, {1.0}), "Nothing is heard at 60 dB: end with the points taken so far.");
  EXPECT_EQ(steps.Take(201.0, {500.0}), "No attenuator has 201 dB.");
  EXPECT_EQ(steps.Take(std::nan(""), {500.0}).substr(0, 13), "No attenuator");
  EXPECT_TRUE(steps.Steps().empty());
}

TEST(CalibrationStepsTest, TheLastPointIsTakenBack) {
  CalibrationSteps steps(10.0);
  EXPECT_FALSE(steps.TakeBack());
  steps.Take(0.0, {500.0});
  steps.Take(10.0, {300.0});
  EXPECT_TRUE(steps.TakeBack());
  EXPECT_EQ(steps.Prompt(), "Set the attenuator to 10 dB, then Take.");
  EXPECT_EQ(steps.Steps().size(), 1U);
}

}  // namespace
}  // namespace lobegraph
