#include "settings/SettingsWriter.h"

#include <gmock/gmock.h>

#include "data/base/RunTimeError.h"
#include "settings/SettingsReader.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class SettingsWriterTest : public ::testing::Test {
 protected:
  SettingsWriterTest() : values_(ReadSettings(store_)) { store_.Log.clear(); }
  RecordingStore store_;
  SettingsValues values_;
};

TEST_F(SettingsWriterTest, TheMainWindowSavesItsOwnKeysInOrder) {
  values_.AutoStart = 1;
  values_.Trigger = 2;
  values_.LinearMode = true;
  values_.ShowLogScale = false;
  EXPECT_TRUE(SaveMainWindowSettings(store_, values_));
  EXPECT_THAT(store_.Log,
              ElementsAre("save Scale=35", "save RotateTime=60", "save AutoStart=1", "save AutoStop=0",
                          "save Trigger=2", "save LinearMode=True", "save ShowLogScale=False"));
}

TEST_F(SettingsWriterTest, TheSettingsDialogSavesItsOwnKeysInOrder) {
  values_.DetectStartLevel = 40.9F;
  values_.DetectStopLevel = .5F;
  values_.MaxRotationTime = "20";
  EXPECT_TRUE(SaveDialogSettings(store_, values_));
  EXPECT_THAT(
      store_.Log,
      ElementsAre("save PlotUserColour=8388608", "save PlotUserOverlayColour=65535",
                  "save PlotLineColour=128", "save PlotLineOverlayColour=32768", "save PlotGridColour=0",
                  "save PlotBackground=14737632", "save DetectStopNumberOfReadings=5",
                  "save DetectStopLevel=0.5", "save DetectStartLevel=40.9", "save StartupDelay=0.25",
                  "save PeakInputLevel=1000", "save SpikeDetectLevel=50", "save MaxRotationTime=20"));
}

TEST_F(SettingsWriterTest, TheInputChooserSavesItsOwnKeysInOrder) {
  EXPECT_TRUE(SaveInputChoice(store_, {.InputDeviceIsLineIn = false,
                                       .InputDeviceIsdBMeter = true,
                                       .ROSKAmeter = true,
                                       .Commport = 3,
                                       .Commtrigger = 32}));
  EXPECT_THAT(store_.Log,
              ElementsAre("save InputDeviceIsLineIn=False", "save InputDeviceIsdBMeter=True",
                          "save ROSKAmeter=True", "save GaugeBridge=False", "save GaugeBridgeTrigger=False",
                          "save Commport=3", "save Commtrigger=32"));
}

TEST_F(SettingsWriterTest, CalibrationAndCallSignSaveOneKeyEach) {
  EXPECT_TRUE(SaveCalibration(store_, -37.F));
  EXPECT_TRUE(SaveUsername(store_, "N0CALL"));
  EXPECT_TRUE(SaveUsername(store_, ""));
  EXPECT_THAT(store_.Log, ElementsAre("save dBCalAdjust0dB=-37", "save Username=N0CALL", "save Username="));
  EXPECT_EQ(ReadUsername(store_), "") << "a cancelled prompt does not come back at the next start";
}

TEST_F(SettingsWriterTest, AFailureIsReportedAndTheOtherKeysAreTried) {
  store_.FailsToSave = true;
  EXPECT_FALSE(SaveMainWindowSettings(store_, values_));
  EXPECT_FALSE(SaveCalibration(store_, 1.F));
  EXPECT_THAT(store_.Log, SizeIs(8));
}

TEST_F(SettingsWriterTest, CancelOfTheSettingsDialogTakesItsKeysBack) {
  const SettingsValues before = values_;
  values_.PlotUserColour = values_.PlotUserOverlayColour = values_.PlotLineColour = 1;
  values_.PlotLineOverlayColour = values_.PlotGridColour = values_.PlotBackground = 2;
  values_.StartupDelay = {};
  values_.DetectStartLevel = values_.DetectStopLevel = values_.PeakInputLevel = 3.F;
  values_.DetectStopNumberOfReadings = values_.SpikeDetectLevel = 4;
  values_.MaxRotationTime = "5";
  ReloadDialogSettings(store_, values_);
  EXPECT_EQ(values_, before);
  EXPECT_THAT(store_.Log, ElementsAre("get PlotUserColour", "get PlotUserOverlayColour", "get PlotLineColour",
                                      "get PlotLineOverlayColour", "get PlotGridColour", "get PlotBackground",
                                      "get StartupDelay", "get DetectStartLevel", "get DetectStopLevel",
                                      "get DetectStopNumberOfReadings", "get PeakInputLevel",
                                      "get SpikeDetectLevel", "get MaxRotationTime"))
      << "and writes nothing";
}

TEST_F(SettingsWriterTest, CancelOfTheSettingsDialogLeavesEverythingElse) {
  values_.Username = "N0CALL";
  values_.Scale = values_.RotateTime = values_.AutoStart = values_.AutoStop = values_.Trigger = 1;
  values_.LinearMode = true;
  values_.dBCalAdjust0dB = 9.F;
  values_.Input.Commport = 7;
  const SettingsValues before = values_;
  ReloadDialogSettings(store_, values_);
  EXPECT_EQ(values_, before);
}

TEST_F(SettingsWriterTest, CancelOfTheSettingsDialogReadsWhatIsStored) {
  store_.Put("PeakInputLevel", "500");
  ReloadDialogSettings(store_, values_);
  EXPECT_EQ(values_.PeakInputLevel, 500.F);
}

TEST_F(SettingsWriterTest, CancelOfTheInputChooserTakesTheChoiceBackButNotThePorts) {
  store_.Put("GaugeBridge", "True");
  InputChoice choice{.InputDeviceIsLineIn = false,
                     .InputDeviceIsdBMeter = true,
                     .ROSKAmeter = true,
                     .GaugeBridgeTrigger = true,
                     .Commport = 3,
                     .Commtrigger = 4};
  ReloadInputChoice(store_, choice);
  EXPECT_EQ(choice,
            (InputChoice{.InputDeviceIsLineIn = true, .GaugeBridge = true, .Commport = 3, .Commtrigger = 4}));
  EXPECT_THAT(store_.Log, ElementsAre("get InputDeviceIsLineIn", "get InputDeviceIsdBMeter", "get ROSKAmeter",
                                      "get GaugeBridge", "get GaugeBridgeTrigger"));
}

}  // namespace
}  // namespace lobegraph
