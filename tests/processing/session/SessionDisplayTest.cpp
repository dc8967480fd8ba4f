// Drawing, the commands that change how the pattern is shown, and what is read off it.
#include "support/SessionFixture.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class SessionDisplay : public SessionFixture {};

TEST_F(SessionDisplay, WithNothingToDrawTheGridIsDrawn) {
  EXPECT_THAT(Told(Session.Redraw()), ElementsAre("grid"));
}

TEST_F(SessionDisplay, WhatIsTypedCountsFromTheNextCommandThatDraws) {
  Load(Beam());
  Session.Type({.Rotate = 30, .TrimFront = 2.5, .TrimEnd = 3.5});
  EXPECT_EQ(Session.Record().Rotate, 0.F);
  EXPECT_THAT(Told(Session.Redraw()), ElementsAre("grid", "fields 30 2 4", "trace", HasSubstr("figures")));
  EXPECT_EQ(Session.Record().ReadingsPlotted, 354);
  EXPECT_EQ(Session.Typed().TrimEnd, 4.0) << "what is shown is what is typed now";
}

struct Refusal {
  const char* Name;
  Placement Typed;
  const char* Message;
  const char* Reset;
};
class SessionRefusal : public SessionFixture, public testing::WithParamInterface<Refusal> {};

TEST_P(SessionRefusal, IsSaidPutTo0AndLeavesTheFormerFigures) {
  Load(Beam());
  const auto told = Placed(GetParam().Typed);
  ASSERT_GE(told.size(), 2U);
  EXPECT_EQ(told[0], "grid");
  EXPECT_EQ(told[1], GetParam().Message);
  EXPECT_EQ(told.size() > 2 ? told[2] : "", GetParam().Reset);
  EXPECT_FALSE(Session.Plot().PlotDone);
  EXPECT_FALSE(Session.LastFault()) << "a refusal is no fault";
  EXPECT_EQ(Session.Figures().BeamwidthDeg, 130.F);
}

constexpr const char* kRotate = "LBG007 Value for Rotate must be in the range 1 - 359";
constexpr const char* kFront = "LBG008 Value for Trim Front or Trim End is out of range";
constexpr const char* kEnd = "LBG009 Value for Trim End or Trim Front is out of range";
INSTANTIATE_TEST_SUITE_P(
    Typed, SessionRefusal,
    testing::Values(Refusal{"RotateAbove", {.Rotate = 359.5}, kRotate, "Rotate=0"},
                    Refusal{"RotateBelow", {.Rotate = -1}, kRotate, "Rotate=0"},
                    Refusal{"FrontAbove", {.TrimFront = 400}, kFront, "TrimFront=0"},
                    Refusal{"FrontBelow", {.TrimFront = -1}, kFront, "TrimFront=0"},
                    Refusal{"EndBelow", {.TrimEnd = -1}, kEnd, "TrimEnd=0"},
                    Refusal{"TooFew", {.TrimEnd = 305}, "LBG011 Less than 60 readings - plot aborted", ""}),
    [](const auto& one) { return one.param.Name; });

TEST_F(SessionDisplay, ARefusedValueIs0ForTheNextCommandAsWell) {
  Load(Beam());
  Placed({.Rotate = 359.5});
  EXPECT_THAT(Told(Session.Redraw()), ElementsAre("grid", "fields 0 0 0", "trace", HasSubstr("figures")));
}

TEST_F(SessionDisplay, ANumberThatNoRecordHoldsIsAFault) {
  Load(Beam());
  EXPECT_THAT(Placed({.TrimFront = 40000}), ElementsAre("grid", "fault 6 of ReDraw"));
  EXPECT_EQ(Session.LastFault()->Number(), fault::kOverflow);
}

TEST_F(SessionDisplay, OneReadingIsLeftAloneSilently) {
  Load(Beam());
  EXPECT_THAT(Placed({.TrimEnd = 359}), ElementsAre("grid"));
}

TEST_F(SessionDisplay, AShortSetIsPlottedOnlyWhenEveryLengthIs) {
  EXPECT_THAT(Told(Load(Beam(4, 36))), testing::Contains("LBG011 Less than 60 readings - plot aborted"));
  Session.SetRules({.AnyLength = true});
  EXPECT_TRUE(Session.Redraw().Plotted);
}

TEST_F(SessionDisplay, AReadingOfZeroIsAFaultBehindItsFieldsWhichSmoothingMends) {
  ReadingsRecord record = Beam();
  record.Readings(100) = 0.F;
  const auto told = Told(Load(record));
  ASSERT_GE(told.size(), 2U);
  EXPECT_EQ(told[told.size() - 2], "fields 0 0 0");
  EXPECT_EQ(told.back(), "fault 11 of ReDraw");
  EXPECT_TRUE(Session.LastFault());
  EXPECT_TRUE(Session.Plot().FieldsSettled);
  Session.Smooth();
  EXPECT_FALSE(Session.LastFault());
  EXPECT_TRUE(Session.Plot().PlotDone);
}

TEST_F(SessionDisplay, WithoutAnyReadingNothingIsSaidOfTrims) {
  Session.BeginCollection("DL0XY", "now");
  Session.RunRecord().NumReadings = -1;  // halted at once
  Session.EndRun();
  EXPECT_THAT(Placed({.Rotate = 400, .TrimFront = 3}), ElementsAre("grid"));
  EXPECT_THAT(Told(Session.Smooth()), ElementsAre("grid"));
  EXPECT_THAT(Told(Session.DeSpike()), IsEmpty());
  EXPECT_THAT(Told(Session.Integrate()), IsEmpty());
}

TEST_F(SessionDisplay, TheFormTogglesAndTurnsA180DegreeSet) {
  Load(Beam());
  EXPECT_THAT(Told(Session.ToggleForm()), ElementsAre("grid", "fields 0 0 0", "trace", HasSubstr("figures")));
  EXPECT_TRUE(Session.Style().Rectangular);
  Session.ToggleForm();
  Session.CoverHalfTurn(true);
  EXPECT_EQ(Session.Record().Rotate, 270.F);
  EXPECT_THAT(Told(Session.ToggleForm()),
              ElementsAre("Rotate=0", "grid", "fields 0 0 0", "trace", HasSubstr("figures")));
  EXPECT_THAT(Told(Session.ToggleForm()),
              ElementsAre("Rotate=270", "grid", "fields 270 0 0", "trace", HasSubstr("figures")));
}

TEST_F(SessionDisplay, TheScaleTogglesBetweenTheTwoInDb) {
  Session.ToggleLogarithmic();
  EXPECT_EQ(Session.Style().Scale, PlotScale::Db50);
  Session.ToggleLogarithmic();
  EXPECT_EQ(Session.Style().Scale, PlotScale::Logarithmic);
}

TEST_F(SessionDisplay, LinearRadiiAndBackEndOnThe50DbScale) {
  Session.PlotInDb(false);
  EXPECT_EQ(Session.Style().Scale, PlotScale::Linear);
  Session.PlotInDb(true);
  EXPECT_EQ(Session.Style().Scale, PlotScale::Db50);
}

TEST_F(SessionDisplay, AHalfTurnLiesAcrossTheTopAndAWholeOneBeginsAt0) {
  Load(Beam());
  Placed({.Rotate = 33});
  EXPECT_THAT(Told(Session.CoverHalfTurn(true)),
              ElementsAre("grid", "fields 270 0 0", "trace", HasSubstr("figures")));
  EXPECT_THAT(Told(Session.CoverHalfTurn(false)),
              ElementsAre("Rotate=0", "grid", "fields 0 0 0", "trace", HasSubstr("figures")));
}

TEST_F(SessionDisplay, MarksCanBeSwitchedOff) {
  Load(Beam());
  EXPECT_THAT(Told(Session.ShowMarks(false)), testing::Contains("trace, unmarked"));
}

TEST_F(SessionDisplay, TheScaleSettingIsTheRecordsToo) {
  Load(Beam());
  EXPECT_TRUE(Session.SetScale(77).Plotted);
  EXPECT_EQ(Session.Record().ScaleSetting, 77.F);
}

TEST_F(SessionDisplay, EachDisplayOptionButTheMarksEndsAnOverlay) {
  const auto ends = [this](Outcome (PatternSession::*command)()) {
    Load(Beam());
    Overlay(Beam(90));
    (Session.*command)();
    return !Session.Beneath();
  };
  EXPECT_TRUE(ends(&PatternSession::Place));
  EXPECT_TRUE(ends(&PatternSession::ToggleForm));
  EXPECT_TRUE(ends(&PatternSession::ToggleLogarithmic));
  EXPECT_FALSE(ends(&PatternSession::Redraw));
  EXPECT_FALSE(ends(&PatternSession::TogglePolarization));
  Load(Beam());
  Overlay(Beam(90));
  Session.ShowMarks(false);
  Session.SetScale(50);
  EXPECT_TRUE(Session.Beneath());
  Session.PlotInDb(false);
  EXPECT_FALSE(Session.Beneath());
}

TEST_F(SessionDisplay, ElementsAndPolarizationRefreshTheFiguresAndDrawNothing) {
  Load(Beam());
  EXPECT_THAT(Told(Session.ChooseElements("  2")), ElementsAre("figures 130.00 1.17 dBi"));
  EXPECT_EQ(Session.Record().Elements, "  2");
  EXPECT_THAT(Told(Session.TogglePolarization()), ElementsAre("Vertical", "figures 130.00 7.20 dBi"));
  EXPECT_THAT(Told(Session.TogglePolarization()), ElementsAre("Horizontal", "figures 130.00 1.17 dBi"));
}

TEST_F(SessionDisplay, WithoutABeamwidthThereAreNoFigures) {
  EXPECT_THAT(Told(Session.ChooseElements("  3")), ElementsAre("figures Angle Gain"));
}

TEST_F(SessionDisplay, DirectivityIsTheGainAloneAndOneElementHasNone) {
  Load(Beam());
  const auto gain = Session.IntegratedGain();
  ASSERT_TRUE(gain);
  EXPECT_THAT(Told(Session.Integrate()), ElementsAre("integrated " + GainText(gain)));
  Session.ChooseElements("1");
  EXPECT_FALSE(Session.IntegratedGain());
  EXPECT_THAT(Told(Session.Integrate()), IsEmpty());
}

TEST_F(SessionDisplay, DirectivityRefusesAsADrawingDoes) {
  Load(Beam());
  Session.Type({.Rotate = 400});
  EXPECT_FALSE(Session.IntegratedGain());
  EXPECT_THAT(Told(Session.Integrate()), ElementsAre(kRotate, "Rotate=0"));
  Session.Type({.TrimEnd = 305});
  EXPECT_THAT(Told(Session.Integrate()), ElementsAre(StartsWith("LBG011")));
}

TEST_F(SessionDisplay, DirectivityOfSilenceIsAFault) {
  ReadingsRecord silent = Beam();
  for (int i = 0; i < 360; ++i) silent.Readings(i) = 0.F;
  Load(silent);
  EXPECT_THAT(Told(Session.Integrate()), ElementsAre("fault 6 of cmdIntegrate_Click"));
  EXPECT_FALSE(Session.IntegratedGain());
}

TEST_F(SessionDisplay, NothingIsDrawnIntoACollection) {
  Load(Beam());
  Session.BeginCollection("DL0XY", "now");
  EXPECT_THAT(Placed({.Rotate = 5}), IsEmpty());
  EXPECT_THAT(Told(Session.Redraw()), IsEmpty());
  EXPECT_THAT(Told(Session.ShowMarks(false)), IsEmpty());
  EXPECT_THAT(Told(Session.SetScale(50)), IsEmpty());
  EXPECT_THAT(Told(Session.CoverHalfTurn(true)), IsEmpty());
  EXPECT_EQ(Session.Style().ScaleSetting, 50) << "and yet it is taken";
  Session.RunRecord().ReadingCount = 360;
  Session.EndRun();
  EXPECT_TRUE(Session.Redraw().Plotted);
}

TEST_F(SessionDisplay, ASweepIsDrawnOverByDisplayOptionsButNotByTheScale) {
  Session.BeginSweep();
  EXPECT_THAT(Told(Session.SetScale(50)), IsEmpty());
  EXPECT_THAT(Told(Session.ToggleForm()), ElementsAre("grid"));
}

TEST_F(SessionDisplay, ASweepTakesThePatternOutOfSightAndBringsItsFieldsBack) {
  Load(Beam());
  const std::string figures = Placed({.Rotate = 30, .TrimEnd = 4}).back();
  const std::string before = WritePatternText(Session.Record(), "");
  EXPECT_THAT(Told(Session.BeginSweep()), ElementsAre("cleared", "figures Angle Gain"));
  EXPECT_THAT(Told(Session.ToggleForm()), ElementsAre("grid")) << "no old trace among the live points";
  EXPECT_THAT(Told(Session.EndSweep()), ElementsAre("grid", "fields 30 0 4", figures));
  EXPECT_EQ(WritePatternText(Session.Record(), ""), before);
  EXPECT_TRUE(Session.DescriptionLoaded());
  EXPECT_TRUE(Session.Redraw().Plotted);
}

TEST_F(SessionDisplay, ADescriptionTypedForARunStaysAndALoadedOneGoes) {
  ReadingsRecord record = Beam();
  record.Description = "Loaded";
  Load(record);
  Session.BeginCollection("DL0XY", "now");
  EXPECT_EQ(Session.Record().Description, "");
  Session.EndRun();
  Load(record);
  Session.Describe("Typed");
  Session.BeginCollection("DL0XY", "now");
  EXPECT_EQ(Session.Record().Description, "Typed");
}

TEST_F(SessionDisplay, ARunEndsAnOverlayAndAnAbandonedOneBringsThePatternBack) {
  Load(Beam());
  Placed({.Rotate = 30, .TrimEnd = 4});
  Overlay(Beam(90));
  Load(Beam());
  Placed({.Rotate = 30, .TrimEnd = 4});
  const std::string before = WritePatternText(Session.Record(), "");
  EXPECT_THAT(Told(Session.BeginCollection("DL0XY", "now")),
              ElementsAre("grid", "cleared", "figures Angle Gain"));
  EXPECT_FALSE(Session.Beneath());
  EXPECT_FALSE(Session.Record().HasReadings());
  EXPECT_THAT(Told(Session.AbandonRun()), ElementsAre("fields 30 0 4", "details", "grid", "fields 30 0 4",
                                                      "trace", HasSubstr("figures")));
  EXPECT_EQ(WritePatternText(Session.Record(), ""), before);
  EXPECT_TRUE(Session.DescriptionLoaded());
}

}  // namespace
}  // namespace lobegraph
