// The table of level sources: which one a store chooses, what choosing sets, how it is named.
#include "acquisition/meters/LevelSource.h"

#include <gmock/gmock.h>

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

std::string_view Delivering(const InputChoice& choice) { return SourceOf(choice).Name; }

TEST(LevelSources, StandInTheOrderOfTheChoosersOptions) {
  std::vector<std::string_view> captions;
  for (const LevelSource& source : LevelSources()) captions.push_back(source.Caption);
  EXPECT_THAT(captions, ElementsAre("Microphone", "Line-in", "TARVEN meter without using TarvenMeter program",
                                    "ROSKA Wattscan meter", "LP-100-VCP or TarvenMeter or GaugeBridge"));
}

TEST(LevelSources, ChoosingOneClearsTheFlagsOfEveryOther) {
  for (const LevelSource& before : LevelSources()) {
    for (const LevelSource& source : LevelSources()) {
      InputChoice choice{.GaugeBridgeTrigger = true, .Commport = 3, .Commtrigger = 4};
      Choose(before, choice);
      Choose(source, choice);
      EXPECT_EQ(&SourceOf(choice), &source);
      EXPECT_EQ(&SourceToTick(choice), &source);
      EXPECT_TRUE(choice.GaugeBridgeTrigger);
      EXPECT_EQ(choice.Commport, 3);
      EXPECT_EQ(choice.Commtrigger, 4);
    }
  }
}

TEST(LevelSources, OfAStoreWithSeveralFlagsTheProgramDeliversAndDeliberatelyRoskaIsTicked) {
  const InputChoice all{
      .InputDeviceIsLineIn = true, .InputDeviceIsdBMeter = true, .ROSKAmeter = true, .GaugeBridge = true};
  EXPECT_EQ(Delivering(all), "External meter program");
  EXPECT_EQ(SourceToTick(all).Name, "ROSKA, COM");
}

TEST(LevelSources, AMetersOwnFlagAloneDoesNotLeaveTheSoundCard) {
  EXPECT_EQ(Delivering({.ROSKAmeter = true, .GaugeBridge = true}), "Sound: line-in");
  EXPECT_EQ(Delivering({.InputDeviceIsLineIn = false, .ROSKAmeter = true}), "Sound: microphone");
  EXPECT_EQ(Delivering({.InputDeviceIsLineIn = true, .InputDeviceIsdBMeter = true}), "TARVEN, COM");
}

TEST(LevelSources, WhatNeedsAPortHasASpeedAndAProtocol) {
  for (const LevelSource& source : LevelSources()) {
    if (!source.NeedsPort) continue;
    EXPECT_FALSE(source.Baud.empty()) << source.Name;
    EXPECT_NE(source.Protocol, nullptr) << source.Name;
  }
}

TEST(SourceLabel, NamesTheChosenInput) {
  EXPECT_EQ(SourceLabel({}, ""), "Sound: line-in");
  EXPECT_EQ(SourceLabel({.InputDeviceIsLineIn = false}, ""), "Sound: microphone");
  EXPECT_EQ(SourceLabel({}, "Monitor of Receiver"), "Monitor of Receiver");
  EXPECT_EQ(SourceLabel({.InputDeviceIsdBMeter = true, .Commport = 3}, "x"), "TARVEN, COM3");
  EXPECT_EQ(SourceLabel({.InputDeviceIsdBMeter = true, .ROSKAmeter = true, .Commport = 3}, "x"),
            "ROSKA, COM3");
  EXPECT_EQ(SourceLabel({.InputDeviceIsdBMeter = true, .GaugeBridge = true}, "x"), "External meter program");
}

}  // namespace
}  // namespace lobegraph
