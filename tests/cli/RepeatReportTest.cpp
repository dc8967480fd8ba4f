#include "cli/RepeatReport.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/MemoryFiles.h"
#include "cli/ReportCommand.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using Json = nlohmann::ordered_json;

struct Said {
  int Code = 0;
  std::string Output;
  std::string Complaints;
};

Said Repeat(MemoryFiles& files, std::vector<std::string> names, bool json) {
  std::ostringstream output;
  std::ostringstream complaints;
  ReportRequest request;
  request.Files = std::move(names);
  request.Json = json;
  request.Repeat = true;
  const int code = RunReport(request, {files, output, complaints});
  return {code, output.str(), complaints.str()};
}

/// The stored beam, its readings begun later.
ReadingsRecord BegunAt(int first) {
  ReadingsRecord record = StoredBeam();
  const ReadingsRecord original = record;
  for (int i = 0; i < 360; ++i) record.Readings(i) = original.Readings((i + first) % 360);
  record.SaveReadings();
  return record;
}

MemoryFiles ThreeTurns() {
  MemoryFiles files;
  files.Content["a.lbg"] = StoredText(BegunAt(0));
  files.Content["b.lbg"] = StoredText(BegunAt(30));
  ReadingsRecord third = BegunAt(350);
  for (int i = 0; i < 360; ++i) third.Readings(i) *= 0.5F;
  third.SaveReadings();
  files.Content["c.lbg"] = StoredText(third);
  return files;
}

TEST(RepeatReport, TurnsAreLaidOnEachOther) {
  MemoryFiles files = ThreeTurns();
  const Said said = Repeat(files, {"a.lbg", "b.lbg", "c.lbg"}, true);
  EXPECT_EQ(said.Code, kAllDone) << said.Complaints;
  const Json report = Json::parse(said.Output);
  ASSERT_EQ(report["turns"].size(), 3U);
  EXPECT_EQ(report["turns"][0]["turnedBy"], 0.0);
  EXPECT_NEAR(report["turns"][1]["turnedBy"], 30.0, 0.1);
  EXPECT_NEAR(report["turns"][2]["turnedBy"], -10.0, 0.1);
  EXPECT_EQ(report["turns"][2]["file"], "c.lbg");
  EXPECT_EQ(report["mean"].size(), 360U);
  EXPECT_NEAR(report["mean"][40], 0.0, 0.05);
  EXPECT_LT(report["deviation"][60].get<double>(), 0.2);
}

TEST(RepeatReport, EachFigureHasItsSpread) {
  MemoryFiles files = ThreeTurns();
  const Json figures = Json::parse(Repeat(files, {"a.lbg", "b.lbg", "c.lbg"}, true).Output)["figures"];
  EXPECT_EQ(figures["hpbw"]["turns"], 3);
  EXPECT_GT(figures["hpbw"]["mean"].get<double>(), 10.0);
  EXPECT_NEAR(figures["hpbw"]["deviation"], 0.0, 0.5);
  EXPECT_EQ(figures.size(), 17U);
}

TEST(RepeatReport, ATableIsForPeople) {
  MemoryFiles files = ThreeTurns();
  const Said said = Repeat(files, {"a.lbg", "b.lbg"}, false);
  EXPECT_THAT(said.Output, HasSubstr("            Figure      Mean      +-  Turns\n"));
  EXPECT_THAT(said.Output, HasSubstr("\n              hpbw"));
  EXPECT_THAT(said.Output, HasSubstr("  b.lbg\n"));
}

TEST(RepeatReport, OneTurnHasNoSpread) {
  MemoryFiles files = ThreeTurns();
  const Json report = Json::parse(Repeat(files, {"a.lbg"}, true).Output);
  EXPECT_EQ(report["figures"]["hpbw"]["deviation"], nullptr);
  EXPECT_EQ(report["deviation"][0], 0.0);
}

TEST(RepeatReport, WhatCannotBeLaidOnOthersIsNamedAndNothingIsSaid) {
  MemoryFiles files = ThreeTurns();
  ReadingsRecord half = BegunAt(0);
  half.Plot180 = true;
  files.Content["half.lbg"] = StoredText(half);
  ReadingsRecord silent = BegunAt(0);
  silent.Readings(7) = 0.0F;
  silent.SaveReadings();
  files.Content["silent.lbg"] = StoredText(silent);
  ReadingsRecord small = BegunAt(0);
  small.NumReadings = 29;
  files.Content["small.lbg"] = StoredText(small);
  const Said said = Repeat(files, {"a.lbg", "half.lbg", "silent.lbg", "small.lbg", "missing.lbg"}, true);
  EXPECT_EQ(said.Code, kSomeFailed);
  EXPECT_EQ(said.Output, "");
  EXPECT_THAT(said.Complaints, HasSubstr("half.lbg: it is half a turn"));
  EXPECT_THAT(said.Complaints, HasSubstr("silent.lbg: Error 11"));
  EXPECT_THAT(said.Complaints, HasSubstr("small.lbg: LBG011"));
  EXPECT_THAT(said.Complaints, HasSubstr("missing.lbg: Error 53"));
}

}  // namespace
}  // namespace lobegraph
