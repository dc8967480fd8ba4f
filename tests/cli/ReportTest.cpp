#include "cli/Report.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/MemoryFiles.h"
#include "cli/ReportCommand.h"
#include "cli/ReportTable.h"
#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Json = nlohmann::ordered_json;

Json ReportOf(const ReadingsRecord& record, const ReportExtras& extras = {},
              const PatternOptions& options = {}) {
  MemoryFiles files;
  files.Content["a/beam.lbg"] = StoredText(record);
  return ReportObject(OpenPattern(files, "a/beam.lbg", options), "a/beam.lbg", extras);
}

std::vector<std::string> KeysOf(const Json& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  return keys;
}

TEST(Report, TheKeysOfAPatternAreAnInterface) {
  EXPECT_THAT(KeysOf(ReportOf(StoredBeam())),
              ElementsAre("file", "error", "messages", "NumReadings", "ReadingCount", "ReadingsPlotted",
                          "TrimFront", "TrimEnd", "Rotate", "PeakLevelDb", "PeakIndex", "Description",
                          "ScaleSetting", "WriterVersion", "CollectedBy", "CollectedDate", "Elements",
                          "PolarizationHorizontal", "Plot180", "FileName", "PlotDone", "DegreesPerReading",
                          "Minus3dBIndexA", "Minus3dBIndexB", "BeamwidthDeg", "GainEstimate", "txtAngle",
                          "txtGain", "txtRotate", "directivity", "figures"));
}

TEST(Report, TheKeysOfTheFiguresAreAnInterface) {
  const Json figures = ReportOf(StoredBeam())["figures"];
  EXPECT_THAT(KeysOf(figures),
              ElementsAre("hpbw", "hpbw10", "fnbw", "peakBearing", "beamCentre", "squint", "frontToBack",
                          "frontToRear", "frontToRearSector", "frontToSide", "sideLobeLevel", "sideLobeAngle",
                          "ripple", "closure", "directivityEstimates"));
  EXPECT_THAT(KeysOf(figures["directivityEstimates"]), ElementsAre("kraus", "taiPereira", "integrated"));
}

TEST(Report, ThePatternsFieldsAndThePlot) {
  const Json report = ReportOf(StoredBeam());
  EXPECT_EQ(report["file"], "a/beam.lbg");
  EXPECT_EQ(report["error"], nullptr);
  EXPECT_EQ(report["messages"], Json::array());
  EXPECT_EQ(report["NumReadings"], 359);
  EXPECT_EQ(report["ReadingCount"], 359);
  EXPECT_EQ(report["ReadingsPlotted"], 360);
  EXPECT_EQ(report["PeakIndex"], 40);
  EXPECT_EQ(report["PeakLevelDb"], 0.9151498) << "the decimal number of a single";
  EXPECT_EQ(report["Description"], "test beam");
  EXPECT_EQ(report["ScaleSetting"], 35);
  EXPECT_EQ(report["WriterVersion"], "V1.0.0");
  EXPECT_EQ(report["CollectedBy"], "DL1ABC");
  EXPECT_EQ(report["CollectedDate"], "1.2.2024");
  EXPECT_EQ(report["Elements"], "3");
  EXPECT_EQ(report["PolarizationHorizontal"], true);
  EXPECT_EQ(report["Plot180"], false);
  EXPECT_EQ(report["FileName"], "beam.lbg");
  EXPECT_EQ(report["PlotDone"], true);
  EXPECT_EQ(report["DegreesPerReading"], 1);
  EXPECT_EQ(report["Minus3dBIndexA"], 105);
  EXPECT_EQ(report["Minus3dBIndexB"], 335);
  EXPECT_EQ(report["BeamwidthDeg"], 130);
  EXPECT_EQ(report["txtAngle"], "130.00");
  EXPECT_EQ(report["txtGain"], FixedText(report["GainEstimate"], 2) + " dBi");
  EXPECT_EQ(report["txtRotate"], "0");
  EXPECT_THAT(report["directivity"].get<std::string>(), HasSubstr(" dBi"));
  EXPECT_NEAR(report["figures"]["beamCentre"], 40, 0.01);
  EXPECT_EQ(report["figures"]["sideLobeLevel"], nullptr);
}

TEST(Report, AFaultHasItsNumberAndDescription) {
  ReadingsRecord record = StoredBeam();
  record.Readings(3) = 0.F;
  const Json report = ReportOf(record);
  EXPECT_EQ(report["error"], Json({{"number", 11}, {"description", "Division by zero"}}));
  EXPECT_EQ(report["messages"].size(), 1U);
  EXPECT_EQ(report["PlotDone"], false);
  EXPECT_EQ(report["figures"]["hpbw"], nullptr);
  EXPECT_EQ(report["GainEstimate"], nullptr);
}

TEST(Report, ARefusalIsAMessageAndHasNoFigures) {
  const Json report = ReportOf(StoredBeam(36));
  EXPECT_EQ(report["error"], nullptr);
  EXPECT_EQ(report["messages"], Json({"LBG011 Less than 60 readings - plot aborted"}));
  EXPECT_EQ(report["figures"]["hpbw"], nullptr);
  EXPECT_EQ(report["directivity"], nullptr);
}

TEST(Report, AllReadingsOnRequest) {
  const Json report = ReportOf(StoredBeam(), {.Readings = true});
  ASSERT_EQ(report["Readings"].size(), 361U);
  EXPECT_EQ(report["Readings"][40], 900);
  EXPECT_EQ(report["Readings"][360], 0);
  EXPECT_FALSE(report.contains("Trace"));
}

TEST(Report, TheTraceAndItsPointsFromThePlotCentre) {
  const Json report = ReportOf(StoredBeam(), {.Trace = true}, {.Rotate = "50.4"});
  ASSERT_EQ(report["Trace"].size(), 361U) << "the closing point is one of them";
  ASSERT_EQ(report["Points"].size(), 361U);
  EXPECT_EQ(report["Trace"][40], Json({40, 234}));
  EXPECT_EQ(report["Trace"][360], report["Trace"][0]);
  EXPECT_NEAR(report["Points"][40][0], 234, 1e-4) << "90.4 degrees are drawn at 90, to the right";
  EXPECT_NEAR(report["Points"][40][1], 0, 1e-4);
  EXPECT_NEAR(report["Points"][130][1], report["Trace"][130][1], 1e-4) << "180.4: downwards";
}

TEST(Report, HalfATurnHasNoClosingPointAndLiesAcrossTheTop) {
  ReadingsRecord record = StoredBeam();
  record.Plot180 = true;
  const Json report = ReportOf(record, {.Trace = true});
  EXPECT_EQ(report["Trace"].size(), 360U);
  EXPECT_EQ(report["DegreesPerReading"], 0.5);
  EXPECT_LT(report["Points"][0][0], -100);
  EXPECT_NEAR(report["Points"][0][1], 0, 1e-4);
}

TEST(Report, AFileNameThatIsNoTextIsShownWithReplacements) {
  const std::string line = ReportLine({}, "bad\xFFname", {});
  EXPECT_EQ(line.back(), '\n');
  EXPECT_EQ(Json::parse(line)["file"], "bad\xEF\xBF\xBDname");
}

struct Ended {
  int ExitCode = 0;
  std::string Output, Complaints;
};

Ended RunOn(MemoryFiles& files, ReportRequest request) {
  std::ostringstream output, complaints;
  const int code = RunReport(request, {files, output, complaints, false});
  return {code, output.str(), complaints.str()};
}

TEST(ReportCommand, ObjectsComeInTheOrderOfTheFilesHoweverManyRunAtOnce) {
  MemoryFiles files;
  ReportRequest request{.Json = true};
  for (int i = 0; i < 500; ++i) {
    request.Files.push_back("f" + std::to_string(i));
    files.Content[request.Files.back()] = StoredText(StoredBeam(60 + i % 50));
  }
  request.Jobs = 1;
  const Ended alone = RunOn(files, request);
  request.Jobs = 4;
  const Ended together = RunOn(files, request);
  EXPECT_EQ(alone.ExitCode, 0);
  EXPECT_EQ(alone.Output, together.Output);
  std::istringstream lines(together.Output);
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count)
    EXPECT_EQ(Json::parse(line)["file"], request.Files[static_cast<std::size_t>(count)]);
  EXPECT_EQ(count, 500);
}

TEST(ReportCommand, ABadFileIsNamedAndTheOthersAreDone) {
  MemoryFiles files;
  files.Content["good.lbg"] = StoredText(StoredBeam());
  files.Content["bad.lbg"] = "12\r\nabc";
  const Ended run = RunOn(files, {.Files = {"bad.lbg", "missing.lbg", "good.lbg"}, .Json = true});
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Complaints,
            "lobegraph-cli: bad.lbg: Error 13 (Type mismatch)\n"
            "lobegraph-cli: missing.lbg: Error 53 (File not found)\n");
  EXPECT_EQ(std::count(run.Output.begin(), run.Output.end(), '\n'), 3);
}

TEST(ReportCommand, TheTableHasARowForEachGoodFile) {
  MemoryFiles files;
  files.Content["good.lbg"] = StoredText(StoredBeam());
  files.Content["short.lbg"] = StoredText(StoredBeam(36));
  const Ended run = RunOn(files, {.Files = {"missing.lbg", "good.lbg", "short.lbg"}});
  std::istringstream lines(run.Output);
  std::string heading, good, refused, rest;
  std::getline(lines, heading);
  std::getline(lines, good);
  std::getline(lines, refused);
  EXPECT_FALSE(std::getline(lines, rest));
  EXPECT_THAT(heading, HasSubstr("Beamwidth"));
  EXPECT_THAT(good, HasSubstr("130.00"));
  EXPECT_THAT(good, HasSubstr("  good.lbg"));
  EXPECT_THAT(refused, HasSubstr("        -"));
  EXPECT_THAT(run.Complaints, HasSubstr("short.lbg: LBG011 Less than 60 readings - plot aborted\n"));
}

TEST(ReportCommand, AMessageOfSeveralLinesStaysOneLineOfStandardError) {
  MemoryFiles files;
  files.Content["loud.lbg"] = StoredText(StoredBeam());
  ReportRequest request{.Files = {"loud.lbg"}};
  request.Pattern.Rules.PeakInputLevel = 500.F;
  const Ended run = RunOn(files, request);
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(std::count(run.Complaints.begin(), run.Complaints.end(), '\n'), 1);
}

TEST(ReportTable, AFigureOfNothingIsShownWithoutASign) {
  MemoryFiles files;
  files.Content["beam"] = StoredText(StoredBeam());
  EXPECT_THAT(TableRow(OpenPattern(files, "beam", {}), "beam"), ::testing::Not(HasSubstr("-0.0")));
}

}  // namespace
}  // namespace lobegraph
