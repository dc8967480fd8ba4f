#include "cli/ConvertCommand.h"

#include <gmock/gmock.h>

#include <cmath>

#include "cli/MemoryFiles.h"
#include "data/formats/PatternFile.h"
#include "data/turns/TurnDigest.h"
#include "data/turns/TurnLogText.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Convert : public ::testing::Test {
 protected:
  int Run(const std::string& in, const std::string& out, bool table = false) {
    complaints_.str("");
    return RunConvert({.In = in, .Out = out, .Table = table}, {files_, output_, complaints_, false},
                      "V9.9.9");
  }
  ReadingsRecord Loaded(const std::string& path) {
    ReadingsRecord record;
    const LoadOutcome outcome = ReadPatternText(files_.Content[path], {}, record);
    EXPECT_FALSE(outcome.Error) << path;
    return record;
  }

  MemoryFiles files_;
  std::ostringstream output_, complaints_;
};

TEST_F(Convert, APatternWithoutADescriptionIsNamedAfterItsFile) {
  for (const char* none : {"No description", "no description"}) {
    ReadingsRecord record = StoredBeam();
    record.Description = none;
    files_.Content["beam.lbg"] = StoredText(record);
    ASSERT_EQ(Run("beam.lbg", "m.msi"), 0);
    EXPECT_THAT(files_.Content["m.msi"], HasSubstr("NAME beam.lbg"));
    EXPECT_THAT(files_.Content["m.msi"], ::testing::Not(HasSubstr(none)));
  }
}

/// A log beside the file that says it is this pattern's.
void PutLogOf(MemoryFiles& files, const std::string& path, const ReadingsRecord& record) {
  TurnLog log;
  log.SetKey(turnkey::kEnded, "whole");
  log.AddRow({"1", "", "1", "1", ""});
  NoteSaved(log, record, "smoothed");
  files.Content[path] = TurnLogText(log);
}

TEST_F(Convert, TheLogOfATurnGoesAlongToAPatternFile) {
  files_.Content["a.lbg"] = StoredText(StoredBeam());
  PutLogOf(files_, "a.turn.csv", StoredBeam());
  ASSERT_EQ(Run("a.lbg", "b.lbg"), 0);
  const TurnLog log = ReadTurnLog(files_.Content.at("b.turn.csv"));
  EXPECT_EQ(log.Key(turnkey::kEnded), "whole");
  EXPECT_EQ(CommandsOf(log, Loaded("b.lbg")), "smoothed");
  EXPECT_EQ(complaints_.str(), "");
}

TEST_F(Convert, ALogThatCannotGoAlongIsALossThatIsTold) {
  files_.Content["a.lbg"] = StoredText(StoredBeam());
  PutLogOf(files_, "a.turn.csv", StoredBeam());
  ASSERT_EQ(Run("a.lbg", "b.msi"), 0);
  EXPECT_THAT(complaints_.str(),
              HasSubstr("b.msi: a.turn.csv does not go along: only pattern files have a log."));
}

TEST_F(Convert, AnotherPatternsLogStaysAndIsTold) {
  files_.Content["a.lbg"] = StoredText(StoredBeam());
  PutLogOf(files_, "a.turn.csv", StoredBeam(300));
  ASSERT_EQ(Run("a.lbg", "b.lbg"), 0);
  EXPECT_FALSE(files_.Content.contains("b.turn.csv"));
  EXPECT_THAT(complaints_.str(), HasSubstr("a.turn.csv belongs to another pattern"));
}

TEST_F(Convert, OverAPatternWithALogThatLogGoes) {
  files_.Content["a.lbg"] = StoredText(StoredBeam());
  files_.Content["b.lbg"] = StoredText(StoredBeam(300));
  PutLogOf(files_, "b.turn.csv", StoredBeam(300));
  ASSERT_EQ(Run("a.lbg", "b.lbg"), 0);
  EXPECT_FALSE(files_.Content.contains("b.turn.csv"));
}

TEST_F(Convert, ThereAndBackThroughEachFormatWithinItsResolution) {
  ReadingsRecord record = StoredBeam();
  record.Rotate = 25.F;
  files_.Content["a.lbg"] = StoredText(record);
  for (const std::string middle : {"m.msi", "m.az", "m.ant", "m.adf", "m.lbg"}) {
    ASSERT_EQ(Run("a.lbg", middle), 0) << middle;
    ASSERT_EQ(Run(middle, "b.lbg"), 0) << middle << complaints_.str();
    const ReadingsRecord back = Loaded("b.lbg");
    ASSERT_EQ(back.NumReadings, 359) << middle;
    for (int i = 0; i < 360; ++i) {
      const int theirs = (i + 25 - static_cast<int>(back.Rotate) + 360) % 360;
      const float peak = back.Readings(back.PeakIndex);
      const double db = 20 * std::log10(back.Readings(theirs) / peak / (record.Readings(i) / 900.F));
      EXPECT_NEAR(db, 0, 0.0055) << middle << " " << i;
    }
  }
}

TEST_F(Convert, LevelsAloneAreReadBackAsTheEditorReadsThem) {
  files_.Content["a.lbg"] = StoredText(StoredBeam(100));
  ASSERT_EQ(Run("a.lbg", "m.csv"), 0);
  ASSERT_EQ(Run("m.csv", "b.lbg"), 0);
  EXPECT_EQ(Loaded("b.lbg").Readings, Loaded("a.lbg").Readings);
  EXPECT_EQ(Loaded("b.lbg").NumReadings, 99);
  EXPECT_THAT(files_.Content["b.lbg"], HasSubstr("V9.9.9"));
}

TEST_F(Convert, ATableHasABearingForEachPlottedReading) {
  ReadingsRecord record = StoredBeam();
  record.Rotate = 350.F;
  record.TrimFront = 180;
  files_.Content["a.lbg"] = StoredText(record);
  ASSERT_EQ(Run("a.lbg", "m.csv", true), 0);
  EXPECT_THAT(files_.Content["m.csv"], StartsWith("index,angle,level,dB\r\n180,350.000,"));
  EXPECT_THAT(files_.Content["m.csv"], HasSubstr("\r\n185,0.000,"));
  ASSERT_EQ(Run("m.csv", "b.lbg", true), 0) << complaints_.str();
  EXPECT_EQ(Loaded("b.lbg").NumReadings, 179);
}

TEST_F(Convert, HalfATurnIsCompletedWithTheWeakestLevelAndSaysSo) {
  ReadingsRecord record = StoredBeam();
  record.Plot180 = true;
  files_.Content["a.lbg"] = StoredText(record);
  ASSERT_EQ(Run("a.lbg", "m.ant"), 0);
  EXPECT_THAT(complaints_.str(), HasSubstr("m.ant: the half turn that was not measured"));
  std::istringstream lines(files_.Content["m.ant"]);
  std::vector<double> levels;
  for (double level = 0; lines >> level;) levels.push_back(level);
  ASSERT_EQ(levels.size(), 360U);
  EXPECT_NEAR(levels[290], 0, 0.001) << "reading 40 of half a degree each, from 270 on";
  EXPECT_NEAR(levels[180], 20 * std::log10(5.0 / 900.0), 0.001);
}

TEST_F(Convert, WhatAFormatCannotHoldIsSaid) {
  files_.Content["a.lbg"] = StoredText(StoredBeam(100));
  Run("a.lbg", "m.msi");
  EXPECT_THAT(complaints_.str(), HasSubstr("m.msi: not in this format: "));
  EXPECT_THAT(complaints_.str(), HasSubstr("100 readings become 360 levels"));
  EXPECT_THAT(complaints_.str(), HasSubstr("vertical cut is unknown"));
  Run("a.lbg", "m.csv");
  EXPECT_THAT(complaints_.str(), HasSubstr("trims and rotation"));
  Run("a.lbg", "m.lbg");
  EXPECT_EQ(complaints_.str(), "");
}

TEST_F(Convert, ASetWithALevelOfZeroIsConverted) {
  ReadingsRecord record = StoredBeam();
  record.Readings(200) = 0.F;
  files_.Content["a.lbg"] = StoredText(record);
  ASSERT_EQ(Run("a.lbg", "m.ant"), 0) << complaints_.str();
  EXPECT_THAT(files_.Content["m.ant"], HasSubstr("\r\n-100.000\r\n"));
}

TEST_F(Convert, WhatCannotBeReadOrWrittenIsNamed) {
  files_.Content["a.lbg"] = StoredText(StoredBeam());
  files_.Content["bad.msi"] = "nothing";
  EXPECT_EQ(Run("none.lbg", "b.csv"), 1);
  EXPECT_THAT(complaints_.str(), HasSubstr("none.lbg: Error 53 (File not found)"));
  EXPECT_EQ(Run("bad.msi", "b.lbg"), 1);
  EXPECT_THAT(complaints_.str(), HasSubstr("bad.msi: Error 13"));
  EXPECT_EQ(Run("a.lbg", "b.xyz"), 2);
  EXPECT_EQ(Run("a.lbg", "b.nec"), 2);
  EXPECT_THAT(complaints_.str(), HasSubstr("b.nec: the new name ends in"));
}

}  // namespace
}  // namespace lobegraph
