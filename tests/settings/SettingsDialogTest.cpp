#include "settings/SettingsDialog.h"

#include <gmock/gmock.h>

#include "data/base/RunTimeError.h"
#include "settings/SettingsReader.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using enum SettingsBox;
using enum SettingsGroup;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SettingsDialogTest : public ::testing::Test {
 protected:
  RecordingStore store_;
  SettingsValues values_ = ReadSettings(store_);
  SettingsDialog dialog_{values_, store_};

  SettingsDialogTest() { store_.Log.clear(); }
  std::optional<std::string> Enter(SettingsBox box, const std::string& text) {
    dialog_.SetText(box, text);
    return dialog_.Validate(box);
  }
};

TEST_F(SettingsDialogTest, TheBoxesShowTheValuesInTheirShortestForm) {
  values_.DetectStartLevel = 40.9F;
  values_.DetectStopLevel = 0.5F;
  values_.DetectStopNumberOfReadings = 12;
  values_.StartupDelay = Currency::FromTenThousandths(2500);
  values_.PeakInputLevel = 1000.F;
  values_.SpikeDetectLevel = 50;
  values_.MaxRotationTime = "2 min";
  const SettingsDialog dialog(values_, store_);
  EXPECT_EQ(dialog.Text(txtDetectStartLevel), "40.9");
  EXPECT_EQ(dialog.Text(txtStartupDelay), "0.25");
  EXPECT_EQ(dialog.Text(txtDetectStopLevel), "0.5");
  EXPECT_EQ(dialog.Text(txtDetectStopNumberOfReadings), "12");
  EXPECT_EQ(dialog.Text(txtPeakInputLevel), "1000");
  EXPECT_EQ(dialog.Text(txtSpikeDetectLevel), "50");
  EXPECT_EQ(dialog.Text(txtMaxRotationTime), "2 min") << "the stored text itself";
}

TEST_F(SettingsDialogTest, ADecimalCommaIsAPointWhereABoxTakesAFraction) {
  EXPECT_FALSE(Enter(txtStartupDelay, "0,75"));
  EXPECT_TRUE(Enter(txtStartupDelay, "1,01"));
  EXPECT_FALSE(Enter(txtStartupDelay, "0,75"));
  EXPECT_FALSE(Enter(txtDetectStartLevel, "7,5"));
  EXPECT_FALSE(Enter(txtDetectStopLevel, "40,9"));
  EXPECT_FALSE(Enter(txtMaxRotationTime, "20,9"));
  dialog_.Accept();
  EXPECT_EQ(values_.StartupDelay, Currency::FromTenThousandths(7500));
  EXPECT_EQ(values_.DetectStartLevel, 7.5F);
  EXPECT_EQ(values_.DetectStopLevel, 40.9F);
  EXPECT_EQ(values_.MaxRotationTime, "20");
  EXPECT_EQ(store_.Held("StartupDelay"), "0.75");
}

TEST_F(SettingsDialogTest, EveryBoxStandsInItsGroupUnderItsLabel) {
  const struct {
    SettingsBox Box;
    const char* Name;
    SettingsGroup Group;
    const char* Label;
  } cases[] = {
      {txtDetectStartLevel, "txtDetectStartLevel", AutoStartStop,
       "Input Level to trigger Auto Start, range 1-40"},
      {txtStartupDelay, "txtStartupDelay", AutoStartStop,
       "Seconds of delay after Auto Start triggered before collection started, range 0.00-1.00"},
      {txtDetectStopLevel, "txtDetectStopLevel", AutoStartStop,
       "Input Level to trigger Auto Stop detection, range 1-40"},
      {txtDetectStopNumberOfReadings, "txtDetectStopNumberOfReadings", AutoStartStop,
       "No. of consecutive readings below Auto Stop level to stop collecting, range 1-20"},
      {txtPeakInputLevel, "txtPeakInputLevel", SoundCard, "Peak input level from sound card, range 90-1000"},
      {txtMaxRotationTime, "txtMaxRotationTime", Other, "Maximum rotation time in minutes, range 2-20"},
      {txtSpikeDetectLevel, "txtSpikeDetectLevel", Other,
       "Audio spike detection trigger level, range 10 to 100"},
  };
  ASSERT_EQ(SettingsBoxes().size(), std::size(cases));
  for (const auto& [box, name, group, label] : cases) {
    EXPECT_EQ(RowOf(box).Id, box);
    EXPECT_EQ(RowOf(box).Name, name);
    EXPECT_EQ(RowOf(box).Group, group) << name;
    EXPECT_EQ(RowOf(box).Label, label);
  }
}

struct RangeCase {
  SettingsBox Box;
  std::vector<const char*> Accepted;
  std::vector<const char*> Refused;
  const char* Message;
};

TEST_F(SettingsDialogTest, EachBoxIsHeldToItsRangeWithItsMessage) {
  const std::vector<RangeCase> cases = {
      {txtStartupDelay,
       {"0", "1", "1.00", "0.5", "abc", "", "1.00004", " .25s"},
       {"1.01", "-0.01", "1.0001", "2", "1e30"},
       "LBG023 Startup delay must be in the range 0.00 to 1.00"},
      {txtDetectStartLevel,
       {"1", "40", "40.9", "7.5 units"},
       {"0.9", "41", "0", "", "abc", "-1", "1e999"},
       "LBG024 Detect Start Level must be in the range 1 to 40"},
      {txtDetectStopLevel,
       {"1", "40", "40.9"},
       {"0.9", "41", ""},
       "LBG025 Detect Stop Level must be in the range 1 to 40"},
      {txtDetectStopNumberOfReadings,
       {"1", "20", "20.9"},
       {"0.9", "21", ""},
       "LBG026 Detect Stop Number of Readings must be in the range 1 to 20"},
      {txtMaxRotationTime,
       {"2", "20", "20.9"},
       {"1.9", "21", "", "two"},
       "LBG027 Maximum rotation time must be in the range 2 to 20"},
      {txtPeakInputLevel,
       {"90", "1000", "1000.9"},
       {"89.9", "1001", ""},
       "LBG027 Peak input level must be in the range 90 to 1000"},
      {txtSpikeDetectLevel,
       {"10", "100", "100.9"},
       {"9.9", "101", ""},
       "LBG027 Audio spike detection level must be in the range 10 to 100"},
  };
  for (const RangeCase& c : cases) {
    for (const char* text : c.Accepted)
      EXPECT_EQ(Enter(c.Box, text), std::nullopt) << RowOf(c.Box).Name << " " << text;
    for (const char* text : c.Refused) EXPECT_EQ(Enter(c.Box, text), c.Message) << text;
  }
}

TEST_F(SettingsDialogTest, DeliberateThreeMessagesShareOneCode) {
  for (const SettingsBox box : {txtMaxRotationTime, txtPeakInputLevel, txtSpikeDetectLevel})
    EXPECT_EQ(RowOf(box).Message.substr(0, 7), "LBG027 ");
}

TEST_F(SettingsDialogTest, PeakSpikeAndRotationTimeAreInForceAtOnceAsWholeNumbers) {
  Enter(txtPeakInputLevel, "512.7");
  Enter(txtSpikeDetectLevel, "99.9");
  Enter(txtMaxRotationTime, "20.9");
  EXPECT_EQ(values_.PeakInputLevel, 512.F);
  EXPECT_EQ(values_.SpikeDetectLevel, 99);
  EXPECT_EQ(values_.MaxRotationTime, "20");
  EXPECT_THAT(store_.Log, IsEmpty());
}

TEST_F(SettingsDialogTest, TheDetectionValuesWaitForOk) {
  const SettingsValues before = values_;
  Enter(txtDetectStartLevel, "30");
  Enter(txtDetectStopLevel, "31");
  Enter(txtDetectStopNumberOfReadings, "12");
  Enter(txtStartupDelay, "0.75");
  EXPECT_EQ(values_, before);
}

TEST_F(SettingsDialogTest, ARefusedEntryChangesNothing) {
  const SettingsValues before = values_;
  Enter(txtPeakInputLevel, "1001");
  Enter(txtSpikeDetectLevel, "5");
  Enter(txtMaxRotationTime, "21");
  EXPECT_EQ(values_, before);
}

TEST_F(SettingsDialogTest, EachDefaultButtonFillsTheBoxesOfItsGroupOnly) {
  for (const SettingsBoxRow& row : SettingsBoxes()) dialog_.SetText(row.Id, "x");
  dialog_.SetDefaultValues(AutoStartStop);
  EXPECT_EQ(dialog_.Text(txtDetectStartLevel), "7");
  EXPECT_EQ(dialog_.Text(txtStartupDelay), "0.25");
  EXPECT_EQ(dialog_.Text(txtDetectStopLevel), "7");
  EXPECT_EQ(dialog_.Text(txtDetectStopNumberOfReadings), "5");
  EXPECT_EQ(dialog_.Text(txtPeakInputLevel), "x");
  dialog_.SetDefaultValues(SoundCard);
  EXPECT_EQ(dialog_.Text(txtPeakInputLevel), "1000");
  EXPECT_EQ(dialog_.Text(txtSpikeDetectLevel), "x");
  dialog_.SetDefaultValues(Other);
  EXPECT_EQ(dialog_.Text(txtSpikeDetectLevel), "50");
  EXPECT_EQ(dialog_.Text(txtMaxRotationTime), "2");
  EXPECT_THAT(store_.Log, IsEmpty());
}

TEST_F(SettingsDialogTest, ADefaultCountsAsAnAcceptedEntry) {
  Enter(txtPeakInputLevel, "100");
  Enter(txtSpikeDetectLevel, "60");
  Enter(txtMaxRotationTime, "15");
  dialog_.SetDefaultValues(SoundCard);
  dialog_.SetDefaultValues(Other);
  EXPECT_EQ(values_.PeakInputLevel, 1000.F);
  EXPECT_EQ(values_.SpikeDetectLevel, 50);
  EXPECT_EQ(values_.MaxRotationTime, "2");
  dialog_.Accept();
  EXPECT_EQ(store_.Held("MaxRotationTime"), "2") << "the default rotation time reaches the store";
}

TEST_F(SettingsDialogTest, DeliberateTheDefaultColoursAreBrighterThanThoseOfAnEmptyStore) {
  EXPECT_EQ(values_.PlotUserColour, 8388608);
  EXPECT_EQ(values_.PlotLineColour, 128);
  dialog_.SetDefaultColours();
  EXPECT_EQ(values_.PlotUserColour, 16711680);
  EXPECT_EQ(values_.PlotUserOverlayColour, 65535);
  EXPECT_EQ(values_.PlotLineColour, 255);
  EXPECT_EQ(values_.PlotLineOverlayColour, 32768);
  EXPECT_EQ(values_.PlotGridColour, 0);
  EXPECT_EQ(values_.PlotBackground, 14737632);
  EXPECT_THAT(store_.Log, IsEmpty()) << "shown at once, saved at OK";
}

TEST_F(SettingsDialogTest, EachColourButtonHoldsItsOwnColour) {
  const char* const names[] = {"cmdPlotUserColour",        "cmdPlotUserOverlayColour", "cmdPlotLineColour",
                               "cmdPlotLineOverlayColour", "cmdPlotGridColour",        "cmdPlotBackground"};
  const char* const labels[] = {"Colour to use for -3dB.",     "Colour to use for -3dB.",
                                "Colour to use for plotting.", "Colour to use for plotting.",
                                "Colour to use for grid.",     "Colour of background."};
  const bool overlay[] = {false, true, false, true, false, false};
  std::int32_t SettingsValues::*const members[] = {
      &SettingsValues::PlotUserColour, &SettingsValues::PlotUserOverlayColour,
      &SettingsValues::PlotLineColour, &SettingsValues::PlotLineOverlayColour,
      &SettingsValues::PlotGridColour, &SettingsValues::PlotBackground};
  ASSERT_EQ(SettingsColours().size(), std::size(names));
  for (std::size_t i = 0; i < std::size(names); ++i) {
    const SettingsColourRow& row = SettingsColours()[i];
    EXPECT_EQ(row.Name, names[i]);
    EXPECT_EQ(row.Label, labels[i]);
    EXPECT_EQ(row.Overlay, overlay[i]);
    dialog_.SetColour(row, static_cast<std::int32_t>(65536 + i));
    EXPECT_EQ(values_.*members[i], static_cast<std::int32_t>(65536 + i));
    EXPECT_EQ(dialog_.ColourOf(row), static_cast<std::int32_t>(65536 + i));
  }
}

TEST_F(SettingsDialogTest, OkSavesItsKeysInTheirOrder) {
  Enter(txtDetectStartLevel, "40.9");
  Enter(txtStartupDelay, "0.75");
  Enter(txtDetectStopLevel, "7.5");
  Enter(txtDetectStopNumberOfReadings, "12");
  Enter(txtPeakInputLevel, "900.5");
  Enter(txtSpikeDetectLevel, "60");
  Enter(txtMaxRotationTime, "20.9");
  dialog_.SetDefaultColours();
  dialog_.Accept();
  EXPECT_THAT(
      store_.Log,
      ElementsAre("save PlotUserColour=16711680", "save PlotUserOverlayColour=65535",
                  "save PlotLineColour=255", "save PlotLineOverlayColour=32768", "save PlotGridColour=0",
                  "save PlotBackground=14737632", "save DetectStopNumberOfReadings=12",
                  "save DetectStopLevel=7.5", "save DetectStartLevel=40.9", "save StartupDelay=0.75",
                  "save PeakInputLevel=900", "save SpikeDetectLevel=60", "save MaxRotationTime=20"));
  EXPECT_EQ(values_.DetectStartLevel, 40.9F) << "tested on its whole part, taken with its fraction";
  EXPECT_EQ(values_.StartupDelay.TenThousandths(), 7500);
}

TEST_F(SettingsDialogTest, TheNumberOfStopReadingsIsRoundedAtOk) {
  const std::pair<const char*, int> cases[] = {{"12.4", 12}, {"12.5", 12}, {"13.5", 14}, {"20.9", 21}};
  for (const auto& [text, taken] : cases) {
    EXPECT_EQ(Enter(txtDetectStopNumberOfReadings, text), std::nullopt);
    dialog_.Accept();
    EXPECT_EQ(values_.DetectStopNumberOfReadings, taken) << text;
  }
}

TEST_F(SettingsDialogTest, AnEmptyStartupDelayIsNoDelay) {
  EXPECT_EQ(Enter(txtStartupDelay, ""), std::nullopt);
  dialog_.Accept();
  EXPECT_EQ(store_.Held("StartupDelay"), "0");
}

TEST_F(SettingsDialogTest, CancelReadsItsKeysAgainAndWritesNothing) {
  dialog_.Cancel();
  EXPECT_THAT(store_.Log, ElementsAre("get PlotUserColour", "get PlotUserOverlayColour", "get PlotLineColour",
                                      "get PlotLineOverlayColour", "get PlotGridColour", "get PlotBackground",
                                      "get StartupDelay", "get DetectStartLevel", "get DetectStopLevel",
                                      "get DetectStopNumberOfReadings", "get PeakInputLevel",
                                      "get SpikeDetectLevel", "get MaxRotationTime"));
}

TEST_F(SettingsDialogTest, CancelTakesBackWhateverWasInForceAtOnce) {
  store_.Put("PlotBackground", "255");
  store_.Put("PeakInputLevel", "800");
  dialog_.Cancel();
  const SettingsValues stored = values_;
  Enter(txtPeakInputLevel, "100");
  dialog_.SetDefaultValues(Other);
  Enter(txtMaxRotationTime, "9");
  dialog_.SetDefaultColours();
  dialog_.SetText(txtDetectStartLevel, "nothing that would pass");
  dialog_.Cancel();
  EXPECT_EQ(values_, stored);
  EXPECT_EQ(values_.PeakInputLevel, 800.F);
  EXPECT_EQ(values_.PlotBackground, 255);
}

TEST_F(SettingsDialogTest, CancelGivesDefaultsWhereTheStoreHoldsNothing) {
  dialog_.SetDefaultColours();
  dialog_.Cancel();
  EXPECT_EQ(values_.PlotUserColour, 8388608);
  EXPECT_EQ(values_.PlotLineColour, 128);
  EXPECT_EQ(values_.MaxRotationTime, "2");
}

}  // namespace
}  // namespace lobegraph
