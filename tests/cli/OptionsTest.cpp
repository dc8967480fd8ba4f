#include "cli/Options.h"

#include <gmock/gmock.h>

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

CommandLine Parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "lobegraph-cli");
  return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(), "1.2.3");
}

TEST(CliOptions, ReportHasTheWindowsDefaults) {
  const auto report = Parse({"report", "a.lbg", "b.lbg"}).Report;
  ASSERT_TRUE(report);
  EXPECT_THAT(report->Files, ElementsAre("a.lbg", "b.lbg"));
  EXPECT_FALSE(report->Json);
  EXPECT_EQ(report->Pattern.Style.Scale, PlotScale::Logarithmic);
  EXPECT_EQ(report->Pattern.Rules.PeakInputLevel, 1000.F);
  EXPECT_EQ(report->Pattern.Rules.SpikeDetectLevel, 50);
  EXPECT_FALSE(report->Pattern.Rules.AnyLength);
  EXPECT_FALSE(report->Pattern.Rotate);
  EXPECT_FALSE(report->Pattern.TrimFront);
  EXPECT_FALSE(report->Pattern.TrimEnd);
}

TEST(CliOptions, EachReportOptionReachesItsSetting) {
  const auto parsed = Parse({"report",
                             "--json",
                             "--readings",
                             "--trace",
                             "--scale",
                             "db50",
                             "--peak-input-level",
                             "1023.5",
                             "--calibrate",
                             "--rotate",
                             "-5",
                             "--trim-front",
                             "3x",
                             "--trim-end",
                             "",
                             "--spike-detect-level",
                             "70",
                             "--apply",
                             "smooth,reverse,despike,orient,original",
                             "--jobs",
                             "3",
                             "a.lbg"});
  ASSERT_TRUE(parsed.Report) << parsed.Complaint;
  const ReportRequest& report = *parsed.Report;
  EXPECT_THAT(report.Files, ElementsAre("a.lbg"));
  EXPECT_TRUE(report.Json && report.Extras.Readings && report.Extras.Trace);
  EXPECT_EQ(report.Jobs, 3U);
  EXPECT_EQ(report.Pattern.Style.Scale, PlotScale::Db50);
  EXPECT_EQ(report.Pattern.Rules.PeakInputLevel, 1023.5F);
  EXPECT_TRUE(report.Pattern.Rules.AnyLength);
  EXPECT_EQ(report.Pattern.Rotate, "-5");
  EXPECT_EQ(report.Pattern.TrimFront, "3x");
  EXPECT_EQ(report.Pattern.TrimEnd, "");
  EXPECT_EQ(report.Pattern.Rules.SpikeDetectLevel, 70);
  EXPECT_THAT(report.Pattern.Apply, ElementsAre(Transform::Smooth, Transform::Reverse, Transform::DeSpike,
                                                Transform::Orient, Transform::Original));
}

TEST(CliOptions, ApplyTakesOneListAndNoFiles) {
  const auto report = Parse({"report", "--apply", "smooth,smooth", "a.lbg"}).Report;
  ASSERT_TRUE(report);
  EXPECT_THAT(report->Files, ElementsAre("a.lbg"));
  EXPECT_THAT(report->Pattern.Apply, ElementsAre(Transform::Smooth, Transform::Smooth));
}

TEST(CliOptions, EachRenderOptionReachesItsSetting) {
  const auto parsed =
      Parse({"render", "a.lbg", "-o", "a.png", "--size", "1002x1120", "--rectangular", "--scale", "linear",
             "--colours", "c.conf", "--title", "A & B", "--apply", "orient", "--overlay", "b.lbg", "c.nec"});
  ASSERT_TRUE(parsed.Render) << parsed.Complaint;
  const RenderRequest& render = *parsed.Render;
  EXPECT_THAT(render.Files, ElementsAre("a.lbg"));
  EXPECT_EQ(render.Out, "a.png");
  EXPECT_EQ(render.Width, 1002);
  EXPECT_EQ(render.Height, 1120);
  EXPECT_TRUE(render.Pattern.Style.Rectangular);
  EXPECT_EQ(render.Pattern.Style.Scale, PlotScale::Linear);
  EXPECT_EQ(render.ColoursFile, "c.conf");
  EXPECT_EQ(render.Title, "A & B");
  EXPECT_THAT(render.Overlays, ElementsAre("b.lbg", "c.nec"));
  EXPECT_THAT(render.Pattern.Apply, ElementsAre(Transform::Orient));
}

TEST(CliOptions, ConvertTakesTwoNames) {
  const auto convert = Parse({"convert", "--table", "a.csv", "b.lbg"}).Convert;
  ASSERT_TRUE(convert);
  EXPECT_EQ(convert->In, "a.csv");
  EXPECT_EQ(convert->Out, "b.lbg");
  EXPECT_TRUE(convert->Table);
}

TEST(CliOptions, WrongUseEndsWithTwoAndSaysWhy) {
  const std::vector<std::vector<const char*>> wrong = {
      {},
      {"plot", "a.lbg"},
      {"report"},
      {"report", "--scale", "square", "a.lbg"},
      {"report", "--apply", "smooth,polish", "a.lbg"},
      {"report", "--trace", "a.lbg"},
      {"report", "--peak-input-level", "0", "a.lbg"},
      {"report", "--jobs", "0", "a.lbg"},
      {"render", "a.lbg"},
      {"render", "a.lbg", "b.lbg", "-o", "c.png"},
      {"render", "a.lbg", "-o", "a.png", "--size", "501"},
      {"render", "a.lbg", "-o", "a.png", "--size", "501x"},
      {"render", "a.lbg", "-o", "a.png", "--size", "501x560x3"},
      {"render", "a.lbg", "-o", "a.png", "--size", "99999x99999"},
      {"convert", "a.lbg"},
      {"convert", "a.lbg", "b.csv", "c.csv"}};
  for (const auto& arguments : wrong) {
    const CommandLine parsed = Parse(arguments);
    EXPECT_EQ(parsed.ExitCode, 2);
    EXPECT_NE(parsed.Complaint, "");
    EXPECT_FALSE(parsed.Report || parsed.Render || parsed.Convert);
  }
}

TEST(CliOptions, APictureHasAtMost64MillionPixels) {
  EXPECT_TRUE(Parse({"render", "a.lbg", "-o", "a.png", "--size", "8000x8000"}).Render);
  EXPECT_TRUE(Parse({"render", "a.lbg", "-o", "a.png", "--size", "20000x3200"}).Render);
  for (const char* size : {"8001x8000", "20000x20000"}) {
    const CommandLine parsed = Parse({"render", "a.lbg", "-o", "a.png", "--size", size});
    EXPECT_EQ(parsed.ExitCode, 2);
    EXPECT_THAT(parsed.Complaint, HasSubstr("at most 64 million pixels"));
  }
}

TEST(CliOptions, AMisspeltVerbIsNamedWithTheNearestOne) {
  const std::pair<const char*, const char*> slips[] = {{"raport", "report"},  {"rport", "report"},
                                                       {"Render", "render"},  {"rendre", "render"},
                                                       {"convrt", "convert"}, {"port", "ports"}};
  for (const auto& [slip, verb] : slips) {
    const CommandLine parsed = Parse({slip, "a.lbg"});
    EXPECT_EQ(parsed.ExitCode, 2);
    EXPECT_EQ(parsed.Complaint, "lobegraph-cli: '" + std::string(slip) +
                                    "' is no verb of lobegraph-cli: did you mean " + verb + "?\n");
  }
  EXPECT_THAT(Parse({"beam.lbg"}).Complaint, HasSubstr("the verbs are report, render, convert, ports"));
}

TEST(CliOptions, AnOptionWithoutItsValueTakesNoFileForIt) {
  const CommandLine parsed = Parse({"report", "--trim-front=", "a.lbg"});
  EXPECT_EQ(parsed.ExitCode, 2);
  EXPECT_EQ(parsed.Complaint, "lobegraph-cli: --trim-front= has no value behind it\n");
  EXPECT_TRUE(Parse({"report", "--", "--trim-front="}).Report) << "a file of this name";
  EXPECT_EQ(Parse({"report", "--trim-front", "", "a.lbg"}).Report->Pattern.TrimFront, "");
}

TEST(CliOptions, WhatIsTypedReachesTheTerminalAsPrintableText) {
  EXPECT_EQ(Parse({"\x1B[2J"}).Complaint.find('\x1B'), std::string::npos);
  EXPECT_EQ(Parse({"report", "--\x1B[2J"}).Complaint.find('\x1B'), std::string::npos);
}

TEST(CliOptions, SeveralFilesGoIntoOnePictureEach) {
  const auto render = Parse({"render", "a.lbg", "b.lbg", "-o", "out/{}.svg"}).Render;
  ASSERT_TRUE(render);
  EXPECT_EQ(render->Files.size(), 2U);
}

TEST(CliOptions, HelpOfEachVerbHasExamples) {
  for (const char* verb : {"report", "render", "convert"}) {
    const CommandLine parsed = Parse({verb, "--help"});
    EXPECT_EQ(parsed.ExitCode, 0);
    EXPECT_THAT(parsed.Output, HasSubstr(std::string("  lobegraph-cli ") + verb + " "));
  }
  EXPECT_THAT(Parse({"--help"}).Output, HasSubstr("Exit codes"));
  EXPECT_THAT(Parse({"--version"}).Output, HasSubstr("1.2.3"));
}

TEST(CliOptions, PortsAloneLists) {
  const auto ports = Parse({"ports"}).Ports;
  ASSERT_TRUE(ports);
  EXPECT_FALSE(ports->Assignment);
}

TEST(CliOptions, PortsAssignTakesANumberAndAPath) {
  const auto ports = Parse({"ports", "assign", "3", "/dev/ttyUSB0"}).Ports;
  ASSERT_TRUE(ports && ports->Assignment);
  EXPECT_EQ(ports->Assignment->Number, 3);
  EXPECT_EQ(ports->Assignment->Path, "/dev/ttyUSB0");
}

TEST(CliOptions, ANumberThatNoListHasIsWrongUse) {
  for (const char* number : {"0", "33", "COM3", "1.5"}) {
    const CommandLine line = Parse({"ports", "assign", number, "/dev/ttyUSB0"});
    EXPECT_EQ(line.ExitCode, 2) << number;
    EXPECT_FALSE(line.Ports) << number;
  }
  EXPECT_EQ(Parse({"ports", "assign", "3"}).ExitCode, 2);
}

}  // namespace
}  // namespace lobegraph
