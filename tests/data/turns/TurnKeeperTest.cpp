#include "data/turns/TurnKeeper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "data/base/FileAccess.h"
#include "data/formats/PatternFile.h"
#include "data/turns/TurnDigest.h"
#include "data/turns/TurnFolder.h"
#include "data/turns/TurnLogText.h"
#include "support/TemporaryFolder.h"
#include "support/TestRecord.h"
#include "support/TimeZone.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class TurnKeeperTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string turns_ = folder_.File("state/turns");
  std::int64_t now_ = 1'795'257'753'045;
  TurnKeeper keeper_{turns_, "V2.1.0", [this] { return now_; }};
  ReadingsRecord record_ = BeamRecord();

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(turns_, none))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  static ReadingsRecord Loaded(const std::string& path) {
    DiskFiles disk;
    ReadingsRecord record;
    const LoadOutcome outcome = LoadPatternFile(disk, path, {}, record);
    EXPECT_FALSE(outcome.Error) << path;
    return record;
  }
  static std::string TextOf(const std::string& path) {
    std::ostringstream all;
    all << std::ifstream(path, std::ios::binary).rdbuf();
    return all.str();
  }
  TurnLog LogOnDisk() const { return ReadTurnLog(TextOf(LogPathOf(Path()))); }
  std::string Path() const { return KeptTurns(turns_).front().Path; }
  void Turn(int readings = 60) {
    keeper_.Begin({});
    for (int i = 0; i < readings; ++i) keeper_.Store(record_, {.Index = i});
    record_.NumReadings = static_cast<std::int16_t>(readings - 1);
    keeper_.Finish(record_, turnend::kWhole);
  }
  void PutInTheWay() const { std::ofstream(folder_.File("state")) << "a file where the folder should be"; }
};

TEST_F(TurnKeeperTest, AfterEachReadingTheFileIsAPatternOfAllSoFar) {
  keeper_.Begin({});
  for (const int last : {0, 1, 59, 359}) {
    keeper_.Store(record_, {.Index = last});
    const ReadingsRecord loaded = Loaded(keeper_.Path());
    EXPECT_EQ(loaded.NumReadings, last);
    EXPECT_EQ(loaded.ReadingsPlotted, last + 1);
    for (int i = 0; i <= last; ++i) EXPECT_NEAR(loaded.Readings(i), record_.Readings(i), 1e-3);
  }
  EXPECT_EQ(keeper_.Failure(), "");
  EXPECT_EQ(record_.NumReadings, 359) << "the record itself is left alone";
}

TEST_F(TurnKeeperTest, TheLogTellsEachReadingAsItWasTaken) {
  const TimeZone east("UTC-1");
  keeper_.Begin({.Operator = "N0CALL", .Source = "Line-in", .PlannedReadings = 360, .RotationSeconds = 60.});
  keeper_.Store(record_, {.Index = 0, .Samples = 7});
  now_ += 167;
  keeper_.Store(record_, {.Index = 1, .Samples = 5, .Late = true, .Silent = true});
  EXPECT_EQ(TextOf(LogPathOf(keeper_.Path())),
            "# turn log: 1\r\n# program: Lobegraph V2.1.0\r\n# operator: N0CALL\r\n"
            "# started: 2026-11-21T11:42:33.045+01:00\r\n# source: Line-in\r\n# planned readings: 360\r\n"
            "# rotation time: 60\r\n# ended: killed\r\n"
            "reading,time,level,samples,flags\r\n"
            "1,2026-11-21T11:42:33.045+01:00,900,7,\r\n"
            "2,2026-11-21T11:42:33.212+01:00,899.9315,5,late silent\r\n");
}

TEST_F(TurnKeeperTest, FurtherColumnsAndKeysComeAtTheEnd) {
  keeper_.Begin({.MoreColumns = {"bearing"}, .MoreKeys = {{"rotator", "Dummy"}}});
  keeper_.Store(record_, {.Index = 0, .More = {"12.5"}});
  const TurnLog log = LogOnDisk();
  EXPECT_EQ(log.Columns().back(), "bearing");
  EXPECT_EQ(log.Number(0, "bearing"), 12.5);
  EXPECT_EQ(log.Keys().back().first, "rotator");
}

TEST_F(TurnKeeperTest, TheEndIsWrittenAsTheRecordSays) {
  keeper_.Begin({});
  for (int i = 0; i < 360; ++i) keeper_.Store(record_, {.Index = i});
  record_.NumReadings = 358;
  record_.TrimEnd = 5;
  keeper_.Log().SetKey(turnkey::kRemark, "2 readings came late");
  keeper_.Finish(record_, turnend::kHalted);
  const ReadingsRecord loaded = Loaded(keeper_.Path());
  EXPECT_EQ(loaded.NumReadings, 358);
  EXPECT_EQ(loaded.TrimEnd, 5);
  const TurnLog log = LogOnDisk();
  EXPECT_EQ(log.Key(turnkey::kTaken), "359");
  EXPECT_EQ(log.Key(turnkey::kEnded), "halted");
  EXPECT_EQ(log.Key(turnkey::kRemark), "2 readings came late");
  EXPECT_THAT(log.Rows(), SizeIs(359));
  EXPECT_EQ(OwnerOf(log, loaded), LogOwner::Collected);
}

TEST_F(TurnKeeperTest, UntilTheEndTheLogOfTheReadingsSoFarIsTheirs) {
  keeper_.Begin({});
  for (int i = 0; i < 20; ++i) {
    keeper_.Store(record_, {.Index = i});
    EXPECT_EQ(OwnerOf(LogOnDisk(), Loaded(keeper_.Path())), LogOwner::Unfinished) << i;
  }
}

TEST_F(TurnKeeperTest, NothingIsWrittenBeforeTheFirstReadingNorForNone) {
  keeper_.Begin({});
  EXPECT_THAT(Names(), IsEmpty());
  record_.NumReadings = -1;
  keeper_.Finish(record_, turnend::kHalted);
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_EQ(keeper_.Failure(), "");
}

TEST_F(TurnKeeperTest, NumbersGoOnWhateverTheClockSays) {
  const TimeZone utc("UTC");
  Turn();
  now_ = 10'000;
  Turn();
  EXPECT_THAT(Names(),
              ElementsAre("turn 000001 2026-11-21 10.42.33.lbg", "turn 000001 2026-11-21 10.42.33.turn.csv",
                          "turn 000002 1970-01-01 00.00.10.lbg", "turn 000002 1970-01-01 00.00.10.turn.csv"));
}

TEST_F(TurnKeeperTest, TwoProgramsThatBeginInOneMomentDoNotShareAFile) {
  TurnKeeper other(turns_, "V2.1.0", [this] { return now_; });
  keeper_.Begin({});
  other.Begin({});
  keeper_.Store(record_, {.Index = 0});
  other.Store(record_, {.Index = 0});
  EXPECT_NE(keeper_.Path(), other.Path());
  EXPECT_THAT(Names(), SizeIs(4));
}

TEST_F(TurnKeeperTest, ATurnStaysHeldUntilTheNextBegins) {
  Turn();
  const std::string path = keeper_.Path();
  EXPECT_TRUE(HeldElsewhere(path));
  keeper_.Begin({});
  EXPECT_FALSE(HeldElsewhere(path));
}

TEST_F(TurnKeeperTest, AnotherProgramsShortTurnsDoNotCostTheOneThatRuns) {
  keeper_.Begin({});
  keeper_.Store(record_, {.Index = 0});
  TurnKeeper other(turns_, "V2.1.0", [this] { return now_; });
  for (int turn = 0; turn < 15; ++turn) {
    other.Begin({});
    other.Store(record_, {.Index = 0});
    ReadingsRecord one = record_;
    one.NumReadings = 0;
    other.Finish(one, turnend::kHalted);
  }
  EXPECT_EQ(Loaded(keeper_.Path()).NumReadings, 0);
}

TEST_F(TurnKeeperTest, AThousandTurnsLeaveThirtyAndTen) {
  for (int turn = 0; turn < 1000; ++turn) Turn(turn % 3 == 0 ? 2 : 20);
  const std::vector<KeptTurn> kept = KeptTurns(turns_);
  EXPECT_THAT(kept, SizeIs(40));
  EXPECT_THAT(Names(), SizeIs(80));
  EXPECT_EQ(kept.front().Name.Number, 1000);
}

TEST_F(TurnKeeperTest, ATurnThatIsBrokenOffHoldsWhatWasStored) {
  keeper_.Begin({});
  EXPECT_TRUE(keeper_.Running());
  for (int i = 0; i < 30; ++i) keeper_.Store(record_, {.Index = i});
  record_.NumReadings = 0;  // whatever the record says
  keeper_.BreakOff(record_, turnend::kClosed);
  EXPECT_FALSE(keeper_.Running());
  const ReadingsRecord loaded = Loaded(keeper_.Path());
  EXPECT_EQ(loaded.NumReadings, 29);
  EXPECT_EQ(LogOnDisk().Key(turnkey::kEnded), "closed");
  EXPECT_EQ(LogOnDisk().Key(turnkey::kTaken), "30");
  EXPECT_EQ(OwnerOf(LogOnDisk(), loaded), LogOwner::Collected);
}

TEST_F(TurnKeeperTest, AReadingThatWasTakenAndThenDroppedStaysOnDiskWithItsLog) {
  keeper_.Begin({});
  keeper_.Store(record_, {.Index = 0});
  record_.NumReadings = -1;
  keeper_.Finish(record_, turnend::kHalted);
  EXPECT_EQ(Loaded(keeper_.Path()).NumReadings, 0);
  EXPECT_EQ(OwnerOf(LogOnDisk(), Loaded(keeper_.Path())), LogOwner::Collected);
}

TEST_F(TurnKeeperTest, WhatTurnsOutToBeSilentIsFlaggedOnceBesideOtherFlags) {
  keeper_.Begin({});
  keeper_.Store(record_, {.Index = 0});
  keeper_.Store(record_, {.Index = 1, .Late = true, .Suspended = true});
  keeper_.Store(record_, {.Index = 2, .Silent = true});
  keeper_.FlagSilent(1, 99);
  record_.NumReadings = 2;
  keeper_.Finish(record_, turnend::kWhole);
  const TurnLog log = LogOnDisk();
  EXPECT_EQ(log.Cell(0, turncolumn::kFlags), "");
  EXPECT_EQ(log.Cell(1, turncolumn::kFlags), "late suspended silent");
  EXPECT_EQ(log.Cell(2, turncolumn::kFlags), "silent");
}

TEST_F(TurnKeeperTest, AFolderThatVanishedInTheTurnIsMadeAgain) {
  keeper_.Begin({});
  for (int i = 0; i < 30; ++i) keeper_.Store(record_, {.Index = i});
  std::filesystem::remove_all(turns_);
  record_.NumReadings = 29;
  keeper_.Finish(record_, turnend::kWhole);
  EXPECT_EQ(keeper_.Failure(), "");
  EXPECT_EQ(Loaded(keeper_.Path()).NumReadings, 29);
  EXPECT_THAT(LogOnDisk().Rows(), SizeIs(30));
}

TEST_F(TurnKeeperTest, WhatADamagedFileLeftInTheRecordDoesNotSpoilTheCopy) {
  record_.PeakIndex = 500;
  keeper_.Begin({});
  keeper_.Store(record_, {.Index = 0});
  EXPECT_EQ(Loaded(keeper_.Path()).NumReadings, 0);
}

TEST_F(TurnKeeperTest, AStaleLogOfThatNameIsNotTheNewTurns) {
  keeper_.Begin({});
  std::filesystem::create_directories(turns_);
  const std::string stale = turns_ + "/turn 000001 " + TimeForFileName(now_) + ".turn.csv";
  std::ofstream(stale) << "somebody else's";
  keeper_.Store(record_, {.Index = 0});
  EXPECT_EQ(keeper_.LogFailure(), "");
  EXPECT_THAT(LogOnDisk().Rows(), SizeIs(1));
}

TEST_F(TurnKeeperTest, TroubleWithTheDiskIsToldNotThrown) {
  PutInTheWay();
  keeper_.Begin({});
  keeper_.Store(record_, {.Index = 0});
  EXPECT_EQ(keeper_.Failure(), "Path not found");
  keeper_.Finish(record_, turnend::kWhole);
  EXPECT_EQ(keeper_.Failure(), "Path not found");
}

TEST_F(TurnKeeperTest, TheTroubleIsForgottenOnceTheTurnCanBeWrittenAndNoRowIsMissing) {
  PutInTheWay();
  keeper_.Begin({});
  keeper_.Store(record_, {.Index = 0});
  std::filesystem::remove(folder_.File("state"));
  keeper_.Store(record_, {.Index = 1});
  EXPECT_EQ(keeper_.Failure(), "");
  EXPECT_EQ(Loaded(keeper_.Path()).NumReadings, 1);
  EXPECT_THAT(LogOnDisk().Rows(), SizeIs(2));
}

TEST_F(TurnKeeperTest, ALogThatCannotBeWrittenCostsNoPattern) {
  keeper_.Begin({});
  keeper_.Store(record_, {.Index = 0});
  std::filesystem::remove(LogPathOf(keeper_.Path()));
  std::filesystem::create_directory(LogPathOf(keeper_.Path()));
  record_.NumReadings = 0;
  keeper_.Finish(record_, turnend::kHalted);
  EXPECT_EQ(keeper_.Failure(), "");
  EXPECT_EQ(keeper_.LogFailure(), "Path/File access error");
  EXPECT_EQ(Loaded(keeper_.Path()).NumReadings, 0);
}

TEST_F(TurnKeeperTest, ANewTurnForgetsTheTroubleOfTheLast) {
  PutInTheWay();
  Turn();
  keeper_.Begin({});
  EXPECT_EQ(keeper_.Failure(), "");
}

}  // namespace
}  // namespace lobegraph
