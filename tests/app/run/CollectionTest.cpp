// A turn of the antenna as the window shows it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "app/CollectionFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAreArray;

class CollectionTest : public CollectionFixture {};

TEST_F(CollectionTest, AWholeTurnIsTaken360Readings) {
  Heard = [this] { return 100.F + static_cast<float>(ReadingsDone()); };
  Collect();
  const ReadingsRecord& record = Record();
  EXPECT_EQ(record.NumReadings, 359);
  EXPECT_EQ(record.ReadingCount, 360.0);
  for (int i = 0; i < 360; ++i) EXPECT_NEAR(record.Readings(i), 100.F + static_cast<float>(i), .05F) << i;
  EXPECT_EQ(record.SavedReadings, record.Readings);
  EXPECT_EQ(record.PeakIndex, 359);
  EXPECT_EQ(Text(txtReadingNumber), "360");
  EXPECT_EQ(Text(txtReadingsPlotted), "360");
  EXPECT_EQ(Text(txtTrimEnd), "0");
  EXPECT_EQ(Text(lblHint), "360 readings. Rescale turns the beam up; then Save File.");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_FALSE(Shared.Run.IsCollecting);
}

TEST_F(CollectionTest, ALevelThatStaysIsStoredExactly) {
  Collect();
  EXPECT_EQ(Record().Readings(0), 300.F);
  EXPECT_EQ(Record().Readings(359), 300.F);
}

TEST_F(CollectionTest, ATurnLastsItsRotationTime) {
  std::int32_t first = 0;
  At(1, [&] { first = Time.NowMs; });
  Collect();
  EXPECT_EQ(Time.NowMs - first, 359 * 100);
}

TEST_F(CollectionTest, TheTraceGrowsOnTheEmptyGrid) {
  HoldBeam();
  Collect();
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("dot", kUserColour), 1);
  EXPECT_EQ(Surface.Count("line", kUserColour), 359);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0) << "the former pattern is gone";
}

TEST_F(CollectionTest, EachReadingReachesTheScreenAtOnce) {
  std::map<int, int> shown;  // by readings done
  OnYield = [&] { shown[ReadingsDone()] = View.TimesShown; };
  Collect();
  EXPECT_EQ(shown.at(11), shown.at(10) + 1);
}

TEST_F(CollectionTest, AWholeTurnBeginsAtTheTopAndA180DegreeSetAtTheLeft) {
  Collect();
  EXPECT_THAT(Surface.Only("dot 250.5,165"), SizeIs(1));
  Tick(chk180, true);
  Forget();
  Collect();
  std::string first;
  for (const std::string& dot : Surface.Only("dot"))
    if (dot.ends_with(kUserColour)) first = dot;
  EXPECT_THAT(first, testing::HasSubstr(",283 ")) << "270 degrees: level with the centre";
}

TEST_F(CollectionTest, InTheRectangularDrawingTheTurnBeginsInTheMiddle) {
  Press(cmdLinear);
  Forget();
  Collect();
  EXPECT_THAT(Surface.Only("filled box"), SizeIs(1));
  const auto dots = Surface.Only("dot");
  ASSERT_THAT(dots, testing::Not(IsEmpty()));
  EXPECT_THAT(dots.front(), testing::StartsWith("dot 260,")) << "left edge 26 and half of 468";
}

TEST_F(CollectionTest, WhoAndWhenAreRecordedOfThisTurn) {
  HoldBeam();
  Dialogs.Answer = "DL0XY";
  Press(lblOperator);
  System.Now = "11:11 22/11/2026";
  Collect();
  EXPECT_EQ(Record().CollectedBy, "DL0XY");
  EXPECT_EQ(Record().CollectedDate, "11:11 22/11/2026");
  EXPECT_EQ(Text(lblDateTime), "11:11 22/11/2026");
  EXPECT_EQ(Text(lblCollectedBy), "DL0XY");
}

TEST_F(CollectionTest, BeginsAndEndsInItsOrder) {
  HoldBeam();
  Enter(txtTrimFront, "3");
  Forget();
  Collect();
  const std::vector<std::string> order = {"lblDateTime=10:22 21/11/2026",
                                          "clear",
                                          "txtTrimFront=0",
                                          "cmdCollectData disabled",
                                          "cmdHaltInput enabled",
                                          "cmdHaltInput focus",
                                          "lblSource=Fake microphone",
                                          "txtChan1=<300.0>",
                                          "txtReadingNumber=1",
                                          "txtChan1=0.0",
                                          "txtReadingsPlotted=360",
                                          "txtTrimEnd=0",
                                          "cmdCollectData enabled",
                                          "cmdHaltInput disabled",
                                          "cmdRescaleData focus"};
  long before = -1;
  for (const std::string& call : order) {
    const auto found = std::find(Log.begin() + before + 1, Log.end(), call);
    ASSERT_NE(found, Log.end()) << call;
    before = found - Log.begin();
  }
}

TEST_F(CollectionTest, LocksTheWindowAndGivesHaltTheFocus) {
  std::vector<Control> disabled;
  std::optional<Control> focus;
  bool halt = false;
  At(5, [&] {
    disabled = View.Disabled();
    focus = View.Focus;
    halt = View.Of(cmdHaltInput).Enabled;
  });
  Collect();
  EXPECT_THAT(disabled, testing::IsSupersetOf(LockedInCollection()));
  EXPECT_THAT(disabled, UnorderedElementsAreArray(LockedInCollection())) << "and nothing else";
  EXPECT_EQ(focus, cmdHaltInput);
  EXPECT_TRUE(halt);
  EXPECT_LT(PlaceOf("cmdCollectData disabled"), PlaceOf("cmdHaltInput enabled"));
}

TEST_F(CollectionTest, UnlocksTheWindowAndGivesRescaleTheFocus) {
  Collect();
  EXPECT_THAT(View.Disabled(), testing::ElementsAre(cmdHaltInput));
  EXPECT_EQ(View.Focus, cmdRescaleData);
  EXPECT_EQ(View.Of(chkCalibrate).Background, (Colour{255, 255, 192}));
  EXPECT_FALSE(View.Of(chkCalibrate).Bold);
  EXPECT_EQ(Text(txtChan1), "0.0");
  EXPECT_EQ(View.Of(txtChan1).Background, (Colour{255, 255, 0}));
  EXPECT_FALSE(View.Of(cmdTrigger).Visible);
  EXPECT_LT(PlaceOf("txtChan1=0.0"), PlaceOf("cmdRescaleData focus"));
}

TEST_F(CollectionTest, UnlockingLeavesLogLinAloneWhileThePlotIsNotInDb) {
  Tick(chkPlotInDB, false);
  Collect();
  EXPECT_FALSE(View.Of(cmdLogLin).Enabled);
  Tick(chkPlotInDB, true);
  Collect();
  EXPECT_TRUE(View.Of(cmdLogLin).Enabled);
}

TEST_F(CollectionTest, NothingIsRedrawnAfterwardsUntilTheUserActs) {
  Collect();
  EXPECT_EQ(Grids(), 1);
  Forget();
  Press(cmdRescaleData);
  EXPECT_GE(Grids(), 1);
}

TEST_F(CollectionTest, TheNewPatternIsDrawnOnActivation) {
  Heard = [this] { return FileRecord().Readings(std::min(ReadingsDone(), 359)); };
  Collect();
  Forget();
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(CollectionTest, WhatTheUserDoesMeanwhileDrawsNothingAndOpensNothing) {
  At(20, [this] {
    const std::size_t drawn = Surface.Operations.size();
    Activate();
    Enter(txtRotate, "5");
    Enter(txtTrimFront, "5");
    Enter(txtTrimEnd, "5");
    Tick(chk180, true);
    Tick(chk180, false);
    Tick(chkShow3dB, false);
    Slide(Slider1, 50);
    Choose("  2");
    Press(lblOperator);
    EXPECT_EQ(Surface.Operations.size(), drawn);
  });
  Collect();
  EXPECT_THAT(Dialogs.Prompts, IsEmpty());
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Record().NumReadings, 359);
}

TEST_F(CollectionTest, TheLevelIsShownInTheSystemsFormWithItsColour) {
  std::string level;
  std::optional<Colour> shade;
  Heard = [] { return 900.F; };
  At(5, [&] {
    level = Text(txtChan1);
    shade = View.Of(txtChan1).Background;
  });
  Collect();
  EXPECT_EQ(level, "<900.0>");
  EXPECT_EQ(shade, (Colour{0, 255, 0}));
  EXPECT_THAT(Only("txtChan1 background"),
              ElementsAre("txtChan1 background #00ff00", "txtChan1 background #ffff00"))
      << "a colour that is there already is not painted at every sample";
}

TEST_F(CollectionTest, TheSourceIsNamedBesideTheLevel) {
  std::string during;
  At(1, [&] { during = Text(lblSource); });
  Collect();
  EXPECT_EQ(during, "Fake microphone");
  EXPECT_EQ(Text(lblSource), "Fake microphone");
}

TEST_F(CollectionTest, AutoStartWaitsForALevelAboveItsThreshold) {
  View.Of(chkAutoStart).Checked = true;
  int waited = 0;
  Heard = [&] { return ++waited < 50 ? 7.F : 300.F; };
  Collect();
  EXPECT_EQ(Record().Readings(0), 300.F);
  EXPECT_EQ(Record().NumReadings, 359);
}

TEST_F(CollectionTest, ALevelLeftFromTheLastCaptureDoesNotStart) {
  View.Of(chkAutoStart).Checked = true;
  Shared.Sound.SoundLevel = 500.F;
  int blocks = 0;
  Heard = [&] { return ++blocks < 10 ? 5.F : 300.F; };
  Collect();
  EXPECT_EQ(Record().Readings(0), 300.F);
}

TEST_F(CollectionTest, TheManualTriggerStandsReadyWhileTriggered) {
  View.Of(chkTrigger).Checked = true;
  bool shown = false;
  int yields = 0;
  OnYield = [&] {
    if (!View.Of(cmdTrigger).Visible) return;
    shown = true;
    if (++yields % 3 == 0) Press(cmdTrigger);
  };
  Collect();
  EXPECT_TRUE(shown);
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_FALSE(View.Of(cmdTrigger).Visible);
}

TEST_F(CollectionTest, ARunEndsAnOverlay) {
  HoldPair();
  Collect();
  EXPECT_FALSE(Pattern.Beneath());
}

TEST_F(CollectionTest, TheFieldsOfTheFormerPatternAreCleared) {
  HoldBeam();
  Enter(txtRotate, "30");
  Enter(txtTrimFront, "3");
  std::string seen;
  At(1, [&] {
    for (const Control box :
         {txtRotate, txtTrimFront, txtTrimEnd, txtFileName, txtAngle, txtGain, txtDescription})
      seen += Text(box) + "|";
  });
  Collect();
  EXPECT_EQ(seen, "0|0|0||Angle|Gain||");
}

TEST_F(CollectionTest, ATypedDescriptionGoesWithTheNewPattern) {
  Type(txtDescription, "North field");
  Form.File().txtDescription_Change();
  Collect();
  EXPECT_EQ(Record().Description, "North field");
  EXPECT_EQ(Text(txtDescription), "North field");
}

TEST(ShadeOfTest, EveryStatusHasItsShade) {
  EXPECT_EQ(ShadeOf(StatusColour::Yellow), (Colour{255, 255, 0}));
  EXPECT_EQ(ShadeOf(StatusColour::Green), (Colour{0, 255, 0}));
  EXPECT_EQ(ShadeOf(StatusColour::LightRed), (Colour{255, 192, 192}));
  EXPECT_EQ(ShadeOf(StatusColour::Red), (Colour{255, 0, 0}));
  EXPECT_EQ(ShadeOf(StatusColour::LightYellow), (Colour{255, 255, 192}));
}

}  // namespace
}  // namespace lobegraph
