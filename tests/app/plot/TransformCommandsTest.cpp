#include "app/plot/TransformCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "processing/Transforms.h"
#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;

class TransformCommandsTest : public testing::Test, protected AppFixture {
 protected:
  TransformCommandsTest() { Start(); }
  /// The levels of a command's processing rule, applied to what is held.
  template <typename Rule>
  ReadingArray After(Rule rule) const {
    ReadingsRecord copy = Shared.Record;
    rule(copy);
    return copy.Readings;
  }
};

TEST_F(TransformCommandsTest, SmoothSmoothsAndRedraws) {
  HoldBeam();
  const ReadingArray expected = After([](ReadingsRecord& record) { Smooth(record); });
  Press(cmdSmooth);
  EXPECT_EQ(Shared.Record.Readings, expected);
  EXPECT_NE(Shared.Record.Readings, Shared.Record.SavedReadings);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(TransformCommandsTest, AFaultOfSmoothIsReportedWithoutARedraw) {
  HoldBeam();
  Shared.Record.NumReadings = 400;
  Press(cmdSmooth);
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(Dialogs.Messages[0].Text,
              testing::MatchesRegex("Error 9 .* of procedure cmdSmooth_Click of Form Form1"));
  EXPECT_EQ(Grids(), 0);
}

TEST_F(TransformCommandsTest, ReverseSwapsTheTrimsAndOrients) {
  HoldBeam(90);
  Enter(txtTrimFront, "3");
  Enter(txtTrimEnd, "8");
  const float first = Shared.Record.Readings(0);
  Forget();
  Press(cmdReverse);
  EXPECT_EQ(Shared.Record.Readings(359), first);
  EXPECT_EQ(Text(txtTrimFront), "8");
  EXPECT_EQ(Text(txtTrimEnd), "3");
  EXPECT_EQ(Grids(), 2) << "orientation draws before and after it turns the plot";
}

TEST_F(TransformCommandsTest, ReverseMirrorsTheRotationAsAWholeNumber) {
  Shared.Settings.LinearMode = true;  // the orientation leaves the rotation alone
  HoldBeam();
  Enter(txtRotate, "90.4");
  Press(cmdReverse);
  EXPECT_EQ(Text(txtRotate), "270");
  Press(cmdReverse);
  EXPECT_EQ(Text(txtRotate), "90");
}

TEST_F(TransformCommandsTest, ReverseOfAnUnturnedPlotLeavesTheBoxAsTyped) {
  Shared.Settings.LinearMode = true;
  HoldBeam();
  Type(txtRotate, "45");
  Press(cmdReverse);
  EXPECT_EQ(Text(txtRotate), "45");
}

TEST_F(TransformCommandsTest, RescaleTurnsTheBeamToTheTop) {
  HoldBeam(90);
  Press(cmdRescaleData);
  EXPECT_EQ(Text(txtRotate), "270");
  EXPECT_EQ(Shared.Record.Rotate, 270.F);
  EXPECT_EQ(Grids(), 2);
  EXPECT_EQ(Surface.Count("dot", kTraceColour), 2);
}

TEST_F(TransformCommandsTest, RescaleWithFewerThanThreeReadingsDoesNothing) {
  Press(cmdRescaleData);
  EXPECT_THAT(Surface.Operations, IsEmpty());
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

TEST_F(TransformCommandsTest, RescaleStopsWhenTheFirstRedrawIsRefused) {
  HoldBeam(90);
  Type(txtRotate, "400");
  Press(cmdRescaleData);
  EXPECT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Text(txtRotate), "0");
}

TEST_F(TransformCommandsTest, RescaleOnlyRedrawsInTheRectangularDrawing) {
  HoldBeam(90);
  Press(cmdLinear);
  Forget();
  Press(cmdRescaleData);
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Text(txtRotate), "0");
}

TEST_F(TransformCommandsTest, A180DegreeSetKeepsItsRotation) {
  HoldBeam(90);
  Tick(chk180, true);
  Press(cmdRescaleData);
  EXPECT_EQ(Text(txtRotate), "270");
}

TEST_F(TransformCommandsTest, DeSpikeReplacesASpikeThenOrients) {
  HoldBeam(90);
  const float before = Shared.Record.Readings(200);
  Shared.Record.Readings(200) = before + 400.F;
  Press(cmdDeSpike);
  EXPECT_NEAR(Shared.Record.Readings(200), before, 10.F);
  EXPECT_EQ(Grids(), 2);
  EXPECT_EQ(Text(txtRotate), "270");
}

TEST_F(TransformCommandsTest, DeSpikeRefusesTooFewAndTooManyBeforeAnyChange) {
  HoldBeam();
  const ReadingArray before = Shared.Record.Readings;
  Shared.Record.TrimEnd = 305;
  Press(cmdDeSpike);
  Shared.Record.TrimEnd = 0;
  Shared.Record.NumReadings = 360;
  Press(cmdDeSpike);
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG011 Less than 60 readings - plot aborted",
                                           "LBG010 More than 360 readings to plot"));
  EXPECT_EQ(Shared.Record.Readings, before);
  EXPECT_EQ(Grids(), 0);
}

TEST_F(TransformCommandsTest, AFailedDeSpikePutsTheOriginalsBackAndStillOrients) {
  HoldBeam(90);
  Shared.Record.Readings(150) = Shared.Record.Readings(151) = -1.F;  // a step is no spike
  Press(cmdDeSpike);
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG032 Despike operation failed - original readings restored"));
  EXPECT_EQ(Shared.Record.Readings, Shared.Record.SavedReadings);
  EXPECT_EQ(Grids(), 2);
}

TEST_F(TransformCommandsTest, OriginalPutsReadingsAndCountBackAndShowsThemAll) {
  HoldBeam();
  Shared.Record.NumReadings = 300;
  Enter(txtTrimFront, "3");
  Press(cmdSmooth);
  Forget();
  Slide(Slider1, 55);
  Forget();
  Press(cmdOriginalData);
  EXPECT_EQ(Shared.Record.Readings, Shared.Record.SavedReadings);
  EXPECT_EQ(Shared.Record.NumReadings, 359);
  EXPECT_EQ(Shared.Record.ScaleSetting, 55.F);
  EXPECT_EQ(Text(txtTrimFront), "0");
  EXPECT_EQ(Text(txtTrimEnd), "0");
  EXPECT_EQ(Text(txtReadingsPlotted), "360");
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(TransformCommandsTest, OriginalHasNoMarksAndNoFigures) {
  HoldBeam();
  Press(cmdOriginalData);
  EXPECT_EQ(Surface.Count("line", kUserColour), 0);
  EXPECT_EQ(Text(txtAngle), "Angle");
  EXPECT_EQ(Text(txtGain), "Gain");
  EXPECT_EQ(Shared.BeamwidthDeg, 0.F);
}

TEST_F(TransformCommandsTest, OriginalDoesNothingWhenNothingIsHeld) {
  Press(cmdOriginalData);
  EXPECT_THAT(Surface.Operations, IsEmpty());
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

TEST_F(TransformCommandsTest, EachTransformEndsAnOverlay) {
  for (const Control command : {cmdSmooth, cmdReverse, cmdRescaleData, cmdDeSpike, cmdOriginalData}) {
    HoldBeam();
    Shared.Overlay = true;
    Shared.Beneath = Shared.Record;
    Press(command);
    EXPECT_FALSE(Shared.Overlay) << RowOf(command).Name;
    EXPECT_FALSE(Shared.Beneath) << RowOf(command).Name;
    EXPECT_EQ(Surface.Count("line", kOverlayTraceColour), 0) << RowOf(command).Name;
  }
}

}  // namespace
}  // namespace lobegraph
