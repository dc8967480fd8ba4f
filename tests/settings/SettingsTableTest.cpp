#include "settings/SettingsTable.h"

#include <gmock/gmock.h>

#include <clocale>

#include "data/base/RunTimeError.h"
#include "settings/SettingsConversion.h"
#include "settings/SettingsReader.h"
#include "settings/SettingsWriter.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

/// The fault of an action, with what standard error would say; 0 for none.
struct Fault {
  int Number = 0;
  std::string Detail;
};
Fault FaultOf(const auto& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return {error.Number(), error.Detail()};
  }
  return {};
}

SettingsValues ReadWith(std::string_view key, std::string_view text) {
  RecordingStore store;
  store.Put(key, text);
  return ReadSettings(store);
}

int FaultOfReading(std::string_view key, std::string_view text) {
  return FaultOf([&] { ReadWith(key, text); }).Number;
}

TEST(SettingsTableTest, AnEmptyStoreGivesEachDefault) {
  RecordingStore store;
  const SettingsValues values = ReadSettings(store);
  EXPECT_EQ(values.Username, " ");
  EXPECT_EQ(values.Scale, 35);
  EXPECT_EQ(values.RotateTime, 60);
  EXPECT_EQ(values.AutoStart, 0);
  EXPECT_EQ(values.AutoStop, 0);
  EXPECT_EQ(values.StartupDelay, Currency::FromTenThousandths(2500));
  EXPECT_EQ(values.DetectStartLevel, 7.0F);
  EXPECT_EQ(values.DetectStopLevel, 7.0F);
  EXPECT_EQ(values.DetectStopNumberOfReadings, 5);
  EXPECT_EQ(values.Trigger, 0);
  EXPECT_EQ(values.dBCalAdjust0dB, 0.0F);
  EXPECT_FALSE(values.LinearMode);
  EXPECT_TRUE(values.ShowLogScale);
  EXPECT_EQ(values.PlotUserColour, 8388608);
  EXPECT_EQ(values.PlotUserOverlayColour, 65535);
  EXPECT_EQ(values.PlotGridColour, 0);
  EXPECT_EQ(values.PlotLineColour, 128);
  EXPECT_EQ(values.PlotLineOverlayColour, 32768);
  EXPECT_EQ(values.PlotBackground, 14737632);
  EXPECT_EQ(values.PeakInputLevel, 1000.0F);
  EXPECT_EQ(values.SpikeDetectLevel, 50);
  EXPECT_EQ(values.MaxRotationTime, "2");
  EXPECT_EQ(values.Input, InputChoice{.InputDeviceIsLineIn = true});
}

TEST(SettingsTableTest, ReadingFollowsTheOrderOfTheTable) {
  const auto inOrder = ElementsAre(
      "get Username", "get Scale", "get RotateTime", "get AutoStart", "get AutoStop", "get StartupDelay",
      "get DetectStartLevel", "get DetectStopLevel", "get DetectStopNumberOfReadings", "get Trigger",
      "get dBCalAdjust0dB", "get LinearMode", "get ShowLogScale", "get PlotUserColour",
      "get PlotUserOverlayColour", "get PlotGridColour", "get PlotLineColour", "get PlotLineOverlayColour",
      "get PlotBackground", "get PeakInputLevel", "get SpikeDetectLevel", "get MaxRotationTime",
      "get InputDeviceIsLineIn", "get InputDeviceIsdBMeter", "get ROSKAmeter", "get GaugeBridge",
      "get GaugeBridgeTrigger", "get Commport", "get Commtrigger");
  RecordingStore store;
  ReadSettings(store);
  EXPECT_THAT(store.Log, inOrder);
  store.Log.clear();
  SettingsValues values;
  EXPECT_EQ(ReadUsername(store), " ");
  EXPECT_THAT(store.Log, ElementsAre("get Username"))
      << "the call sign is asked for before anything else is read";
  ReadRemaining(store, values);
  EXPECT_THAT(store.Log, inOrder);
  EXPECT_EQ(values.Username, "") << "not touched by the rest";
}

struct TextCase {
  const char* Key;
  const char* Stored;
  const char* Again;  ///< the text of the value that was read
};

TEST(SettingsTableTest, StoredTextsAreReadAsLeadingNumbersRoundedToTheirTypes) {
  const TextCase cases[] = {
      {"Username", "  DL1 ", "  DL1 "},
      {"Username", "", ""},
      {"Scale", "35.5", "36"},
      {"Scale", "34.5", "34"},
      {"Scale", "  40 dB", "40"},
      {"Scale", "abc", "0"},
      {"Scale", "", "0"},
      {"Scale", "-3", "-3"},
      {"RotateTime", "600", "600"},
      {"RotateTime", "40000", "40000"},
      {"AutoStart", "2", "2"},
      {"AutoStop", "1", "1"},
      {"StartupDelay", "0.25", "0.25"},
      {"StartupDelay", ".1", "0.1"},
      {"StartupDelay", "0.00005", "0"},
      {"StartupDelay", "0.00015", "0.0002"},
      {"StartupDelay", "1", "1"},
      {"DetectStartLevel", "40.9", "40.9"},
      {"DetectStartLevel", "7,5", "7"},
      {"DetectStopLevel", "1e1x", "10"},
      {"DetectStopNumberOfReadings", "5.5", "6"},
      {"DetectStopNumberOfReadings", "32767.4", "32767"},
      {"Trigger", "1", "1"},
      {"dBCalAdjust0dB", "-12.5", "-12.5"},
      {"LinearMode", "true", "True"},
      {"LinearMode", "TRUE", "True"},
      {"LinearMode", "-1", "True"},
      {"LinearMode", "0.5", "True"},
      {"ShowLogScale", "fALSE", "False"},
      {"ShowLogScale", "0", "False"},
      {"ShowLogScale", " 0.0 ", "False"},
      {"PlotUserColour", "16711680", "16711680"},
      {"PlotUserOverlayColour", "16777215", "16777215"},
      {"PlotGridColour", "1", "1"},
      {"PlotLineColour", "255", "255"},
      {"PlotLineOverlayColour", "32768", "32768"},
      {"PlotBackground", "-2147483648", "-2147483648"},
      {"PeakInputLevel", "damaged", "0"},
      {"PeakInputLevel", "999.5", "999.5"},
      {"SpikeDetectLevel", "100", "100"},
      {"MaxRotationTime", "abc", "abc"},
      {"InputDeviceIsLineIn", "False", "False"},
      {"InputDeviceIsdBMeter", "1", "True"},
      {"ROSKAmeter", "True", "True"},
      {"GaugeBridge", "True", "True"},
      {"GaugeBridgeTrigger", "True", "True"},
      {"Commport", "32", "32"},
      {"Commtrigger", "-32768", "-32768"},
  };
  for (const auto& [key, stored, again] : cases) {
    const SettingsValues values = ReadWith(key, stored);
    for (const SettingRow& row : kSettingsTable)
      EXPECT_EQ(SettingText(row, values), row.Key == key ? again : row.Default) << key << "=" << stored;
  }
}

TEST(SettingsTableTest, AQuarterOfASecondIsExactlyThat) {
  EXPECT_EQ(ReadWith("StartupDelay", "0.25").StartupDelay.TenThousandths(), 2500);
}

TEST(SettingsTableTest, ATextThatIsNoBooleanIsATypeMismatch) {
  for (const char* key : {"LinearMode", "ShowLogScale", "InputDeviceIsLineIn", "InputDeviceIsdBMeter",
                          "ROSKAmeter", "GaugeBridge", "GaugeBridgeTrigger"})
    for (const char* text : {"Yes", "", " ", "Truex", "1x", "nan", "0x1"})
      EXPECT_EQ(FaultOfReading(key, text), fault::kTypeMismatch) << key << "=" << text;
}

TEST(SettingsTableTest, ANumberThatDoesNotFitItsTypeIsAnOverflow) {
  const std::pair<const char*, const char*> cases[] = {{"DetectStopNumberOfReadings", "32767.5"},
                                                       {"SpikeDetectLevel", "-32769"},
                                                       {"Commport", "40000"},
                                                       {"Commtrigger", "1e9"},
                                                       {"Scale", "2147483648"},
                                                       {"PlotBackground", "4294967295"},
                                                       {"DetectStartLevel", "1e39"},
                                                       {"PeakInputLevel", "1e999"},
                                                       {"StartupDelay", "1e15"},
                                                       {"LinearMode", "1e999"}};
  for (const auto& [key, text] : cases)
    EXPECT_EQ(FaultOfReading(key, text), fault::kOverflow) << key << "=" << text;
}

TEST(SettingsTableTest, AFaultTellsFileKeyAndValueForStandardError) {
  RecordingStore store;
  store.Put("ROSKAmeter", "maybe");
  const Fault fault = FaultOf([&] { ReadSettings(store); });
  EXPECT_EQ(fault.Number, fault::kTypeMismatch);
  EXPECT_EQ(fault.Detail, "memory of Lobegraph: [Settings] ROSKAmeter=maybe");
  EXPECT_EQ(store.Log.back(), "get ROSKAmeter") << "nothing is read behind the fault";
}

TEST(SettingsTableTest, TheRotationSlidersMaximumComesFromTheMinutes) {
  const std::pair<const char*, int> cases[] = {{"2", 120}, {"1.5", 90},  {"20", 1200},   {"abc", 0},
                                               {"", 0},    {"0.025", 2}, {"10 min", 600}};
  for (const auto& [minutes, seconds] : cases)
    EXPECT_EQ(ReadWith("MaxRotationTime", minutes).Slider2Maximum(), seconds) << minutes;
  EXPECT_EQ(FaultOf([] { ReadWith("MaxRotationTime", "1e9").Slider2Maximum(); }).Number, fault::kOverflow);
}

TEST(SettingsTableTest, TwoLevelsAreKeptBesideThePeak) {
  const SettingsValues values = ReadWith("PeakInputLevel", "999.5");
  EXPECT_EQ(values.PeakInputLevelLess60(), 939.5F);
  EXPECT_EQ(values.PeakInputLevelLess120(), 879.5F);
}

TEST(SettingsTableTest, EveryKeySurvivesWritingAndReading) {
  RecordingStore store;
  const SettingsValues before = ReadWith("StartupDelay", "0.9999");
  for (const SettingRow& row : kSettingsTable) store.Put(row.Key, SettingText(row, before));
  EXPECT_EQ(ReadSettings(store), before);
}

TEST(SettingsTableTest, ColoursReadBackAreTheSameNumbers) {
  for (const int colour : {0, 1, 255, 256, 65535, 65536, 8388608, 14737632, 16777215}) {
    RecordingStore store;
    SettingsValues values = ReadSettings(store);
    values.PlotUserColour = values.PlotBackground = colour;
    SaveDialogSettings(store, values);
    EXPECT_EQ(ReadSettings(store), values);
    EXPECT_EQ(store.Held("PlotUserColour"), std::to_string(colour));
  }
}

TEST(SettingsTableTest, ADecimalCommaInTheSystemChangesNothing) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const bool set = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  RecordingStore store;
  SettingsValues values = ReadWith("DetectStartLevel", "7.5");
  values.StartupDelay = Currency::FromTenThousandths(7500);
  SaveDialogSettings(store, values);
  std::setlocale(LC_ALL, before.c_str());
  EXPECT_EQ(values.DetectStartLevel, 7.5F);
  EXPECT_EQ(store.Held("DetectStartLevel"), "7.5");
  EXPECT_EQ(store.Held("StartupDelay"), "0.75");
  if (!set) GTEST_SKIP() << "the locale de_DE.UTF-8 is not installed here (./test installs it)";
}

TEST(SettingsTableTest, TheMeterProgramsKeysHaveTheirDefaults) {
  EXPECT_EQ(kGaugeBridgeApplication, "GaugeBridge");
  EXPECT_EQ(kPublishedActive.Key, "Active");
  EXPECT_EQ(kPublishedActive.Default, "N");
  EXPECT_EQ(kPublishedReading.Key, "Reading");
  EXPECT_EQ(kPublishedReading.Default, "1");
}

}  // namespace
}  // namespace lobegraph
