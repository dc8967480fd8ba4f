// What the window shows of each step.
#include "app/plot/PatternDisplay.h"

#include <gmock/gmock.h>

#include "app/plot/FigureNotes.h"
#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class PatternDisplayTest : public testing::Test, protected AppFixture {
 protected:
  PatternDisplayTest() { Start(); }
  template <typename One>
  void Show(One step) {
    Outcome outcome;
    outcome.Add(std::move(step));
    Form.Display().Show(outcome);
  }
};

TEST_F(PatternDisplayTest, PlotFieldsGoIntoTheirBoxes) {
  Show(show::PlotFields{.Rotate = .5F,
                        .TrimFront = 2,
                        .TrimEnd = 4,
                        .ReadingsPlotted = 354,
                        .FileName = "beam.lbg",
                        .Description = "Three elements"});
  EXPECT_EQ(Text(txtRotate), ".5") << "no zero before the point";
  EXPECT_EQ(Text(txtTrimFront), "2");
  EXPECT_EQ(Text(txtTrimEnd), "4");
  EXPECT_EQ(Text(txtReadingsPlotted), "354");
  EXPECT_EQ(Text(txtFileName), "beam.lbg");
  EXPECT_EQ(Text(txtDescription), "Three elements");
  EXPECT_EQ(Text(lblFileDescription), "Three elements");
}

TEST_F(PatternDisplayTest, DetailsGoIntoTheirControls) {
  Show(show::Details{.Elements = "6",
                     .Plot180 = true,
                     .ScaleSetting = 77,
                     .CollectedBy = "K1AB",
                     .CollectedDate = "12:00 01/02/2020",
                     .PolarizationHorizontal = false});
  EXPECT_EQ(Text(cboElements), "6");
  EXPECT_TRUE(View.Of(chk180).Checked);
  EXPECT_EQ(View.Of(Slider1).Value, 77);
  EXPECT_EQ(Text(lblCollectedBy), "K1AB");
  EXPECT_EQ(Text(lblCollectedDate), "12:00 01/02/2020");
  EXPECT_EQ(Text(cmdPolarization), "Vertic&al");
}

TEST_F(PatternDisplayTest, ClearedFieldsShow0AndKeepADescriptionOfTheUsersOwn) {
  HoldBeam();
  for (const Control box : {txtRotate, txtTrimFront, txtTrimEnd}) Type(box, "5");
  Show(show::Cleared{.Description = false});
  for (const Control box : {txtRotate, txtTrimFront, txtTrimEnd}) EXPECT_EQ(Text(box), "0");
  EXPECT_EQ(Text(txtFileName), "");
  EXPECT_EQ(Text(txtDescription), "Three elements");
  Show(show::Cleared{.Description = true});
  EXPECT_EQ(Text(txtDescription), "");
  EXPECT_EQ(Text(lblFileDescription), "");
}

TEST_F(PatternDisplayTest, ANumberGoesIntoItsOwnBox) {
  Show(show::PlacementNumber{PlacementPart::Rotate, 270});
  Show(show::PlacementNumber{PlacementPart::TrimFront, 3});
  Show(show::PlacementNumber{PlacementPart::TrimEnd, 5});
  EXPECT_THAT(Log, ElementsAre("txtRotate=270", "txtTrimFront=3", "txtTrimEnd=5"));
}

TEST_F(PatternDisplayTest, CaptionsAndTicksFollow) {
  Show(show::Polarization{true});
  Show(show::HalfTurn{false});
  EXPECT_THAT(Log, ElementsAre("cmdPolarization=Hori&zontal", "chk180 unticked"));
}

TEST_F(PatternDisplayTest, FiguresComeWithANoteOfWhatTheyAssume) {
  Show(show::Figures{{60.F, 7.891}, "  2", true});
  EXPECT_EQ(Text(txtAngle), "60.00");
  EXPECT_EQ(Text(txtGain), "7.89 dBi");
  EXPECT_TRUE(Logged("txtGain tooltip " + GainNote("7.89 dBi", "  2", true)));
  EXPECT_TRUE(Logged("txtAngle tooltip " + AngleNote("60.00")));
  Show(show::IntegratedGain{5.0, "  2", true});
  EXPECT_EQ(Text(txtAngle), "60.00");
  EXPECT_EQ(Text(txtGain), "5.00 dBi");
  EXPECT_TRUE(Logged("txtGain tooltip " + IntegratedGainNote("  2", true)));
  Show(show::Figures{});
  EXPECT_EQ(Text(txtAngle), "Angle");
  EXPECT_EQ(Text(txtGain), "Gain");
}

TEST_F(PatternDisplayTest, AMessageIsABoxAndAFaultNamesItsProcedure) {
  Show(show::Message{"LBG010 More than 360 readings to plot"});
  Show(show::Fault{RunTimeError(fault::kDivisionByZero), "ReDraw"});
  EXPECT_THAT(
      Dialogs.Texts(),
      ElementsAre(
          "LBG010 More than 360 readings to plot",
          MatchesRegex("Error 11 .Division by zero. in line [0-9]+ of procedure ReDraw of Form Form1")));
}

TEST_F(PatternDisplayTest, ATraceIsDrawnInItsColoursWithItsMarks) {
  HoldBeam();
  Activate();
  EXPECT_EQ(Surface.Count("dot", kTraceColour), 1) << "the pen is up for the first point";
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360) << "the figure is closed";
  EXPECT_EQ(Surface.Count("line", kUserColour), 2) << "two -3 dB lines";
  EXPECT_LT(Surface.FirstIn("#000000"), Surface.FirstIn(kTraceColour)) << "the grid lies beneath";
  HoldPair();
  EXPECT_EQ(Surface.Count("line", kOverlayTraceColour), 360);
  EXPECT_EQ(Surface.Count("line", kUserOverlayColour), 2);
}

TEST_F(PatternDisplayTest, ACommandGetsWhatIsTypedAndWhatTheSettingsSay) {
  Shared.Settings.PeakInputLevel = 700.F;
  View.Of(chkCalibrate).Checked = true;
  Type(txtRotate, " 30 degrees");
  Type(txtTrimFront, "x");
  Type(txtTrimEnd, "3.5");
  Placement typed;
  Form.Display().Run([&](PatternSession& pattern) {
    typed = pattern.Typed();
    return Outcome{};
  });
  EXPECT_EQ(typed.Rotate, 30.0);
  EXPECT_EQ(typed.TrimFront, 0.0);
  EXPECT_EQ(typed.TrimEnd, 3.5);
  LoadRecord([] {
    ReadingsRecord shortSet = BeamRecord(40, 4);
    shortSet.ScaleSetting = 40.F;
    return shortSet;
  }());
  EXPECT_THAT(Dialogs.Texts(), ElementsAre(testing::StartsWith("LBG030")))
      << "a short set is plotted meanwhile";
}

TEST_F(PatternDisplayTest, ADecimalCommaIsTakenForAPoint) {
  HoldBeam();
  Enter(txtRotate, "12,5");
  EXPECT_EQ(Record().Rotate, 12.5F);
  EXPECT_EQ(Text(txtRotate), "12.5");
}

TEST_F(PatternDisplayTest, AnActivationBehindAMessageDrawsNothing) {
  long gridsWhileOpen = -1;
  Dialogs.WhileOpen = [&] {
    Activate();
    gridsWhileOpen = Grids();
  };
  Show(show::Message{"LBG032"});
  EXPECT_EQ(gridsWhileOpen, 0);
  Activate();
  EXPECT_EQ(Grids(), 1);
}

TEST_F(PatternDisplayTest, WhatIsTypedWithoutEnterDrawsNothing) {
  HoldBeam();
  Type(txtRotate, "90");
  EXPECT_THAT(Surface.Operations, IsEmpty());
  EXPECT_EQ(Record().Rotate, 0.F);
}

}  // namespace
}  // namespace lobegraph
