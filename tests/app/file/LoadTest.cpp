// Get File and Overlay as a user meets them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/LoadFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;

class LoadTest : public LoadFixture {};

TEST_F(LoadTest, FillsRecordAndWindow) {
  ReadingsRecord file = FileRecord(90);
  file.Rotate = 12.5F;
  file.TrimFront = 3;
  file.TrimEnd = 5;
  file.PolarizationHorizontal = false;
  LoadRecord(file, "/patterns/yagi.lbg");
  EXPECT_EQ(Record().ReadingCount, 359.0) << "the file's first field, as it stands";
  EXPECT_EQ(Text(txtRotate), "12.5");
  EXPECT_EQ(Text(txtTrimFront), "3");
  EXPECT_EQ(Text(txtTrimEnd), "5");
  EXPECT_EQ(Text(txtReadingsPlotted), "352");
  EXPECT_EQ(Text(txtFileName), "yagi.lbg");
  EXPECT_EQ(Record().FilePath, "/patterns/yagi.lbg");
  EXPECT_EQ(Text(txtDescription), "Three elements");
  EXPECT_EQ(Text(lblFileDescription), "Three elements");
  EXPECT_EQ(View.Of(Slider1).Value, 40);
  EXPECT_EQ(Text(cboElements), "  3");
  EXPECT_EQ(Text(cmdPolarization), "Vertic&al");
  EXPECT_EQ(Text(lblCollectedBy), "K1AB");
  EXPECT_EQ(Text(lblCollectedDate), "12:00 01/02/2020");
  EXPECT_TRUE(Pattern.DescriptionLoaded());
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

TEST_F(LoadTest, DrawsTheEmptyGridThenThePattern) {
  LoadRecord(FileRecord());
  EXPECT_GE(Grids(), 1);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(LoadTest, TakesTheSavedCopy) {
  LoadRecord(FileRecord(90));
  EXPECT_EQ(Record().SavedReadings, Record().Readings);
  EXPECT_EQ(Record().SavedNumReadings, 359);
}

TEST_F(LoadTest, ClearsWhatTheFormerPatternLeft) {
  HoldChanged([](ReadingsRecord& record) {
    record.NumReadings = 360;
    record.Readings(360) = 7.F;
  });
  ReadingsRecord small = FileRecord();
  small.NumReadings = 99;
  LoadRecord(small, "/patterns/small.lbg");
  EXPECT_EQ(Record().Readings(100), 0.F);
  EXPECT_EQ(Record().Readings(359), 0.F);
  EXPECT_EQ(Record().Readings(360), 7.F) << "kept on purpose";
}

TEST_F(LoadTest, TheSliderGetsTheRoundedScaleWithinItsRange) {
  for (const auto& [scale, shown] : {std::pair{41.5F, 42}, {300.F, 100}, {-5.F, 10}, {1E+20F, 100}}) {
    ReadingsRecord file = FileRecord();
    file.ScaleSetting = scale;
    LoadRecord(file);
    EXPECT_EQ(View.Of(Slider1).Value, shown) << scale;
    EXPECT_EQ(Record().ScaleSetting, static_cast<float>(shown)) << "the scale always mirrors the slider";
  }
}

TEST_F(LoadTest, ANameWithoutEndingGetsOne) {
  PutFile("/patterns/beam.lbg", FileRecord());
  Load("/patterns/beam");
  EXPECT_EQ(Text(txtFileName), "beam.lbg");
  PutFile("/patterns/beam.txt.lbg", FileRecord());
  Load("/patterns/beam.txt");
  EXPECT_EQ(Text(txtFileName), "beam.txt.lbg");
  PutFile("/patterns/BEAM.LBG", FileRecord());
  Load("/patterns/BEAM.LBG");
  EXPECT_EQ(Text(txtFileName), "BEAM.LBG");
}

TEST_F(LoadTest, TheNameIsWhatFollowsTheLastSeparatorOfEitherKind) {
  PutFile("/patterns/c:\\data\\beam.lbg", FileRecord());
  Load("/patterns/c:\\data\\beam.lbg");
  EXPECT_EQ(Text(txtFileName), "beam.lbg");
}

TEST_F(LoadTest, DialogsStartInTheCurrentFolderThenWhereTheLastFileWas) {
  PutFile("/patterns/beam.lbg", FileRecord());
  Load("/patterns/beam.lbg");
  Load("/patterns/beam.lbg");
  EXPECT_THAT(Dialogs.Folders, ElementsAre("/home/ham/", "/patterns/"));
}

TEST_F(LoadTest, ACancelledOrEmptyDialogLeavesEverything) {
  HoldBeam();
  Tick(chk180, true);
  const std::string before = Everything();
  for (const std::optional<std::string>& choice :
       {std::optional<std::string>(), std::optional<std::string>("")}) {
    Forget();
    Dialogs.FileToOpen = choice;
    Press(cmdGetData);
    EXPECT_EQ(Everything(), before);
    EXPECT_THAT(Dialogs.Texts(), IsEmpty());
    EXPECT_THAT(Surface.Operations, IsEmpty());
  }
}

TEST_F(LoadTest, ACancelledOverlayLeavesEverything) {
  HoldBeam();
  const std::string before = Everything();
  Dialogs.FileToOpen.reset();
  Press(cmdOverlay);
  EXPECT_EQ(Everything(), before);
}

TEST_F(LoadTest, APeakAboveTheInputLevelWarnsAndGoesOn) {
  ReadingsRecord strong = FileRecord();
  strong.Readings(0) = 1200.5F;
  LoadRecord(strong);
  EXPECT_THAT(Dialogs.Texts(),
              ElementsAre("LBG030 Warning - this file contains a peak input level value of 1200.5\r\n"
                          "This is higher than your sound card setup for peak input level of 1000\r\n"
                          "Automatic orientation of the plot and -3dB points may be incorrect.\r\n"
                          "Increase your peak input level value in the Settings screen to see\r\n"
                          "the plot without any distortion."));
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(LoadTest, TheFormerPlotIsGoneBeforeTheWarningIsShown) {
  HoldBeam();
  Tick(chk180, true);
  ReadingsRecord strong = FileRecord();
  strong.Readings(0) = 2000.F;
  Dialogs.WhileOpen = [this] {
    EXPECT_FALSE(View.Of(chk180).Checked);
    EXPECT_EQ(Text(txtAngle), "Angle");
    EXPECT_EQ(Surface.Operations.back().ends_with(kTraceColour), false);
  };
  LoadRecord(strong);
}

TEST_F(LoadTest, A180DegreeFileTicksItsBoxAndRedrawsOnce) {
  ReadingsRecord half = FileRecord();
  half.Plot180 = true;
  half.Rotate = 77.F;
  LoadRecord(half);
  EXPECT_TRUE(View.Of(chk180).Checked);
  EXPECT_EQ(Text(txtRotate), "270");
  EXPECT_EQ(Surface.Count("dot", kTraceColour), 1) << "one trace";
  EXPECT_EQ(Surface.Count("line", kTraceColour), 359) << "not closed";
  EXPECT_LE(Grids(), 2) << "the empty grid before reading, and the one of the redraw";
}

TEST_F(LoadTest, A180DegreeFileHasRotation0InTheRectangularDrawing) {
  Press(cmdLinear);
  ReadingsRecord half = FileRecord();
  half.Plot180 = true;
  half.Rotate = 77.F;
  LoadRecord(half);
  EXPECT_EQ(Text(txtRotate), "0");
}

TEST_F(LoadTest, AWholeTurnAfterA180DegreeSetUnticksTheBox) {
  HoldBeam();
  Tick(chk180, true);
  LoadRecord(FileRecord());
  EXPECT_FALSE(View.Of(chk180).Checked);
  EXPECT_FALSE(Record().Plot180);
}

TEST_F(LoadTest, AnOverlayKeepsTheScale) {
  HoldBeam();
  Slide(Slider1, 60);
  ReadingsRecord second = FileRecord();
  second.ScaleSetting = 20.F;
  PutFile("/patterns/second.lbg", second);
  Overlay("/patterns/second.lbg");
  EXPECT_EQ(View.Of(Slider1).Value, 60);
  EXPECT_EQ(Record().ScaleSetting, 60.F);
}

TEST_F(LoadTest, ALoadEndsAnOverlay) {
  HoldBeam();
  PutFile("/patterns/second.lbg", FileRecord());
  Overlay("/patterns/second.lbg");
  LoadRecord(FileRecord());
  EXPECT_FALSE(Pattern.Beneath());
}

}  // namespace
}  // namespace lobegraph
