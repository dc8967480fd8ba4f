#include "app/plot/PlotCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PlotCommandsTest : public testing::Test, protected AppFixture {
 protected:
  PlotCommandsTest() { Start(); }
  PlotResult ReDraw() { return Form.Plot().ReDraw(); }
};

TEST_F(PlotCommandsTest, ReDrawDrawsGridTraceAndMarks) {
  HoldBeam();
  EXPECT_TRUE(ReDraw().PlotDone);
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("dot", kTraceColour), 1) << "the pen is up for the first point";
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360) << "the figure is closed";
  EXPECT_EQ(Surface.Count("line", kUserColour), 2) << "two -3 dB lines";
  EXPECT_LT(Surface.FirstIn("#000000"), Surface.FirstIn(kTraceColour)) << "the grid lies beneath";
}

TEST_F(PlotCommandsTest, ReDrawShowsEveryField) {
  HoldBeam();
  for (const Control box : {lblCollectedBy, lblCollectedDate, txtFileName, txtReadingsPlotted, txtDescription,
                            lblFileDescription, txtAngle, txtGain})
    Type(box, "stale");
  Type(txtRotate, " 30 degrees");
  Type(txtTrimFront, "2.5");
  Type(txtTrimEnd, "3.5");
  ReDraw();
  EXPECT_EQ(Text(lblCollectedBy), "K1AB");
  EXPECT_EQ(Text(lblCollectedDate), "12:00 01/02/2020");
  EXPECT_EQ(Text(txtRotate), "30");
  EXPECT_EQ(Text(txtTrimFront), "2") << "halves to even";
  EXPECT_EQ(Text(txtTrimEnd), "4");
  EXPECT_EQ(Text(txtReadingsPlotted), "354");
  EXPECT_EQ(Text(txtFileName), "beam.lbg");
  EXPECT_EQ(Text(txtDescription), "Three elements");
  EXPECT_EQ(Text(lblFileDescription), "Three elements");
  EXPECT_THAT(Text(txtAngle), testing::MatchesRegex("[0-9]+\\.[0-9][0-9]"));
  EXPECT_THAT(Text(txtGain), testing::MatchesRegex("[0-9]+\\.[0-9][0-9] dBi"));
}

TEST_F(PlotCommandsTest, BoxesLoseTheirZeroBeforeThePoint) {
  HoldBeam();
  Enter(txtRotate, "0.5");
  EXPECT_EQ(Text(txtRotate), ".5");
}

struct Refusal {
  const char* Name;
  Control Box;
  const char* Typed;
  const char* Message;
};

class RefusedBoxTest : public PlotCommandsTest, public testing::WithParamInterface<Refusal> {};

TEST_P(RefusedBoxTest, ShowsItsMessageAndZero) {
  HoldBeam();
  Enter(GetParam().Box, GetParam().Typed);
  EXPECT_THAT(Dialogs.Texts(), ElementsAre(GetParam().Message));
  EXPECT_EQ(Text(GetParam().Box), "0");
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
  EXPECT_EQ(Grids(), 1) << "the empty plot stays";
}

constexpr const char* kRotateRefused = "LBG007 Value for Rotate must be in the range 1 - 359";
constexpr const char* kFrontRefused = "LBG008 Value for Trim Front or Trim End is out of range";
constexpr const char* kEndRefused = "LBG009 Value for Trim End or Trim Front is out of range";
INSTANTIATE_TEST_SUITE_P(All, RefusedBoxTest,
                         testing::Values(Refusal{"RotateAbove", txtRotate, "359.5", kRotateRefused},
                                         Refusal{"RotateBelow", txtRotate, "-1", kRotateRefused},
                                         Refusal{"FrontAbove", txtTrimFront, "360", kFrontRefused},
                                         Refusal{"FrontBelow", txtTrimFront, "-1", kFrontRefused},
                                         Refusal{"EndBelow", txtTrimEnd, "-1", kEndRefused}),
                         [](const auto& one) { return one.param.Name; });

TEST_F(PlotCommandsTest, CountRefusalsResetNoBox) {
  HoldBeam();
  Enter(txtTrimEnd, "305");
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG011 Less than 60 readings - plot aborted"));
  EXPECT_EQ(Text(txtTrimEnd), "305");
  Forget();
  Shared.Record.NumReadings = 360;
  Enter(txtTrimEnd, "0");
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG010 More than 360 readings to plot"));
}

TEST_F(PlotCommandsTest, WhileCalibratingAShortSetIsPlotted) {
  HoldBeam();
  View.Of(chkCalibrate).Checked = true;
  Enter(txtTrimEnd, "305");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_EQ(Surface.Count("line", kTraceColour), 55);
}

TEST_F(PlotCommandsTest, OneReadingIsLeftAloneSilently) {
  HoldBeam();
  Enter(txtTrimEnd, "359");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
}

TEST_F(PlotCommandsTest, AReadingOfZeroIsReportedAndTheProgramLives) {
  HoldBeam();
  Shared.Record.Readings(100) = 0.F;
  const PlotResult plot = ReDraw();
  EXPECT_FALSE(plot.PlotDone);
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::StartsWith("Error 11 (Division by zero) in line "));
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::EndsWith(" of procedure ReDraw of Form Form1"));
  EXPECT_EQ(End.AtOnce, 0);
}

TEST_F(PlotCommandsTest, AllThreeBoxesRedrawOnEnterAndEndAnOverlay) {
  for (const Control box : {txtRotate, txtTrimFront, txtTrimEnd}) {
    HoldBeam();
    Shared.Overlay = true;
    Shared.Beneath = Shared.Record;
    Enter(box, "5");
    EXPECT_FALSE(Shared.Overlay) << RowOf(box).Name;
    EXPECT_FALSE(Shared.Beneath) << RowOf(box).Name;
    EXPECT_EQ(Surface.Count("line", kTraceColour) > 0, true) << RowOf(box).Name;
  }
}

TEST_F(PlotCommandsTest, WhatIsTypedWithoutEnterDrawsNothing) {
  HoldBeam();
  Type(txtRotate, "90");
  EXPECT_THAT(Surface.Operations, IsEmpty());
  EXPECT_EQ(Shared.Record.Rotate, 0.F);
}

TEST_F(PlotCommandsTest, AChangeOfElementsRefreshesTheFigures) {
  Shared.BeamwidthDeg = 60.F;
  Choose("  2");
  EXPECT_EQ(Text(txtAngle), "60.00");
  EXPECT_EQ(Text(txtGain), "7.89 dBi");
  EXPECT_EQ(Shared.Record.Elements, "  2");
  Choose("  1");
  EXPECT_EQ(Text(txtGain), "0.97 dBi");
  EXPECT_THAT(Surface.Operations, IsEmpty());
}

TEST_F(PlotCommandsTest, WithoutABeamwidthElementsShowThePlaceholders) {
  for (const float beamwidth : {0.F, -1.F, 180.F, 200.F}) {
    Type(txtAngle, "stale");
    Type(txtGain, "stale");
    Shared.BeamwidthDeg = beamwidth;
    Choose("  3");
    EXPECT_EQ(Text(txtAngle), "Angle") << beamwidth;
    EXPECT_EQ(Text(txtGain), "Gain") << beamwidth;
  }
}

TEST_F(PlotCommandsTest, DirectivityRecalculatesTheGainOnly) {
  HoldBeam();
  const std::string angle = Text(txtAngle);
  Type(txtGain, "stale");
  Press(cmdIntegrate);
  EXPECT_THAT(Text(txtGain), testing::MatchesRegex("-?[0-9]+\\.[0-9][0-9] dBi"));
  EXPECT_EQ(Text(txtAngle), angle);
  EXPECT_THAT(Surface.Operations, IsEmpty());
}

TEST_F(PlotCommandsTest, DirectivityOfOneElementChangesNothing) {
  HoldBeam();
  Choose("  1");
  Type(txtGain, "as it was");
  Press(cmdIntegrate);
  EXPECT_EQ(Text(txtGain), "as it was");
}

TEST_F(PlotCommandsTest, DirectivityValidatesAsRedrawDoes) {
  HoldBeam();
  Type(txtGain, "as it was");
  const Refusal refused[] = {{"", txtRotate, "400", kRotateRefused},
                             {"", txtTrimFront, "400", kFrontRefused},
                             {"", txtTrimEnd, "-1", kEndRefused}};
  for (const Refusal& refusal : refused) {
    Forget();
    Type(refusal.Box, refusal.Typed);
    Press(cmdIntegrate);
    EXPECT_THAT(Dialogs.Texts(), ElementsAre(refusal.Message));
    EXPECT_EQ(Text(txtGain), "as it was");
    EXPECT_EQ(Text(refusal.Box), "0");
  }
}

TEST_F(PlotCommandsTest, DirectivityRefusesTheCountsThatRedrawRefuses) {
  HoldBeam();
  Type(txtGain, "as it was");
  Type(txtTrimEnd, "305");
  Press(cmdIntegrate);
  Type(txtTrimEnd, "0");
  Shared.Record.NumReadings = 360;
  Press(cmdIntegrate);
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG011 Less than 60 readings - plot aborted",
                                           "LBG010 More than 360 readings to plot"));
  EXPECT_EQ(Text(txtGain), "as it was");
}

TEST_F(PlotCommandsTest, DirectivityOfSilenceIsReported) {
  HoldBeam();
  for (int i = 0; i < 360; ++i) Shared.Record.Readings(i) = 0.F;
  Press(cmdIntegrate);
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(Dialogs.Messages[0].Text, HasSubstr(" of procedure cmdIntegrate_Click of Form Form1"));
}

TEST_F(PlotCommandsTest, ClearPlotFieldsClearsRecordAndWindow) {
  HoldBeam();
  Enter(txtRotate, "30");
  Enter(txtTrimFront, "3");
  Enter(txtTrimEnd, "4");
  Form.Plot().ClearPlotFields();
  const ReadingsRecord& record = Shared.Record;
  EXPECT_EQ(record.TrimEnd, 0);
  EXPECT_EQ(record.TrimFront, 0);
  EXPECT_EQ(record.Rotate, 0.F);
  EXPECT_EQ(record.ReadingCount, 0.0);
  EXPECT_EQ(record.FileName, "");
  EXPECT_EQ(Shared.BeamwidthDeg, 0.F);
  for (const Control box : {txtTrimEnd, txtTrimFront, txtRotate}) EXPECT_EQ(Text(box), "0");
  EXPECT_EQ(Text(txtFileName), "");
  EXPECT_EQ(Text(txtAngle), "Angle");
  EXPECT_EQ(Text(txtGain), "Gain");
}

TEST_F(PlotCommandsTest, ClearPlotFieldsDropsOnlyADescriptionThatAFileBrought) {
  HoldBeam();
  Form.Plot().ClearPlotFields();
  EXPECT_EQ(Text(txtDescription), "");
  EXPECT_EQ(Text(lblFileDescription), "");
  EXPECT_EQ(Shared.Record.Description, "");
  EXPECT_FALSE(Shared.DescriptionLoaded);
  Type(txtDescription, "my own");
  Form.File().txtDescription_Change();
  Form.File().txtDescription_Accept();
  Form.Plot().ClearPlotFields();
  EXPECT_EQ(Text(txtDescription), "my own");
  EXPECT_EQ(Text(lblFileDescription), "my own");
  EXPECT_EQ(Shared.Record.Description, "my own");
}

TEST_F(PlotCommandsTest, CboElementsKeepsAnyTextAFileBrought) {
  ReadingsRecord record = FileRecord();
  record.Elements = "6";
  LoadRecord(record);
  EXPECT_EQ(Text(cboElements), "6");
  SaveAs("/patterns/again.lbg");
  EXPECT_THAT(Files.Held["/patterns/again.lbg"], HasSubstr("\r\n\"6\"\r\n"));
}

TEST_F(PlotCommandsTest, ControlsWithoutAHandlerDoNothing) {
  Form.Click(lblDateTime);
  EXPECT_THAT(Log, IsEmpty());
}

}  // namespace
}  // namespace lobegraph
