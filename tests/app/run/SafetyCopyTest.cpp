#include "app/run/SafetyCopy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>

#include "data/formats/PatternFile.h"
#include "support/TemporaryFolder.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SafetyCopyTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string turns_ = folder_.File("state/turns");
  SafetyCopy copy_{turns_, "V2.1.0"};
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
  void Turn(const std::string& when) {
    copy_.Begin(when);
    copy_.Store(record_, 0);
    copy_.Finish(record_);
  }
  static std::string Day(int day) { return "2026-11-" + std::to_string(10 + day) + " 10.00.00"; }
};

TEST_F(SafetyCopyTest, AfterEachReadingTheFileIsAPatternOfAllSoFar) {
  copy_.Begin(Day(0));
  for (const int last : {0, 1, 59, 359}) {
    copy_.Store(record_, last);
    const ReadingsRecord loaded = Loaded(copy_.Path());
    EXPECT_EQ(loaded.NumReadings, last);
    EXPECT_EQ(loaded.ReadingsPlotted, last + 1);
    for (int i = 0; i <= last; ++i) EXPECT_NEAR(loaded.Readings(i), record_.Readings(i), 1e-3);
  }
  EXPECT_EQ(copy_.Failure(), "");
}

TEST_F(SafetyCopyTest, StoringLeavesTheRecordAlone) {
  copy_.Begin(Day(0));
  copy_.Store(record_, 10);
  EXPECT_EQ(record_.NumReadings, 359);
}

TEST_F(SafetyCopyTest, WhatADamagedFileLeftInTheRecordDoesNotSpoilTheCopy) {
  record_.PeakIndex = 500;
  copy_.Begin(Day(0));
  copy_.Store(record_, 99);
  EXPECT_EQ(Loaded(copy_.Path()).NumReadings, 99);
}

TEST_F(SafetyCopyTest, TheEndIsWrittenAsTheRecordSays) {
  copy_.Begin(Day(0));
  copy_.Store(record_, 359);
  record_.NumReadings = 358;
  record_.TrimEnd = 5;
  copy_.Finish(record_);
  const ReadingsRecord loaded = Loaded(copy_.Path());
  EXPECT_EQ(loaded.NumReadings, 358);
  EXPECT_EQ(loaded.TrimEnd, 5);
}

TEST_F(SafetyCopyTest, NothingIsWrittenBeforeTheFirstReadingNorForNone) {
  copy_.Begin(Day(0));
  EXPECT_THAT(Names(), IsEmpty());
  record_.NumReadings = -1;
  copy_.Finish(record_);
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_EQ(copy_.Failure(), "");
}

TEST_F(SafetyCopyTest, TwoTurnsOfOneSecondDoNotShareAFile) {
  Turn(Day(0));
  Turn(Day(0));
  EXPECT_THAT(Names(), SizeIs(2));
}

TEST_F(SafetyCopyTest, TheLastTenAreKept) {
  for (int day = 0; day < 12; ++day) Turn(Day(day));
  const std::vector<std::string> names = Names();
  ASSERT_THAT(names, SizeIs(10));
  EXPECT_THAT(names.front(), testing::HasSubstr(Day(2)));
  EXPECT_THAT(names.back(), testing::HasSubstr(Day(11)));
}

TEST_F(SafetyCopyTest, AClockThatWasSetBackDoesNotCostThePresentTurn) {
  for (int day = 0; day < 10; ++day) Turn(Day(day));
  Turn("1970-01-01 00.00.10");
  EXPECT_THAT(Names(), testing::Contains(testing::HasSubstr("1970")));
  EXPECT_THAT(Names(), SizeIs(10));
}

TEST_F(SafetyCopyTest, OnlyItsOwnFilesAreDropped) {
  std::filesystem::create_directories(turns_);
  std::ofstream(turns_ + "/kept by the user.lbg") << "x";
  std::ofstream(turns_ + "/turn notes.txt") << "x";
  for (int day = 0; day < 12; ++day) Turn(Day(day));
  EXPECT_THAT(Names(), SizeIs(12));
}

TEST_F(SafetyCopyTest, TroubleWithTheDiskIsToldNotThrown) {
  std::ofstream(folder_.File("state")) << "a file where the folder should be";
  copy_.Begin(Day(0));
  copy_.Store(record_, 0);
  EXPECT_EQ(copy_.Failure(), "Path not found");
  copy_.Finish(record_);
  EXPECT_EQ(copy_.Failure(), "Path not found");
}

TEST_F(SafetyCopyTest, TheTroubleIsForgottenOnceTheCopyCanBeWritten) {
  std::ofstream(folder_.File("state")) << "in the way";
  copy_.Begin(Day(0));
  copy_.Store(record_, 0);
  std::filesystem::remove(folder_.File("state"));
  copy_.Store(record_, 1);
  EXPECT_EQ(copy_.Failure(), "");
  EXPECT_EQ(Loaded(copy_.Path()).NumReadings, 1);
}

TEST_F(SafetyCopyTest, ANewTurnForgetsTheTroubleOfTheLast) {
  std::ofstream(folder_.File("state")) << "in the way";
  Turn(Day(0));
  copy_.Begin(Day(1));
  EXPECT_EQ(copy_.Failure(), "");
}

TEST(TimeForFileNameTest, SortsByTime) {
  EXPECT_THAT(
      TimeForFileName(),
      testing::MatchesRegex("[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9] [0-9][0-9].[0-9][0-9].[0-9][0-9]"));
}

/// A variable of the environment, put back at the end.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* before = std::getenv(name);
    if (before != nullptr) before_ = before;
    Set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { Set(before_ ? before_->c_str() : nullptr); }

 private:
  void Set(const char* value) const { value != nullptr ? setenv(name_, value, 1) : unsetenv(name_); }
  const char* name_;
  std::optional<std::string> before_;
};

TEST(StateFolderTest, FollowsTheDesktopsRule) {
  const Variable home("HOME", "/home/ham");
  {
    const Variable state("XDG_STATE_HOME", "/var/state");
    EXPECT_EQ(StateFolder(), "/var/state/lobegraph");
  }
  for (const char* unusable : {"relative/path", "", static_cast<const char*>(nullptr)}) {
    const Variable state("XDG_STATE_HOME", unusable);
    EXPECT_EQ(StateFolder(), "/home/ham/.local/state/lobegraph");
  }
}

}  // namespace
}  // namespace lobegraph
