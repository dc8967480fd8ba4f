#include "data/turns/TurnFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "data/formats/PatternFile.h"
#include "data/turns/HeldFile.h"
#include "support/TemporaryFolder.h"
#include "support/TestRecord.h"
#include "support/Variable.h"

namespace lobegraph {
namespace {

using testing::Contains;
using testing::Not;
using testing::SizeIs;

TEST(StateFolderTest, LiesWhereTheDesktopKeepsState) {
  const Variable home("HOME", "/home/ham");
  {
    const Variable state("XDG_STATE_HOME", "/var/state");
    EXPECT_EQ(StateFolder(), "/var/state/lobegraph");
  }
  const Variable state("XDG_STATE_HOME", nullptr);
  EXPECT_EQ(StateFolder(), "/home/ham/.local/state/lobegraph");
}

TEST(TurnNameTest, ANumberedNameIsRead) {
  const auto name = TurnNameOf("turn 000042 2026-11-21 10.22.33.lbg");
  ASSERT_TRUE(name);
  EXPECT_EQ(name->Number, 42);
  EXPECT_EQ(name->When, "2026-11-21 10.22.33");
  EXPECT_EQ(name->Stem, "turn 000042 2026-11-21 10.22.33");
  EXPECT_EQ(TurnNameOf("turn 1000000 2026-11-21 10.22.33.lbg")->Number, 1'000'000);
}

TEST(TurnNameTest, AnEarlierVersionsNameHasNoNumber) {
  for (const char* text : {"turn 2026-11-21 10.22.33.lbg", "turn 2026-11-21 10.22.33 2.lbg"}) {
    const auto name = TurnNameOf(text);
    ASSERT_TRUE(name) << text;
    EXPECT_EQ(name->Number, 0);
    EXPECT_EQ(name->When, "2026-11-21 10.22.33");
  }
}

TEST(TurnNameTest, NoOtherNameIsATurns) {
  for (const char* text :
       {"turn of the beam.lbg", "turn.lbg", "turn .lbg", "turn 000042.lbg",
        "turn 000042 2026-11-21 10.22.33.LBG", "turn 000042 2026-11-21 10.22.33.lbg.bak",
        "turn 000042 2026-11-21 10.22.33 good.lbg", "turn 42 2026-11-21 10.22.33.lbg",
        "turn 000042 2026-11-21 10:22:33.lbg", "Turn 000042 2026-11-21 10.22.33.lbg",
        "turn 000000 2026-11-21 10.22.33.lbg", "turn 9999999999999999999 2026-11-21 10.22.33.lbg",
        "turn 00004x 2026-11-21 10.22.33.lbg", "turn 2026-11-21 10.22.33 x.lbg",
        "turn 2026-11-21 10.22.33 .lbg", "my turn 2026-11-21 10.22.33.lbg",
        "turn 000042 2026-11-21 10.22.33.turn.csv", ""})
    EXPECT_FALSE(TurnNameOf(text)) << text;
}

TEST(TurnNameTest, TheLogLiesBesideThePattern) {
  EXPECT_EQ(LogPathOf("/home/ham/beam.lbg"), "/home/ham/beam.turn.csv");
  EXPECT_EQ(LogPathOf("/home/ham/BEAM.LBG"), "/home/ham/BEAM.turn.csv");
  EXPECT_EQ(LogPathOf("/home/ham/beam.msi"), "/home/ham/beam.msi.turn.csv");
}

class TurnFolderTest : public testing::Test {
 protected:
  TemporaryFolder folder_;

  std::string Put(int number, int readings = 60, float level = 100.F) {
    std::string digits = std::to_string(number);
    digits.insert(0, 6 - digits.size(), '0');
    return PutNamed("turn " + digits + " 2026-11-21 10.00.00", readings, level);
  }
  std::string PutNamed(const std::string& stem, int readings = 60, float level = 100.F) {
    ReadingsRecord record;
    record.NumReadings = static_cast<std::int16_t>(readings - 1);
    for (int i = 0; i < readings; ++i) record.Readings(i) = level;
    const std::string path = folder_.File(stem + ".lbg");
    std::ofstream(path, std::ios::binary) << WritePatternText(record, "V1.0.0");
    std::ofstream(LogPathOf(path)) << "reading,level\r\n";
    return path;
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
      names.push_back(entry.path().filename().string());
    return names;
  }
};

TEST_F(TurnFolderTest, TheNewestTurnComesFirstWhateverTheDateSays) {
  PutNamed("turn 2099-01-01 00.00.00");
  PutNamed("turn 000009 1970-01-01 00.00.10");
  PutNamed("turn 000010 1969-01-01 00.00.10");
  PutNamed("turn 2026-01-01 00.00.00");
  std::vector<std::string> stems;
  for (const KeptTurn& turn : KeptTurns(folder_.Path().string())) stems.push_back(turn.Name.Stem);
  EXPECT_THAT(stems,
              testing::ElementsAre("turn 000010 1969-01-01 00.00.10", "turn 000009 1970-01-01 00.00.10",
                                   "turn 2099-01-01 00.00.00", "turn 2026-01-01 00.00.00"));
}

TEST_F(TurnFolderTest, AFolderThatIsNotThereHasNone) {
  EXPECT_THAT(KeptTurns(folder_.File("none")), SizeIs(0));
}

TEST_F(TurnFolderTest, AFolderOfATurnsNameIsNone) {
  std::filesystem::create_directory(folder_.File("turn 000001 2026-11-21 10.00.00.lbg"));
  EXPECT_THAT(KeptTurns(folder_.Path().string()), SizeIs(0));
}

TEST_F(TurnFolderTest, ThirtyTurnsAreKeptWithTheirLogs) {
  for (int number = 1; number <= 33; ++number) Put(number);
  DropOldTurns(folder_.Path().string());
  EXPECT_THAT(KeptTurns(folder_.Path().string()), SizeIs(30));
  EXPECT_THAT(Names(), SizeIs(60));
  EXPECT_THAT(Names(), Not(Contains(testing::HasSubstr("turn 000003 "))));
  EXPECT_THAT(Names(), Contains("turn 000004 2026-11-21 10.00.00.turn.csv"));
}

TEST_F(TurnFolderTest, ShortAndSilentTurnsAreCountedApart) {
  Put(1);
  for (int number = 2; number <= 8; ++number) Put(number, 19);
  for (int number = 9; number <= 16; ++number) Put(number, 360, 1.F);
  Put(17, 20);
  DropOldTurns(folder_.Path().string());
  std::vector<std::int64_t> left;
  for (const KeptTurn& turn : KeptTurns(folder_.Path().string())) left.push_back(turn.Name.Number);
  EXPECT_THAT(left, testing::ElementsAre(17, 16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 1));
}

TEST_F(TurnFolderTest, ATurnThatAProgramHoldsStays) {
  const std::string path = Put(1);
  for (int number = 2; number <= 40; ++number) Put(number);
  {
    const HeldFile held(path, HeldFile::Open::Existing);
    DropOldTurns(folder_.Path().string());
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_THAT(KeptTurns(folder_.Path().string()), SizeIs(31));
  }
  DropOldTurns(folder_.Path().string());
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(TurnFolderTest, WhatAUserKeepsThereIsNeverDropped) {
  for (const char* name :
       {"beam.lbg", "turn of the beam.lbg", "turn 000001 2026-11-21 10.00.00 good.lbg", "notes.txt"})
    std::ofstream(folder_.File(name)) << "the user's own";
  for (int number = 1; number <= 45; ++number) Put(number);
  DropOldTurns(folder_.Path().string());
  EXPECT_THAT(Names(), SizeIs(64));
}

TEST_F(TurnFolderTest, WhatCannotBeReadIsNotTakenForSilence) {
  const std::string path = folder_.File("turn 000001 2026-11-21 10.00.00.lbg");
  std::ofstream(path) << "360\r\nhalf a";
  EXPECT_TRUE(WorthKeeping(path));
  EXPECT_TRUE(WorthKeeping(folder_.File("gone.lbg")));
}

}  // namespace
}  // namespace lobegraph
