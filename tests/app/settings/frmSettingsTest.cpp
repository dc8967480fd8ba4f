#include "app/settings/frmSettings.h"

#include <gmock/gmock.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using SettingsBox::txtDetectStartLevel;
using SettingsBox::txtMaxRotationTime;
using SettingsBox::txtPeakInputLevel;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class frmSettingsTest : public ::testing::Test, protected AppFixture {
 protected:
  frmSettings& settings_ = Form.Settings();

  frmSettingsTest() { Start(); }
  void Open() {
    settings_.Form_Load();
    Forget();
  }
  bool Enter(SettingsBox box, const std::string& text) {
    settings_.Dialog().SetText(box, text);
    return settings_.Validate(box);
  }
  static const SettingsColourRow& Row(std::string_view name) {
    for (const SettingsColourRow& row : SettingsColours())
      if (row.Name == name) return row;
    throw std::logic_error("no such colour");
  }
};

TEST_F(frmSettingsTest, OpensByKeyboardAndMouseWhenIdle) {
  EXPECT_TRUE(settings_.MayOpen(SettingsWay::Keyboard));
  EXPECT_TRUE(settings_.MayOpen(SettingsWay::Mouse));
}

TEST_F(frmSettingsTest, NeverOpensDuringARun) {
  for (bool RunFlags::*flag : {&RunFlags::IsCollecting, &RunFlags::IsSweeping}) {
    Shared.Run.*flag = true;
    EXPECT_FALSE(settings_.MayOpen(SettingsWay::Keyboard));
    EXPECT_FALSE(settings_.MayOpen(SettingsWay::Mouse));
    Shared.Run.*flag = false;
  }
}

TEST_F(frmSettingsTest, NeverOpensTwice) {
  Open();
  EXPECT_FALSE(settings_.MayOpen(SettingsWay::Keyboard));
  settings_.cmdCancel_Click();
  settings_.Closed();
  EXPECT_TRUE(settings_.MayOpen(SettingsWay::Keyboard));
}

TEST_F(frmSettingsTest, TheMouseBelongsToTheAnalysisLinesWhileTheyAreShown) {
  Shared.AnalysisShown = true;
  EXPECT_TRUE(settings_.MayOpen(SettingsWay::Mouse)) << "the circular plot shows no lines";
  Press(cmdLinear);
  EXPECT_FALSE(settings_.MayOpen(SettingsWay::Mouse));
  EXPECT_TRUE(settings_.MayOpen(SettingsWay::Keyboard));
  Shared.AnalysisShown = false;
  EXPECT_TRUE(settings_.MayOpen(SettingsWay::Mouse));
}

TEST_F(frmSettingsTest, OpeningSetsTheNotice) {
  settings_.Form_Load();
  EXPECT_EQ(Shared.NoticeText, "Settings are kept for each user.");
}

TEST_F(frmSettingsTest, ARefusedBoxShowsItsMessageOnce) {
  Open();
  EXPECT_FALSE(Enter(txtDetectStartLevel, "41"));
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG024 Detect Start Level must be in the range 1 to 40"));
  EXPECT_TRUE(Enter(txtDetectStartLevel, "40.9"));
  EXPECT_EQ(Dialogs.Messages.size(), 1U);
}

TEST_F(frmSettingsTest, OkPutsLevelsAndRotationTimeInForce) {
  Open();
  Enter(txtPeakInputLevel, "500");
  Enter(txtMaxRotationTime, "9");
  settings_.cmdOK_Click();
  EXPECT_EQ(Shared.Thresholds.Overload, 440.F);
  EXPECT_EQ(Shared.Thresholds.Low, 380.F);
  EXPECT_EQ(View.Of(Slider2).Maximum, 540);
  EXPECT_EQ(Store.Held("MaxRotationTime"), "9");
  EXPECT_LT(PlaceOf("save MaxRotationTime=9"), PlaceOf("Slider2 maximum 540")) << "saved, then in force";
}

TEST_F(frmSettingsTest, AMaximumBelowTheRotationTimeShowsTheNewTime) {
  Store.Put("MaxRotationTime", "20");
  Open();
  settings_.cmdCancel_Click();
  settings_.Closed();
  Slide(Slider2, 900);
  EXPECT_EQ(Text(lblRotationTime), "900");
  Open();
  Enter(txtMaxRotationTime, "3");
  settings_.cmdOK_Click();
  EXPECT_EQ(Text(lblRotationTime), "180");
}

TEST_F(frmSettingsTest, AMaximumThatIsNoNumberAnyLongerLeavesNoTurnOfNoTime) {
  for (const char* spoilt : {"abc", "-5"}) {
    Store.Put("MaxRotationTime", spoilt);
    Open();
    settings_.cmdCancel_Click();
    settings_.Closed();
    Open();
    Enter(txtMaxRotationTime, "5");
    settings_.cmdOK_Click();
    settings_.Closed();
    EXPECT_EQ(Text(lblRotationTime), "1") << spoilt;
  }
}

TEST_F(frmSettingsTest, CancelPutsEverythingInForceAsStored) {
  Open();
  Enter(txtPeakInputLevel, "500");
  Enter(txtMaxRotationTime, "9");
  settings_.cmdDefault_Click();
  settings_.ChooseColour(Row("cmdPlotBackground"), Colour{1, 2, 3});
  Forget();
  settings_.cmdCancel_Click();
  EXPECT_EQ(Shared.Settings.PeakInputLevel, 1000.F);
  EXPECT_EQ(Shared.Thresholds.Overload, 940.F);
  EXPECT_EQ(View.Of(Slider2).Maximum, 120);
  EXPECT_EQ(Shared.Settings.PlotUserColour, 8388608);
  EXPECT_TRUE(Logged("window background #e0e0e0"));
  EXPECT_THAT(Only("save"), IsEmpty());
  EXPECT_THAT(Dialogs.Messages, IsEmpty()) << "Cancel validates nothing";
}

TEST_F(frmSettingsTest, CancelOverADamagedStoreSaysSoAndCloses) {
  Open();
  Store.Put("SpikeDetectLevel", "99999");
  settings_.cmdCancel_Click();
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(Dialogs.Messages[0].Text, ::testing::StartsWith("Error 6 (Overflow) in line "));
  EXPECT_THAT(Dialogs.Messages[0].Text,
              ::testing::EndsWith("of procedure cmdCancel_Click of Form frmSettings"));
}

TEST_F(frmSettingsTest, OnlyTheBackgroundIsSeenAtOnce) {
  Open();
  for (const SettingsColourRow& row : SettingsColours()) settings_.ChooseColour(row, Colour{1, 2, 3});
  EXPECT_THAT(Only("window background"), ElementsAre("window background #010203"));
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Shared.Settings.PlotGridColour, 1 + 256 * 2 + 65536 * 3);
}

TEST_F(frmSettingsTest, ASetThatCannotBeDrawnOpensNoBoxBeneathTheDialogNorAfterIt) {
  HoldChanged([](ReadingsRecord& record) { record.NumReadings = 29; });
  Open();
  settings_.cmdDefault_Click();
  settings_.ChooseColour(Row("cmdPlotBackground"), Colour{1, 2, 3});
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  settings_.cmdOK_Click();
  settings_.Closed();
  EXPECT_THAT(Dialogs.Texts(), IsEmpty()) << "it was said when the file was got";
}

TEST_F(frmSettingsTest, WhileTheDialogIsOpenOnlyTheBackgroundTakesItsColour) {
  HoldBeam();
  Open();
  settings_.ChooseColour(Row("cmdPlotLineColour"), Colour{255, 0, 255});
  settings_.ChooseColour(Row("cmdPlotBackground"), Colour{1, 2, 3});
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  EXPECT_EQ(Surface.Count("line", "#ff00ff"), 0);
  settings_.cmdOK_Click();
  settings_.Closed();
  EXPECT_EQ(Surface.Count("line", "#ff00ff"), 360);
}

TEST_F(frmSettingsTest, ACancelledColourLeavesTheColour) {
  Open();
  settings_.ChooseColour(Row("cmdPlotBackground"), std::nullopt);
  EXPECT_EQ(Shared.Settings.PlotBackground, 14737632);
  EXPECT_THAT(Log, IsEmpty());
}

TEST_F(frmSettingsTest, DefaultColoursAreSeenAtOnce) {
  Open();
  Shared.Settings.PlotBackground = 0;
  settings_.cmdDefault_Click();
  EXPECT_EQ(Shared.Settings.PlotUserColour, 16711680);
  EXPECT_THAT(Only("window background"), ElementsAre("window background #e0e0e0"));
  EXPECT_EQ(Grids(), 1) << "the drawing lies on the background";
}

TEST_F(frmSettingsTest, TextOnOffHidesSevenLabelsAndAButtonAndShowsThemAgain) {
  Open();
  settings_.cmdTextOnOff_Click();
  EXPECT_THAT(Log, ElementsAre("lblOperator hidden", "lblDateTime hidden", "lblCollectTitle hidden",
                               "lblCollectedBy hidden", "lblCollectedDate hidden",
                               "lblFileDescription hidden", "lblNotice hidden", "cmdShrink hidden"));
  EXPECT_FALSE(Shared.PlotTextShown);
  Forget();
  settings_.cmdTextOnOff_Click();
  EXPECT_EQ(Only("").size(), 8U);
  for (const Control control : TextOnPlot()) EXPECT_TRUE(View.Of(control).Visible);
  EXPECT_TRUE(Shared.PlotTextShown);
}

TEST_F(frmSettingsTest, HiddenTextStaysHiddenAfterCancelAndIsSavedNowhere) {
  Open();
  settings_.cmdTextOnOff_Click();
  settings_.cmdCancel_Click();
  settings_.Closed();
  EXPECT_FALSE(View.Of(lblOperator).Visible);
  EXPECT_THAT(Only("save"), IsEmpty());
}

TEST_F(frmSettingsTest, TheWindowIsDrawnWhenTheDialogHasGone) {
  HoldBeam();
  Open();
  settings_.ChooseColour(Row("cmdPlotLineColour"), Colour{255, 0, 0});
  settings_.cmdOK_Click();
  EXPECT_EQ(Grids(), 0);
  settings_.Closed();
  EXPECT_EQ(Grids(), 1);
  EXPECT_GT(Surface.Count("line", "#ff0000"), 100);
}

}  // namespace
}  // namespace lobegraph
