#include "bench/Options.h"

#include <gmock/gmock.h>

#include <vector>

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;

ParsedCommandLine Parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "lobegraph-bench");
  return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(Options, WithoutArgumentsABeamTurnsInAMinuteForEver) {
  const auto parsed = Parse({});
  ASSERT_TRUE(parsed.Options);
  EXPECT_EQ(parsed.Options->Antenna, "beam");
  EXPECT_EQ(parsed.Options->Turn.SecondsPerTurn, 60);
  EXPECT_EQ(parsed.Options->Turn.StartBearingDeg, 180);
  EXPECT_EQ(parsed.Options->Turn.PeakLevel, 900);
  EXPECT_EQ(parsed.Options->Turn.NoiseDb, 0);
  EXPECT_EQ(parsed.Options->Turn.SpikesPerTurn, 0);
  EXPECT_EQ(parsed.Options->Turn.SilenceSeconds, 0);
  EXPECT_FALSE(parsed.Options->Turn.Turns);
  EXPECT_EQ(parsed.Options->Sink, "");
  EXPECT_FALSE(parsed.Options->List);
}

TEST(Options, EachOptionReachesItsSetting) {
  const auto parsed = Parse({"--antenna",
                             "dipole",
                             "--seconds",
                             "36.5",
                             "--turns",
                             "2",
                             "--start-bearing",
                             "-45",
                             "--noise",
                             "0.5",
                             "--spikes",
                             "4",
                             "--seed",
                             "99",
                             "--sink",
                             "rx",
                             "--peak",
                             "700",
                             "--seconds-of-silence-before",
                             "2.5"});
  ASSERT_TRUE(parsed.Options) << parsed.Complaint;
  const TurnSettings& turn = parsed.Options->Turn;
  EXPECT_EQ(parsed.Options->Antenna, "dipole");
  EXPECT_EQ(turn.SecondsPerTurn, 36.5);
  EXPECT_EQ(turn.Turns, 2);
  EXPECT_EQ(turn.StartBearingDeg, -45);
  EXPECT_EQ(turn.NoiseDb, 0.5);
  EXPECT_EQ(turn.SpikesPerTurn, 4);
  EXPECT_EQ(turn.Seed, 99U);
  EXPECT_EQ(parsed.Options->Sink, "rx");
  EXPECT_EQ(turn.PeakLevel, 700);
  EXPECT_EQ(turn.SilenceSeconds, 2.5);
}

TEST(Options, AFileStartsWithItsFirstReadingUnlessABearingIsGiven) {
  EXPECT_EQ(Parse({"--file", "a.lbg"}).Options->Turn.StartBearingDeg, 0);
  EXPECT_EQ(Parse({"--file", "a.lbg", "--start-bearing", "90"}).Options->Turn.StartBearingDeg, 90);
  EXPECT_EQ(Parse({"--file", "a.lbg"}).Options->File, "a.lbg");
}

TEST(Options, WhatMakesNoSenseIsRefusedWithAReason) {
  const std::vector<std::vector<const char*>> cases{
      {"--antenna", "loop"},
      {"--antenna", "beam", "--file", "a.lbg"},
      {"--seconds", "0"},
      {"--seconds", "x"},
      {"--turns", "0"},
      {"--turns", "1.5"},
      {"--start-bearing", "361"},
      {"--noise", "-1"},
      {"--spikes", "91"},
      {"--peak", "0"},
      {"--peak", "1024"},
      {"--seconds-of-silence-before", "-1"},
      {"--plain"},
      {"--unknown"},
      {"--seconds"},
      {"stray"},
      {"--rotator"},
      {"--rotator", "0"},
      {"--rotator", "host:"},
      {"--rotator", "4533", "--follow-rotator", "4534"},
      {"--rotator-speed", "6"},
      {"--rotator", "4533", "--rotator-speed", "0"},
      {"--rotator", "4533", "--swing", "95"},
      {"--rotator", "4533", "--range", "0"},
      {"--rotator", "4533", "--range", "90..0"},
      {"--rotator", "4533", "--range", "0..1000"},
      {"--rotator", "4533", "--resolution", "0"},
      {"--rotator", "4533", "--lose", "101"},
      {"--follow-rotator", "4533", "--swing", "5"},
      {"--signal", "361"},
      {"--as", "rotator"},
      {"--noise-band", "300"},
      {"--noise-band", "2700-300"},
      {"--noise-band", "a-b"},
      {"--noise-band", "1-300"},
      {"--snr", "20"},
      {"--agc", "0.1"},
      {"--agc", "0", "1"},
      {"--agc", "x", "1"},
      {"--clip", "x"},
      {"--keyed", "0"},
      {"--tone", "0"},
      {"--right", "left"},
      {"--mono", "--right", "same"},
      {"--rate", "100"},
      {"--second-tone", "900"},
  };
  for (const auto& arguments : cases) {
    const auto parsed = Parse(arguments);
    EXPECT_FALSE(parsed.Options) << arguments.front();
    EXPECT_NE(parsed.ExitCode, 0) << arguments.front();
    EXPECT_NE(parsed.Complaint, "") << arguments.front();
  }
}

TEST(Options, ARotatorIsServedWithItsMotorAndItsAnswers) {
  const auto parsed = Parse({"--rotator",
                             "0.0.0.0:4600",
                             "--rotator-speed",
                             "9",
                             "--run-up",
                             "2",
                             "--run-down",
                             "1.5",
                             "--swing",
                             "20",
                             "--range",
                             "0..360",
                             "--rotator-start",
                             "90",
                             "--park",
                             "45",
                             "--stall-at",
                             "200",
                             "--reversed",
                             "--resolution",
                             "4",
                             "--answer-delay",
                             "50",
                             "--lose",
                             "10",
                             "--jump-at",
                             "100",
                             "--signal",
                             "211"});
  ASSERT_TRUE(parsed.Options) << parsed.Complaint;
  const RotatorOptions& rotator = parsed.Options->Rotator;
  EXPECT_TRUE(rotator.Any());
  EXPECT_EQ(rotator.Serve->Host, "0.0.0.0");
  EXPECT_EQ(rotator.Serve->Port, 4600);
  EXPECT_EQ(rotator.Motor.DegPerS, 9);
  EXPECT_EQ(rotator.Motor.RunUpS, 2);
  EXPECT_EQ(rotator.Motor.RunDownS, 1.5);
  EXPECT_EQ(rotator.Motor.SwingShare, 0.2);
  EXPECT_EQ(rotator.Motor.LowestDeg, 0);
  EXPECT_EQ(rotator.Motor.HighestDeg, 360);
  EXPECT_EQ(rotator.Motor.StartDeg, 90);
  EXPECT_EQ(rotator.Motor.ParkDeg, 45);
  EXPECT_EQ(rotator.Motor.StallAtDeg, 200);
  EXPECT_TRUE(rotator.Motor.Reversed);
  EXPECT_EQ(rotator.Answers.ResolutionDeg, 4);
  EXPECT_EQ(rotator.Answers.AnswersLateS, 0.05);
  EXPECT_EQ(rotator.Answers.LostShare, 0.1);
  EXPECT_EQ(rotator.Answers.JumpAtDeg, 100);
  EXPECT_EQ(rotator.SignalDeg, 211);
}

TEST(Options, WithoutOneTheAntennaTurnsByTheClock) {
  EXPECT_FALSE(Parse({}).Options->Rotator.Any());
  const auto plain = Parse({"--rotator", "4533"});
  EXPECT_EQ(plain.Options->Rotator.Motor.LowestDeg, -180);
  EXPECT_EQ(plain.Options->Rotator.Motor.HighestDeg, 450);
  EXPECT_EQ(Parse({"--follow-rotator", "mast:4533"}).Options->Rotator.Follow->Host, "mast");
  EXPECT_EQ(Parse({"--as", "rotator", "--rotator", "4533"}).Options->Kind, BenchKind::Rotator);
}

TEST(Options, TheReceiverIsSilentUntilItIsAskedFor) {
  ReceiverSettings clean;
  EXPECT_EQ(Parse({}).Options->Receiver, clean);
  clean.Seed = 7;
  EXPECT_EQ(Parse({"--seed", "7"}).Options->Receiver, clean) << "its noise is drawn by the same seed";
}

TEST(Options, TheReceiverTakesAll) {
  const auto parsed = Parse(
      {"--tone", "800",   "--drift", "0.5",      "--keyed", "12",      "--noise-band",  "300-2700", "--snr",
       "20",     "--agc", "0.1",     "2",        "--clip",  "3",       "--second-tone", "900",      "-3",
       "--fade", "2",     "30",      "--offset", "500",     "--right", "reference",     "--rate",   "48000"});
  ASSERT_TRUE(parsed.Options) << parsed.Complaint;
  const ReceiverSettings& receiver = parsed.Options->Receiver;
  EXPECT_EQ(receiver.ToneHz, 800);
  EXPECT_EQ(receiver.DriftHzPerSecond, 0.5);
  EXPECT_EQ(receiver.WordsPerMinute, 12);
  EXPECT_EQ(receiver.NoiseHz, std::pair(300.0, 2700.0));
  EXPECT_EQ(receiver.SnrDb, 20);
  EXPECT_EQ(receiver.AgcSeconds, std::pair(0.1, 2.0));
  EXPECT_EQ(receiver.ClipDb, 3);
  EXPECT_EQ(receiver.SecondTone, std::pair(900.0, -3.0));
  EXPECT_EQ(receiver.Fade, std::pair(2.0, 30.0));
  EXPECT_EQ(receiver.Offset, 500);
  EXPECT_EQ(receiver.Right, RightChannel::Reference);
  EXPECT_EQ(receiver.SamplesPerSecond, 48000);
}

TEST(Options, AgcAndClippingHaveUsualValues) {
  const auto parsed = Parse({"--agc", "--clip"});
  ASSERT_TRUE(parsed.Options) << parsed.Complaint;
  EXPECT_EQ(parsed.Options->Receiver.AgcSeconds, std::pair(0.005, 0.5));
  EXPECT_EQ(parsed.Options->Receiver.ClipDb, 6);
}

TEST(Options, HelpNamesEveryOptionAndShowsExamples) {
  const auto help = Parse({"--help"});
  EXPECT_FALSE(help.Options);
  EXPECT_EQ(help.ExitCode, 0);
  for (const char* text :
       {"--list", "--plain", "--antenna", "--file", "--seconds", "--turns", "--start-bearing", "--noise",
        "--spikes", "--seed", "--sink", "--peak", "--seconds-of-silence-before", "Examples:"})
    EXPECT_THAT(help.Output, HasSubstr(text));
}

TEST(ListText, NamesEachAntennaWithItsBeamwidth) {
  EXPECT_THAT(ListText(false), HasSubstr("beam           62.23  3-element beam with minor lobes\n"));
  const std::string lopsided = FixedText(TrueBeamwidthDeg("lopsided"), 2);
  EXPECT_EQ(ListText(true),
            "dipole\t77.95\ncardioid\t130.85\nbeam\t62.23\narray\t65.12\nomni\t360.00\nlopsided\t" +
                lopsided + "\n");
  EXPECT_TRUE(Parse({"--list", "--plain"}).Options->Plain);
}

TEST(ProgressText, TellsTurnBearingAndLevel) {
  TurnSettings settings;
  settings.SecondsPerTurn = 10;
  settings.SilenceSeconds = 2;
  const Turn turn(settings, [](double) { return 0.5; });
  EXPECT_EQ(ProgressText(turn, 1), "silence before the first turn");
  EXPECT_EQ(ProgressText(turn, 14.5), "turn 2  bearing 270.0  level 450.0");
  Turn followed(settings, [](double) { return 0.5; });
  followed.Follow([](double) { return -30; });
  EXPECT_EQ(ProgressText(followed, 14.5), "signal at 330.0 from the antenna  level 450.0");
}

}  // namespace
}  // namespace lobegraph
