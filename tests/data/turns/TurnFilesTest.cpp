#include "data/turns/TurnFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "data/base/RunTimeError.h"
#include "data/formats/PatternFile.h"
#include "data/turns/TurnDigest.h"
#include "data/turns/TurnLogText.h"
#include "support/TemporaryFolder.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

using testing::HasSubstr;

/// Files of the disk, some of which cannot be written.
class StubbornFiles : public DiskFiles {
 public:
  std::string Stubborn;  ///< ending of what cannot be written
  void Replace(const std::string& path, std::string_view bytes) override {
    if (!Stubborn.empty() && path.ends_with(Stubborn)) throw RunTimeError(fault::kDiskFull, path);
    DiskFiles::Replace(path, bytes);
  }
};

class TurnFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_.File("beam.lbg");
  std::string logPath_ = folder_.File("beam.turn.csv");
  StubbornFiles files_;
  ReadingsRecord first_ = BeamRecord(360, 10);
  ReadingsRecord second_ = BeamRecord(360, 200);

  static TurnLog LogOf(const ReadingsRecord& record, const char* site) {
    TurnLog log;
    log.SetKey("site", site);
    log.AddRow({"1", "", "900", "7", ""});
    NoteCollected(log, record);
    return log;
  }
  std::string Save(const ReadingsRecord& record, const std::optional<TurnLog>& log) {
    return SaveTurn(files_, path_, WritePatternText(record, "V1.0.0"), log);
  }
  static std::string TextOf(const std::string& path) {
    std::ostringstream all;
    all << std::ifstream(path, std::ios::binary).rdbuf();
    return all.str();
  }
  void PutLog(const std::string& text) const { std::ofstream(logPath_, std::ios::binary) << text; }
};

TEST_F(TurnFilesTest, ThePatternsOwnLogIsReadBesideIt) {
  EXPECT_EQ(Save(first_, LogOf(first_, "roof")), "");
  const LogBeside beside = ReadLogBeside(files_, path_, first_);
  ASSERT_TRUE(beside.Log);
  EXPECT_EQ(beside.Log->Key("site"), "roof");
  EXPECT_EQ(beside.Note, "");
}

TEST_F(TurnFilesTest, AnOldPatternHasNone) {
  EXPECT_EQ(Save(first_, std::nullopt), "");
  const LogBeside beside = ReadLogBeside(files_, path_, first_);
  EXPECT_FALSE(beside.Log);
  EXPECT_EQ(beside.Note, "");
}

TEST_F(TurnFilesTest, AnotherPatternsLogIsNamedNotBelieved) {
  PutLog(TurnLogText(LogOf(second_, "roof")));
  const LogBeside beside = ReadLogBeside(files_, path_, first_);
  EXPECT_FALSE(beside.Log);
  EXPECT_EQ(beside.Note, "beam.turn.csv belongs to another pattern; it is left alone.");
}

TEST_F(TurnFilesTest, WhatIsNoLogIsNamedWithTheReason) {
  PutLog("hello\n");
  EXPECT_EQ(ReadLogBeside(files_, path_, first_).Note,
            "beam.turn.csv cannot be read (no heading with the columns reading and level).");
  std::filesystem::remove(logPath_);
  std::filesystem::create_directory(logPath_);
  EXPECT_THAT(ReadLogBeside(files_, path_, first_).Note,
              HasSubstr("cannot be read (Path/File access error)"));
}

TEST_F(TurnFilesTest, AHugeFileIsRefusedBeforeItFillsTheMemory) {
  PutLog("x");
  std::filesystem::resize_file(logPath_, 1U << 30U);
  EXPECT_EQ(ReadLogBeside(files_, path_, first_).Note,
            "beam.turn.csv cannot be read (The file has 1073741824 bytes, more than the 16777216 that such a "
            "file may have).");
}

TEST_F(TurnFilesTest, ASaveOverATurnReplacesBoth) {
  Save(first_, LogOf(first_, "roof"));
  EXPECT_EQ(Save(second_, LogOf(second_, "tower")), "");
  EXPECT_EQ(ReadLogBeside(files_, path_, second_).Log->Key("site"), "tower");
}

TEST_F(TurnFilesTest, WhenThePatternCannotBeWrittenTheFormerLogIsThereAgain) {
  Save(first_, LogOf(first_, "roof"));
  const std::string before = TextOf(path_);
  files_.Stubborn = ".lbg";
  EXPECT_THROW(Save(second_, LogOf(second_, "tower")), RunTimeError);
  EXPECT_EQ(TextOf(path_), before);
  EXPECT_EQ(ReadLogBeside(files_, path_, first_).Log->Key("site"), "roof");
}

TEST_F(TurnFilesTest, WhenThePatternCannotBeWrittenNoNewLogIsLeft) {
  files_.Stubborn = ".lbg";
  EXPECT_THROW(Save(first_, LogOf(first_, "roof")), RunTimeError);
  EXPECT_FALSE(std::filesystem::exists(logPath_));
}

TEST_F(TurnFilesTest, ALogThatCannotBeWrittenIsToldAndThePatternSaved) {
  files_.Stubborn = ".turn.csv";
  EXPECT_EQ(Save(first_, LogOf(first_, "roof")), "beam.turn.csv could not be written (Disk full).");
  EXPECT_EQ(TextOf(path_), WritePatternText(first_, "V1.0.0"));
}

TEST_F(TurnFilesTest, TheFormerPatternsLogGoesWithIt) {
  Save(first_, LogOf(first_, "roof"));
  Save(second_, std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(logPath_));
}

TEST_F(TurnFilesTest, AStrangersLogIsLeftAlone) {
  Save(first_, std::nullopt);
  PutLog(TurnLogText(LogOf(second_, "tower")));
  Save(first_, std::nullopt);
  EXPECT_TRUE(std::filesystem::exists(logPath_));
}

TEST_F(TurnFilesTest, ALogWithoutAPatternCostsNothing) {
  PutLog(TurnLogText(LogOf(first_, "roof")));
  EXPECT_TRUE(ReadLogBeside(files_, path_, first_).Log);
  EXPECT_EQ(Save(second_, std::nullopt), "");
  EXPECT_TRUE(std::filesystem::exists(logPath_));
}

TEST_F(TurnFilesTest, ALogCutAtAnyByteNeverCostsThePattern) {
  const std::string whole = TurnLogText(LogOf(first_, "roof"));
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    PutLog(whole.substr(0, cut));
    const LogBeside beside = ReadLogBeside(files_, path_, first_);
    EXPECT_TRUE(beside.Log || !beside.Note.empty()) << cut;
  }
}

}  // namespace
}  // namespace lobegraph
