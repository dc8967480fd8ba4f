// The bench as a meter.
#include "bench/Meter.h"

#include <fstream>

#include "bench/MeterOutputs.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

TEST(BenchMeter, SaysLevelsInDecibelsBelowFullScale) {
  EXPECT_DOUBLE_EQ(MeterDbOf(1000), 60);
  EXPECT_NEAR(MeterDbOf(100), 40, 1e-9);
  EXPECT_DOUBLE_EQ(MeterDbOf(0), 0);
  EXPECT_DOUBLE_EQ(MeterDbOf(0.5), 0);
  EXPECT_DOUBLE_EQ(MeterDbOf(1023), 60);
}

TEST(BenchMeter, SpeaksInTheFrameOfEachKind) {
  EXPECT_EQ(MeterText(BenchKind::Tarven, 100), "\r400 ");
  EXPECT_EQ(MeterText(BenchKind::Roska, 100), "400;");
  EXPECT_EQ(ProgramReading(100), "-20.00");
}

TEST(BenchMeter, InStepsTheLevelStandsAndThePulseComesWithinTheStep) {
  TurnSettings settings;
  settings.SecondsPerTurn = 36;
  settings.SilenceSeconds = 1;
  const SteppedTurn turn(settings);
  EXPECT_FALSE(turn.PulseHigh(0.04));
  EXPECT_NEAR(turn.HeldSince(1.39), 1.3, 1e-5);
  EXPECT_NEAR(turn.HeldSince(1.301), 1.3, 1e-5);
  EXPECT_FALSE(turn.PulseHigh(1.32));
  EXPECT_TRUE(turn.PulseHigh(1.33));
  EXPECT_FALSE(turn.PulseHigh(1.35));
}

TEST(BenchMeter, OnABusyMachineTheRotatorTurnsSlowerAndLosesNoPulse) {
  TurnSettings settings;
  settings.SecondsPerTurn = 9;
  const SteppedTurn turn(settings);
  int pulses = 0, moment = 0;
  bool high = false;
  for (double seconds = 0; seconds < 9; seconds = turn.Next(seconds, ++moment % 7 == 0 ? 0.5 : 0.004)) {
    const bool rises = !high && turn.PulseHigh(seconds);
    high = turn.PulseHigh(seconds);
    if (rises) ++pulses;
  }
  EXPECT_EQ(pulses, 360);
  EXPECT_DOUBLE_EQ(turn.Next(1, 0.001), 1.001);
}

TEST(BenchMeter, ATerminalCarriesValuesAndCommands) {
  const MeterTerminal meter;
  std::ifstream port(meter.Path());
  meter.Send("400;");
  std::string text(4, ' ');
  port.read(text.data(), 4);
  EXPECT_EQ(text, "400;");
  std::ofstream(meter.Path()) << "*c";
  EXPECT_EQ(meter.Received(), "*c");
}

TEST(BenchMeter, ATerminalThatNobodyReadsNeverBlocksAndKeepsOnlyTheNewest) {
  const MeterTerminal meter;
  for (int i = 0; i < 100000; ++i) meter.Send("\r400 ");
  SUCCEED();
}

TEST(BenchMeter, PulsesIntoAFileAreLines) {
  const TemporaryFolder folder;
  std::ofstream(folder.File("pulses")).flush();
  {
    PulseOutput pulses(folder.File("pulses"));
    pulses.Set(false);
    pulses.Set(true);
    pulses.Set(true);
  }
  std::ifstream file(folder.File("pulses"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "H\nL\n");
}

}  // namespace
}  // namespace lobegraph
