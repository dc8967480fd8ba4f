// Each control of the plot runs its command. What the commands do and refuse is the session's.
#include "app/plot/PlotCommands.h"

#include <gmock/gmock.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;

class PlotCommandsTest : public testing::Test, protected AppFixture {
 protected:
  PlotCommandsTest() {
    Start();
    HoldBeam(90);
  }
  bool Drawn() const { return Surface.Count("line", kTraceColour) > 0; }
};

TEST_F(PlotCommandsTest, EnterInEachOfTheThreeBoxesDrawsAndEndsAnOverlay) {
  for (const Control box : {txtRotate, txtTrimFront, txtTrimEnd}) {
    HoldPair();
    Forget();
    Enter(box, "5");
    EXPECT_FALSE(Pattern.Beneath()) << RowOf(box).Name;
    EXPECT_TRUE(Drawn()) << RowOf(box).Name;
    EXPECT_EQ(Text(box), "5");
  }
}

TEST_F(PlotCommandsTest, ARefusedBoxShowsItsMessageAnd0) {
  Enter(txtRotate, "359.5");
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG007 Value for Rotate must be in the range 1 - 359"));
  EXPECT_EQ(Text(txtRotate), "0");
  EXPECT_EQ(Grids(), 1) << "the empty plot stays";
  EXPECT_FALSE(Drawn());
}

TEST_F(PlotCommandsTest, CmdLinearTogglesTheForm) {
  Press(cmdLinear);
  EXPECT_EQ(Surface.Only("filled box").size(), 1U);
  EXPECT_TRUE(Drawn());
  Forget();
  Press(cmdLinear);
  EXPECT_GT(Surface.Only("circle").size(), 0U);
}

TEST_F(PlotCommandsTest, CmdLogLinTogglesTheScale) {
  Press(cmdLogLin);
  EXPECT_EQ(Surface.Only("text [ -50 ]").size(), 1U) << "the 50 dB scale ends at the centre";
  EXPECT_TRUE(Drawn());
}

TEST_F(PlotCommandsTest, UntickingPlotInDbTakesLogLinAwayAndTickingGivesItBack) {
  Tick(chkPlotInDB, false);
  EXPECT_FALSE(View.Of(cmdLogLin).Enabled);
  EXPECT_EQ(Surface.Only("text [ 0.8 ]").size(), 2U);
  Forget();
  Tick(chkPlotInDB, true);
  EXPECT_TRUE(View.Of(cmdLogLin).Enabled);
  EXPECT_EQ(Surface.Only("text [ -50 ]").size(), 1U);
  EXPECT_TRUE(Drawn());
}

TEST_F(PlotCommandsTest, TheBoxOfTheHalfTurnTurnsThePlot) {
  Tick(chk180, true);
  EXPECT_EQ(Text(txtRotate), "270");
  Tick(chk180, false);
  EXPECT_EQ(Text(txtRotate), "0");
  EXPECT_TRUE(Drawn());
}

TEST_F(PlotCommandsTest, TheBoxOfTheMarksTakesThemAway) {
  Tick(chkShow3dB, false);
  EXPECT_TRUE(Drawn());
  EXPECT_EQ(Surface.Count("line", kUserColour), 0);
}

TEST_F(PlotCommandsTest, TheScaleSliderDraws) {
  Slide(Slider1, 77);
  EXPECT_EQ(Record().ScaleSetting, 77.F);
  EXPECT_TRUE(Drawn());
}

TEST_F(PlotCommandsTest, ElementsPolarizationAndDirectivityChangeTheGainOnly) {
  Choose("  2");
  const std::string horizontal = Text(txtGain);
  Press(cmdPolarization);
  EXPECT_EQ(Text(cmdPolarization), "Vertic&al");
  EXPECT_NE(Text(txtGain), horizontal);
  Press(cmdPolarization);
  EXPECT_EQ(Text(txtGain), horizontal);
  Press(cmdIntegrate);
  EXPECT_NE(Text(txtGain), horizontal);
  EXPECT_THAT(Surface.Operations, IsEmpty());
}

TEST_F(PlotCommandsTest, EachTransformRunsItsCommand) {
  const ReadingArray before = Record().Readings;
  Press(cmdSmooth);
  EXPECT_NE(Record().Readings, before);
  Press(cmdOriginalData);
  EXPECT_EQ(Record().Readings, before);
  Press(cmdReverse);
  EXPECT_EQ(Record().Readings(0), before(359));
  EXPECT_EQ(Text(txtRotate), "91");
  HoldChanged([](ReadingsRecord& record) { record.Readings(200) += 400.F; }, 90);
  Press(cmdDeSpike);
  EXPECT_NEAR(Record().Readings(200), before(200), 10.F);
  HoldBeam(90);
  Press(cmdRescaleData);
  EXPECT_EQ(Text(txtRotate), "270");
}

TEST_F(PlotCommandsTest, ABeamThatWasTurnedUpIsWorthKeeping) {
  for (const Control command : {cmdRescaleData, cmdReverse, cmdDeSpike}) {
    Type(lblHint, "");
    Press(command);
    EXPECT_EQ(Text(lblHint), "Save File keeps the pattern.") << RowOf(command).Name;
  }
  Type(lblHint, "");
  Press(cmdSmooth);
  EXPECT_EQ(Text(lblHint), "");
  Type(txtRotate, "400");
  Press(cmdRescaleData);
  EXPECT_EQ(Text(lblHint), "") << "refused";
}

TEST_F(PlotCommandsTest, ATransformIsTakenBackAndTheWindowFollows) {
  Enter(txtRotate, "30");
  Press(cmdReverse);
  Forget();
  Form.Transform().Undo();
  EXPECT_EQ(Text(txtRotate), "30");
  EXPECT_TRUE(Drawn());
  EXPECT_EQ(Text(lblHint), "Taken back. Ctrl+Shift+Z does it again.");
  Form.Transform().Redo();
  EXPECT_EQ(Text(txtRotate), "91");
  EXPECT_EQ(Text(lblHint), "Done again. Ctrl+Z takes it back.");
}

TEST_F(PlotCommandsTest, WithNothingToTakeBackNothingHappens) {
  Form.Transform().Redo();
  EXPECT_THAT(Log, IsEmpty());
}

TEST_F(PlotCommandsTest, ControlsWithoutAHandlerDoNothing) {
  Form.Click(lblDateTime);
  EXPECT_THAT(Log, IsEmpty());
}

}  // namespace
}  // namespace lobegraph
