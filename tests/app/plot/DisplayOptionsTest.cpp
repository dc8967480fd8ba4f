// The controls that change how the readings are shown.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::IsEmpty;

class DisplayOptionsTest : public testing::Test, protected AppFixture {
 protected:
  DisplayOptionsTest() { Start(); }
};

TEST_F(DisplayOptionsTest, CmdLinearTogglesTheFormAndRedraws) {
  HoldBeam();
  Press(cmdLinear);
  EXPECT_TRUE(Shared.Settings.LinearMode);
  EXPECT_EQ(Surface.Only("filled box").size(), 1U);
  EXPECT_GT(Surface.Count("line", kTraceColour), 350);
  Forget();
  Press(cmdLinear);
  EXPECT_FALSE(Shared.Settings.LinearMode);
  EXPECT_GT(Surface.Only("circle").size(), 0U);
  EXPECT_EQ(Text(txtRotate), "0") << "a whole turn keeps its rotation";
}

TEST_F(DisplayOptionsTest, CmdLinearTurnsA180DegreeSetTo0AndBackTo270) {
  HoldBeam();
  Tick(chk180, true);
  EXPECT_EQ(Text(txtRotate), "270");
  Press(cmdLinear);
  EXPECT_EQ(Text(txtRotate), "0");
  EXPECT_EQ(Shared.Record.Rotate, 0.F);
  Press(cmdLinear);
  EXPECT_EQ(Text(txtRotate), "270");
}

TEST_F(DisplayOptionsTest, CmdLinearSetsTheRotationOfA180DegreeSetEvenWithNothingHeld) {
  Tick(chk180, true);
  Press(cmdLinear);
  EXPECT_EQ(Text(txtRotate), "0");
  Press(cmdLinear);
  EXPECT_EQ(Text(txtRotate), "270");
}

TEST_F(DisplayOptionsTest, CmdLogLinInvertsTheScaleAndRedrawsOnce) {
  HoldBeam();
  Press(cmdLogLin);
  EXPECT_FALSE(Shared.Settings.ShowLogScale);
  EXPECT_EQ(Surface.Only("text [ 0.8 ]").size() + Surface.Only("text [ -10 ]").size(), 2U);
  EXPECT_EQ(Surface.Only("text [ -50 ]").size(), 1U) << "the 50 dB scale ends at the centre";
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  Press(cmdLogLin);
  EXPECT_TRUE(Shared.Settings.ShowLogScale);
}

TEST_F(DisplayOptionsTest, WithNothingHeldDisplayOptionsDrawTheEmptyPlot) {
  for (const Control control : {cmdLogLin, cmdLinear, chkShow3dB, Slider1}) {
    Forget();
    Press(control);
    EXPECT_EQ(Grids(), 1) << RowOf(control).Name;
    EXPECT_EQ(Surface.Count("line", kTraceColour), 0) << RowOf(control).Name;
    EXPECT_THAT(Dialogs.Texts(), IsEmpty()) << RowOf(control).Name;
  }
}

TEST_F(DisplayOptionsTest, UntickingPlotInDbGivesLinearRadiiAndTakesLogLinAway) {
  HoldBeam();
  Tick(chkPlotInDB, false);
  EXPECT_FALSE(Shared.Settings.ShowLogScale);
  EXPECT_FALSE(View.Of(cmdLogLin).Enabled);
  EXPECT_EQ(Surface.Only("text [ 0.8 ]").size(), 2U);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(DisplayOptionsTest, TickingPlotInDbGivesLogLinBackOnThe50DbScale) {
  HoldBeam();
  Tick(chkPlotInDB, false);
  Forget();
  Tick(chkPlotInDB, true);
  EXPECT_TRUE(View.Of(cmdLogLin).Enabled);
  EXPECT_FALSE(Shared.Settings.ShowLogScale) << "the flag is not put back";
  EXPECT_EQ(Surface.Only("text [ -50 ]").size(), 1U);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(DisplayOptionsTest, Ticking180TurnsThePlotTo270AndUntickingPuts0) {
  HoldBeam();
  Enter(txtRotate, "33");
  Forget();
  Tick(chk180, true);
  EXPECT_TRUE(Shared.Record.Plot180);
  EXPECT_EQ(Text(txtRotate), "270");
  EXPECT_EQ(Grids(), 1);
  Forget();
  Tick(chk180, false);
  EXPECT_FALSE(Shared.Record.Plot180);
  EXPECT_EQ(Text(txtRotate), "0");
  EXPECT_EQ(Shared.Record.Rotate, 0.F);
  EXPECT_EQ(Grids(), 1);
}

TEST_F(DisplayOptionsTest, ShowMinus3dBRedrawsWithoutTheMarks) {
  HoldBeam();
  Tick(chkShow3dB, false);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  EXPECT_EQ(Surface.Count("line", kUserColour), 0);
}

TEST_F(DisplayOptionsTest, TheScaleSliderMirrorsIntoTheRecordAndRedraws) {
  HoldBeam();
  Slide(Slider1, 77);
  EXPECT_EQ(Shared.Record.ScaleSetting, 77.F);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  EXPECT_EQ(Surface.Only("text [ -50 ]").size(), 1U) << "drawn above a scale of 37";
}

TEST_F(DisplayOptionsTest, EachDisplayOptionEndsAnOverlay) {
  for (const Control control : {cmdLinear, cmdLogLin, chkPlotInDB, chk180}) {
    HoldBeam();
    Shared.Beneath = Shared.Record;
    Shared.Overlay = true;
    Press(control);
    EXPECT_FALSE(Shared.Overlay) << RowOf(control).Name;
    EXPECT_EQ(Surface.Count("line", kOverlayTraceColour), 0) << RowOf(control).Name;
  }
}

TEST_F(DisplayOptionsTest, PolarizationShowsItsStateAndTheGainThatFollows) {
  HoldBeam();
  Choose("  2");
  const std::string horizontal = Text(txtGain);
  Shared.Overlay = true;
  Press(cmdPolarization);
  EXPECT_FALSE(Shared.Record.PolarizationHorizontal);
  EXPECT_EQ(Text(cmdPolarization), "Vertic&al");
  EXPECT_NE(Text(txtGain), horizontal);
  EXPECT_FALSE(Shared.Overlay);
  Press(cmdPolarization);
  EXPECT_EQ(Text(cmdPolarization), "Hori&zontal");
  EXPECT_EQ(Text(txtGain), horizontal);
}

}  // namespace
}  // namespace lobegraph
