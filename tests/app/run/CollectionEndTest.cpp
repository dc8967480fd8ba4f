// How a turn ends: halted, by itself, by a fault, or not begun at all; and what the window then says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "app/CollectionFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CollectionEndTest : public CollectionFixture {};

TEST_F(CollectionEndTest, AHaltedRunKeepsWhatItTookAndNoTailOfTheFormerSet) {
  HoldBeam();
  HaltAfter(100);
  Collect();
  EXPECT_EQ(Record().NumReadings, 99);
  EXPECT_EQ(Record().ReadingCount, 100.0);
  EXPECT_EQ(Text(txtReadingNumber), "100");
  EXPECT_EQ(Text(txtReadingsPlotted), "100");
  EXPECT_EQ(Record().Readings(100), 0.F);
  EXPECT_EQ(Text(lblHint), "Halted after 100 readings. Rescale turns the beam up; then Save File.");
}

TEST_F(CollectionEndTest, AHaltThatTakesEffectOnTheLastReadingDropsItOnPurpose) {
  Pump.OnYield = [this, last = 0](int) mutable {
    if (Sound.ring) {
      Sound.ring->Write(test::BlockOf(9600));
      Sound.Deliver();
    }
    // Within the last reading's own time no yield comes: the flag is set as auto stop sets it.
    if (ReadingsDone() == 359 && last++ == 0) {
      Shared.Settings.DetectStopLevel = 1000.F;
      Shared.Settings.DetectStopNumberOfReadings = 1;
      View.Of(chkAutoStop).Checked = true;
    }
  };
  Collect();
  EXPECT_EQ(Record().NumReadings, 358);
  EXPECT_EQ(Text(txtReadingNumber), "359");
}

TEST_F(CollectionEndTest, HaltedAtOnceNothingIsHeld) {
  HoldBeam();
  View.Of(txtReadingNumber).Text = "0";
  OnYield = [this] {
    if (Shared.Run.IsCollecting && View.Of(cmdHaltInput).Enabled) Press(cmdHaltInput);
  };
  Collect();
  EXPECT_EQ(Record().NumReadings, -1);
  EXPECT_EQ(Text(txtReadingNumber), "0");
  EXPECT_EQ(Text(txtReadingsPlotted), "0");
  EXPECT_EQ(Text(lblHint), "No reading was taken.");
  Forget();
  SaveAs("/patterns/new.lbg");
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG003 No data to save"));
  Forget();
  Activate();
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
}

TEST_F(CollectionEndTest, AutoStopOffersTheSilentReadingsForTrimming) {
  View.Of(chkAutoStop).Checked = true;
  Heard = [this] { return ReadingsDone() < 70 ? 300.F : 5.F; };
  Collect();
  EXPECT_EQ(Record().NumReadings, 74);
  EXPECT_EQ(Text(txtTrimEnd), "5");
  EXPECT_EQ(Record().TrimEnd, 5);
}

TEST_F(CollectionEndTest, ATurnInWhichNothingWasHeardSaysSo) {
  Heard = [] { return 0.F; };
  Collect();
  EXPECT_EQ(Text(lblHint), "Nothing was heard: check cable, volume and input.");
}

TEST_F(CollectionEndTest, LateReadingsAreNamed) {
  At(10, [this] { Time.Advance(450); });
  Collect();
  EXPECT_THAT(Text(lblHint), testing::MatchesRegex("[0-9]+ readings came late, the first is No. 11\\."));
}

TEST_F(CollectionEndTest, WithoutASoundServerRecordAndBoxesAreAsTheyWere) {
  HoldBeam(90);
  Enter(txtRotate, "30");
  Enter(txtTrimEnd, "4");
  const std::string pattern = WritePatternText(Record(), "");
  std::vector<std::string> boxes;
  const auto all = {txtRotate,   txtTrimFront,       txtTrimEnd,     txtReadingsPlotted,
                    txtFileName, txtDescription,     txtAngle,       txtGain,
                    cboElements, lblFileDescription, lblCollectedBy, lblCollectedDate};
  for (const Control box : all) boxes.push_back(Text(box));
  Forget();
  Sound.firstError = "No sound server answers.";
  Collect();
  EXPECT_EQ(WritePatternText(Record(), ""), pattern);
  EXPECT_EQ(Record().ReadingCount, 359.0);
  std::size_t next = 0;
  for (const Control box : all) EXPECT_EQ(Text(box), boxes[next++]) << RowOf(box).Name;
  EXPECT_TRUE(Pattern.DescriptionLoaded());
  EXPECT_GT(Pattern.BeamwidthDeg(), 0.F);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 356) << "and the plot is there again";
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_EQ(Dialogs.Messages[0], (UserMessage{"No sound server answers.", "DirectSound Error", true}));
  EXPECT_TRUE(View.Of(cmdCollectData).Enabled);
  EXPECT_LT(PlaceOf("cmdCollectData enabled"), PlaceOf("message No sound server answers."));
  EXPECT_FALSE(std::filesystem::exists(State.File("turns"))) << "no safety copy of nothing";
  SaveAs("/patterns/again.lbg");
  EXPECT_TRUE(Files.Held.contains("/patterns/again.lbg"));
}

TEST_F(CollectionEndTest, AnAbandonedFirstStartLeavesTheEmptyWindow) {
  Sound.openError = "The source is gone.";
  const std::string hint = Text(lblHint);
  Collect();
  EXPECT_EQ(Record().ReadingCount, 0.0);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
  EXPECT_EQ(Text(lblHint), hint);
  EXPECT_EQ(View.Of(Slider1).Value, 35);
}

TEST_F(CollectionEndTest, ASourceFromWhichNothingComesIsGivenUp) {
  HoldBeam();
  Silent = true;
  const std::int32_t start = Time.NowMs;
  Collect();
  EXPECT_LE(Time.NowMs - start, 2100);
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_EQ(Dialogs.Messages[0].Text, "The sound input is open, but nothing has come from it for 2 seconds.");
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(CollectionEndTest, AServerThatDiesInTheMiddleKeepsTheReadingsAndSpeaksAfterTheUnlock) {
  At(50, [this] { Sound.Fail("The sound server has gone."); });
  Collect();
  EXPECT_EQ(Record().ReadingCount, 50.0);
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_EQ(Dialogs.Messages[0].Text, "The sound server has gone.");
  EXPECT_LT(PlaceOf("cmdRescaleData focus"), PlaceOf("message The sound server has gone."));
}

TEST_F(CollectionEndTest, AMetersClosedPortChangesNothing) {
  HoldBeam();
  Shared.Settings.Input.InputDeviceIsdBMeter = true;
  Collect();
  EXPECT_THAT(Log, ElementsAre("message The Com port for the serially attached dB meter is not available"));
  EXPECT_EQ(Text(txtFileName), "beam.lbg");
}

TEST_F(CollectionEndTest, AnExternalMetersTurnKeepsTheMetersNameBesideTheLevel) {
  Shared.Settings.Input.InputDeviceIsdBMeter = true;
  Shared.Settings.Input.GaugeBridge = true;
  Store.Put("Active", "Y", "GaugeBridge");
  Type(lblSource, "External meter program");
  Store.Put("Reading", "-6", "GaugeBridge");
  Collect();
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_NEAR(Record().Readings(359), 501.19F, .01F);
  EXPECT_EQ(Text(lblSource), "External meter program");
  EXPECT_EQ(Sound.calls, "");
}

TEST_F(CollectionEndTest, AMeterThatFellSilentIsToldAfterTheUnlock) {
  Store.Put("InputDeviceIsdBMeter", "True");
  Store.Put("GaugeBridge", "True");
  Shared.Settings.Input = {.InputDeviceIsdBMeter = true, .GaugeBridge = true};
  Store.Put("Active", "Y", "GaugeBridge");
  Store.Put("Reading", "-6", "GaugeBridge");
  At(100, [this] { Store.Put("Active", "N", "GaugeBridge"); });
  Collect();
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::StartsWith("The meter had no fresh value for 2"));
  EXPECT_FALSE(Dialogs.Messages[0].Exclamation) << "the pattern is there";
  EXPECT_LT(PlaceOf("cmdRescaleData focus"), PlaceOf("message " + Dialogs.Messages[0].Text));
}

TEST_F(CollectionEndTest, AFaultIsReportedWithTheWindowUnlocked) {
  Shared.Settings.PeakInputLevel = 0.F;
  View.Of(chkPlotInDB).Checked = false;
  Collect();
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_THAT(Dialogs.Messages[0].Text,
              testing::MatchesRegex(
                  "Error 6 \\(Overflow\\) in line [0-9]+ of procedure cmdCollectData_Click of Form Form1"));
  EXPECT_TRUE(View.Of(cmdCollectData).Enabled);
  EXPECT_FALSE(Shared.Run.IsCollecting);
}

TEST_F(CollectionEndTest, ReadingsKeptAfterAFaultAreDrawnEvenThoughADamagedFileCameBefore) {
  DamageRecord();
  At(150, [] { throw RunTimeError(fault::kOverflow); });
  Collect();
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_GT(Record().ReadingCount, 100.0);
  Forget();
  Activate();
  EXPECT_GT(Surface.Count("line", kTraceColour), 100);
}

TEST_F(CollectionEndTest, ATurnAfterADamagedFileIsDrawn) {
  DamageRecord();
  Collect();
  Forget();
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(CollectionEndTest, AfterAnAbandonedStartADamagedPatternIsStillNotDrawn) {
  DamageRecord();
  Sound.firstError = "No sound server answers.";
  Collect();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
  Forget();
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
}

TEST_F(CollectionEndTest, AWindowThatIsClosedInTheMiddleEndsTheTurnAndWritesNoMore) {
  std::string hint;
  At(30, [this, &hint] {
    hint = Text(lblHint);
    Shared.Run.RequestClose();
    Log.clear();
  });
  Collect();
  EXPECT_FALSE(Shared.Run.IsCollecting);
  EXPECT_EQ(Record().Readings(30), 0.F);
  EXPECT_EQ(Record().ReadingCount, 0.0);
  EXPECT_EQ(Text(lblHint), hint);
  EXPECT_THAT(Only("cmd"), IsEmpty()) << "nothing is unlocked for a second turn";
  EXPECT_EQ(OnDisk(TurnFile()).NumReadings, 29) << "and yet nothing measured is lost";
}

}  // namespace
}  // namespace lobegraph
