// What the window draws by itself, and the labels and controls that go with a grid.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/AxisLabels.h"
#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;

class RedrawTest : public testing::Test, protected AppFixture {
 protected:
  RedrawTest() { Start(); }
  bool AnalysisVisible() const {
    return std::all_of(AnalysisControls().begin(), AnalysisControls().end(),
                       [this](Control control) { return View.Of(control).Visible; });
  }
  bool AnalysisHidden() const {
    return std::none_of(AnalysisControls().begin(), AnalysisControls().end(),
                        [this](Control control) { return View.Of(control).Visible; });
  }
};

TEST_F(RedrawTest, ActivationDrawsTheGridWhenNothingIsHeld) {
  Activate();
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

TEST_F(RedrawTest, TheAnglesStandAboveThePictureAndFollowFormScaleAndBackground) {
  Activate();
  EXPECT_EQ(Form.Axis().Texts(), AxisLabels({}, PlotGeometry{}, kBlack));
  Press(cmdLinear);
  EXPECT_EQ(Form.Axis().Texts().front().Text, "-180");
  Tick(chkPlotInDB, false);
  EXPECT_EQ(Form.Axis().Texts().back().Text, "Share of the peak");
  Shared.Settings.PlotBackground = Colour{0, 0, 60}.Stored();
  Activate();
  EXPECT_EQ(Form.Axis().Texts().front().TextColour, kWhite);
}

TEST_F(RedrawTest, ActivationDrawsGridAndReadings) {
  HoldBeam();
  Activate();
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  EXPECT_EQ(Surface.Count("line", kUserColour), 2);
}

struct Refused {
  const char* Name;
  void (*Change)(ReadingsRecord&);
  const char* Typed;
};
class RefusedAgainTest : public RedrawTest, public testing::WithParamInterface<Refused> {};

TEST_P(RefusedAgainTest, IsSaidInABoxOnceAndInTheLineWhenTheWindowIsOnlyActivated) {
  ReadingsRecord record = FileRecord();
  GetParam().Change(record);
  LoadRecord(record);
  if (*GetParam().Typed != 0) Enter(txtTrimEnd, GetParam().Typed);
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  const std::string said = Dialogs.Messages[0].Text;
  for (int time = 0; time < 3; ++time) {
    Forget();
    Type(lblHint, "");
    Activate();
    EXPECT_THAT(Dialogs.Texts(), IsEmpty());
    EXPECT_EQ(Text(lblHint), said);
    EXPECT_EQ(Grids(), 1);
  }
  Press(cmdLogLin);
  EXPECT_THAT(Dialogs.Texts(), ElementsAre(said)) << "an explicit command says it in its box";
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, RefusedAgainTest,
    testing::Values(Refused{"AReadingOf0", [](ReadingsRecord& r) { r.Readings(100) = 0.F; }, ""},
                    Refused{"ATrimBeyondTheRecord", [](ReadingsRecord&) {}, "99999"},
                    Refused{"361Readings", [](ReadingsRecord& r) { r.NumReadings = 360; }, ""},
                    Refused{"30Readings", [](ReadingsRecord& r) { r.NumReadings = 29; }, ""}),
    [](const auto& one) { return one.param.Name; });

TEST_F(RedrawTest, WhatWasNotSaidYetIsSaidInABoxEvenThoughTheWindowIsOnlyActivated) {
  HoldBeam();
  Type(txtTrimEnd, "305");
  Activate();
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG011 Less than 60 readings - plot aborted"));
  Choose("  2");  // changes nothing of it
  Forget();
  Activate();
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  Type(txtTrimEnd, "0");
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  Type(txtTrimEnd, "305");
  Activate();
  EXPECT_EQ(Dialogs.Messages.size(), 1U) << "it has been right in between";
}

TEST_F(RedrawTest, ActivationIsIgnoredDuringCollectionSweepAndLoad) {
  HoldBeam();
  for (bool* gate : {&Shared.Run.IsCollecting, &Shared.Run.IsSweeping, &Shared.Loading}) {
    *gate = true;
    Activate();
    EXPECT_THAT(Surface.Operations, IsEmpty());
    *gate = false;
  }
  Activate();
  EXPECT_EQ(Grids(), 1);
}

TEST_F(RedrawTest, AnOverlayDrawsNoSecondGridOverThePlotThatIsShown) {
  HoldPair();
  EXPECT_THAT(Surface.Only("circle"), IsEmpty()) << "its blank middle would wipe the first trace away";
}

TEST_F(RedrawTest, ActivationDrawsBothPatternsTheOneBeneathFirst) {
  HoldPair();
  Forget();
  Activate();
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  EXPECT_EQ(Surface.Count("line", kUserColour), 2);
  EXPECT_EQ(Surface.Count("line", kOverlayTraceColour), 360);
  EXPECT_EQ(Surface.Count("line", kUserOverlayColour), 2);
  EXPECT_LT(Surface.FirstIn(kTraceColour), Surface.FirstIn(kOverlayTraceColour));
  EXPECT_LT(Surface.FirstIn(kUserColour), Surface.FirstIn(kOverlayTraceColour));
  EXPECT_EQ(Text(txtFileName), "second.lbg") << "the boxes speak of the upper one";
}

TEST_F(RedrawTest, EveryGridRefreshesTheLabels) {
  HoldBeam();
  for (const Control label : {lblDateTime, lblCollectedBy, lblCollectedDate}) Type(label, "stale");
  System.Now = "11:11 22/11/2026";
  Activate();
  EXPECT_EQ(Text(lblDateTime), "11:11 22/11/2026");
  EXPECT_EQ(Text(lblCollectedBy), "K1AB");
  EXPECT_EQ(Text(lblCollectedDate), "12:00 01/02/2020");
}

TEST_F(RedrawTest, AnOverlayShowsWhoCollectedIt) {
  HoldBeam();
  ReadingsRecord second = FileRecord();
  second.CollectedBy = "DL0XY";
  PutFile("/patterns/second.lbg", second);
  Overlay("/patterns/second.lbg");
  EXPECT_EQ(Text(lblCollectedBy), "DL0XY");
}

TEST_F(RedrawTest, TheCircleHidesTheAnalysisControls) {
  for (const Control control : AnalysisControls()) View.Of(control).Visible = true;
  View.Of(cmdPatternAnalysis).Visible = true;
  Shared.AnalysisShown = true;
  Activate();
  EXPECT_TRUE(AnalysisHidden());
  EXPECT_FALSE(View.Of(cmdPatternAnalysis).Visible);
}

TEST_F(RedrawTest, TheRectangularDrawingOffersTheAnalysis) {
  Press(cmdLinear);
  EXPECT_TRUE(View.Of(cmdPatternAnalysis).Visible);
  EXPECT_TRUE(AnalysisHidden());
  Shared.AnalysisShown = true;
  Activate();
  EXPECT_TRUE(AnalysisVisible());
}

TEST_F(RedrawTest, AFaultOfTheCircularGridIsShownAndEndsTheProgramOnPurpose) {
  Surface.Fails = true;
  Activate();
  ASSERT_GE(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(
      Dialogs.Messages[0].Text,
      testing::MatchesRegex(
          "Error 57 \\(Device I/O error\\) in line [0-9]+ of procedure DrawCircularGrid of Form Form1"));
  EXPECT_EQ(Dialogs.Messages[0].Title, "");
  EXPECT_EQ(End.AtOnce, 1);
  EXPECT_EQ(End.InGoodOrder, 0);
  EXPECT_THAT(Store.Log, testing::Not(testing::Contains(testing::StartsWith("save"))));
}

TEST_F(RedrawTest, AFaultOfTheRectangularGridIsShownAndTheProgramLives) {
  Press(cmdLinear);
  Surface.Fails = true;
  Activate();
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::EndsWith(" of procedure DrawRectangularGrid of Form Form1"));
  EXPECT_EQ(End.AtOnce, 0);
}

}  // namespace
}  // namespace lobegraph
