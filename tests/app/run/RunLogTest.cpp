// What the log of a turn says, as the window's run tells it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "app/CollectionFixture.h"
#include "data/turns/TurnDigest.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class RunLogTest : public CollectionFixture {
 protected:
  std::string Cell(int reading, std::string_view column) const {
    return std::string(LogOnDisk().Cell(static_cast<std::size_t>(reading) - 1, column));
  }
  std::string Ended() const { return LogOnDisk().Key(turnkey::kEnded); }
};

TEST_F(RunLogTest, AWholeTurnSaysWhoMeasuredWhatAndHow) {
  View.Of(chkAutoStop).Checked = true;
  Collect();
  const TurnLog log = LogOnDisk();
  EXPECT_EQ(log.Key(turnkey::kProgram), "Lobegraph V2.1.0");
  EXPECT_EQ(log.Key(turnkey::kOperator), "N0CALL");
  EXPECT_EQ(log.Key(turnkey::kSource), Text(lblSource));
  EXPECT_EQ(log.Key(turnkey::kPlanned), "360");
  EXPECT_EQ(log.Key(turnkey::kTaken), "360");
  EXPECT_EQ(log.Key(turnkey::kRotationTime), "36");
  EXPECT_EQ(log.Key(turnkey::kEnded), "whole");
  EXPECT_EQ(log.Key("input"), "Line-in");
  EXPECT_EQ(log.Key("paced by"), "clock");
  EXPECT_EQ(log.Key("peak input level"), "1000");
  EXPECT_EQ(log.Key("auto start above"), "") << "nobody waited for a signal";
  EXPECT_EQ(log.Key("auto stop at"), "7");
  EXPECT_EQ(log.Key("auto stop after"), "5");
  EXPECT_EQ(log.Key(turnkey::kRemark), "360 readings. Rescale turns the beam up; then Save File.");
  EXPECT_THAT(log.Rows(), SizeIs(360));
  EXPECT_EQ(OwnerOf(log, OnDisk(TurnFile())), LogOwner::Collected);
}

TEST_F(RunLogTest, ATurnPacedByATriggerHasNoRotationTime) {
  View.Of(chkTrigger).Checked = true;
  View.Of(chkAutoStart).Checked = true;
  At(3, [this] { View.Of(chkTrigger).Checked = false; });
  OnYield = [this, inner = OnYield] {
    if (Shared.Run.IsCollecting && View.Of(cmdTrigger).Visible) Press(cmdTrigger);
    inner();
  };
  Collect();
  EXPECT_EQ(LogOnDisk().Key(turnkey::kRotationTime), "");
  EXPECT_EQ(LogOnDisk().Key("paced by"), "trigger");
  EXPECT_EQ(LogOnDisk().Key("auto start above"), "7");
  EXPECT_EQ(Cell(1, turncolumn::kSamples), "1") << "five looks at one level of the sound";
}

TEST_F(RunLogTest, AReadingOfTheSoundIsOneLevelWithoutASpread) {
  Heard = [this] { return 100.F + static_cast<float>(ReadingsDone()); };
  Collect();
  const TurnLog log = LogOnDisk();
  EXPECT_EQ(log.Columns().back(), "spread");
  for (const std::size_t row : {0U, 1U, 359U}) {
    EXPECT_EQ(*log.Number(row, turncolumn::kReading), static_cast<double>(row) + 1);
    EXPECT_NEAR(*log.Number(row, turncolumn::kLevel), Record().Readings(static_cast<int>(row)), 1e-3);
    EXPECT_EQ(*log.Number(row, turncolumn::kSamples), 1.);
    EXPECT_EQ(log.Cell(row, "spread"), "");
    EXPECT_EQ(log.Cell(row, turncolumn::kFlags), "");
  }
}

TEST_F(RunLogTest, ALateReadingIsFlaggedAndRemarked) {
  At(10, [this] { Time.Advance(450); });
  Collect();
  EXPECT_EQ(Cell(11, turncolumn::kFlags), "late");
  EXPECT_EQ(Cell(10, turncolumn::kFlags), "");
  EXPECT_THAT(LogOnDisk().Key(turnkey::kRemark), HasSubstr("readings came late, the first is No. 11."));
  EXPECT_THAT(LogOnDisk().Key(turnkey::kRemark), HasSubstr("\n360 readings."));
}

TEST_F(RunLogTest, AReadingInWhichTheComputerSleptIsFlagged) {
  At(10, [this] { Time.Suspended += 5000; });
  Collect();
  EXPECT_EQ(Cell(11, turncolumn::kFlags), "suspended");
}

TEST_F(RunLogTest, EveryReadingOfASilentMeterIsFlaggedFromTheFirst) {
  Store.Put("InputDeviceIsdBMeter", "True");
  Store.Put("GaugeBridge", "True");
  Shared.Settings.Input = {.InputDeviceIsdBMeter = true, .GaugeBridge = true};
  Store.Put("Active", "Y", "GaugeBridge");
  Store.Put("Reading", "-6", "GaugeBridge");
  At(100, [this] { Store.Put("Active", "N", "GaugeBridge"); });
  Collect();
  EXPECT_EQ(Cell(90, turncolumn::kFlags), "");
  EXPECT_EQ(Cell(90, "spread"), "0");
  EXPECT_GT(*LogOnDisk().Number(89, turncolumn::kSamples), 1.);
  for (const int reading : {105, 200, 360}) EXPECT_EQ(Cell(reading, turncolumn::kFlags), "silent") << reading;
  EXPECT_THAT(LogOnDisk().Key(turnkey::kRemark), HasSubstr("The meter had no fresh value for 2"));
  EXPECT_THAT(LogOnDisk().Key("input"), HasSubstr("GaugeBridge"));
}

TEST_F(RunLogTest, TheEndIsNamed) {
  HaltAfter(50);
  Collect();
  EXPECT_EQ(Ended(), "halted");
  EXPECT_EQ(LogOnDisk().Key(turnkey::kTaken), "50");
  EXPECT_THAT(LogOnDisk().Rows(), SizeIs(50));
  OnYield = nullptr;
  View.Of(chkAutoStop).Checked = true;
  Heard = [this] { return ReadingsDone() < 70 ? 300.F : 5.F; };
  Collect();
  EXPECT_EQ(Ended(), "auto stop");
  Heard = [] { return 300.F; };
  At(80, [this] { Sound.Fail("The sound server has gone."); });
  Collect();
  EXPECT_EQ(Ended(), "source lost");
  EXPECT_EQ(Text(lblHint), "The source broke off: the pattern ends with reading No. 80.");
}

TEST_F(RunLogTest, AWindowThatIsClosedInTheMiddleLeavesAPatternAndItsLog) {
  At(30, [this] { Shared.Run.RequestClose(); });
  Collect();
  EXPECT_EQ(Ended(), "closed");
  EXPECT_EQ(OnDisk(TurnFile()).NumReadings, 29);
  EXPECT_THAT(LogOnDisk().Rows(), SizeIs(30));
  EXPECT_EQ(OwnerOf(LogOnDisk(), OnDisk(TurnFile())), LogOwner::Collected);
}

TEST_F(RunLogTest, AFaultOfTheProgramIsNamedAsTheEnd) {
  View.Of(chkPlotInDB).Checked = false;
  At(150, [this] { Shared.Settings.PeakInputLevel = 0.F; });
  Collect();
  EXPECT_EQ(Ended(), "fault");
  EXPECT_EQ(OwnerOf(LogOnDisk(), OnDisk(TurnFile())), LogOwner::Collected);
}

TEST_F(RunLogTest, AllRemarksAreSpokenAndTheMostUrgentIsShown) {
  At(10, [this] { Time.Advance(450); });
  Collect();
  const auto spoken = Only("lblHint spoken ");
  ASSERT_THAT(spoken, SizeIs(1));
  EXPECT_THAT(spoken[0], HasSubstr("came late"));
  EXPECT_THAT(spoken[0], HasSubstr("Rescale turns the beam up"));
  EXPECT_THAT(Text(lblHint), testing::Not(HasSubstr("Rescale")));
}

TEST_F(RunLogTest, ALogThatCannotBeWrittenEndsNoTurnAndIsTold) {
  At(10, [this] {
    std::filesystem::remove(LogPathOf(TurnFile()));
    std::filesystem::create_directory(LogPathOf(TurnFile()));
  });
  Collect();
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_EQ(OnDisk(TurnFile()).NumReadings, 359);
  EXPECT_EQ(Text(lblHint), "Save File now: the turn's log could not be kept (Path/File access error).");
  SaveAs("/patterns/kept.lbg");
  EXPECT_TRUE(Files.Held.contains("/patterns/kept.turn.csv")) << "the window still knows it";
}

}  // namespace
}  // namespace lobegraph
