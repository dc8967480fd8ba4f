// The bench as a meter.
#include "bench/Meter.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "bench/ComLink.h"
#include "bench/MeterOutputs.h"
#include "support/RecordingStore.h"
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

/// What the number means now.
std::string PathOf(RecordingStore& store) { return store.Get("Lobegraph", "Ports", "COM5", ""); }

TEST(BenchComLink, LeadsToTheTerminalAndGivesTheNumberBack) {
  for (const char* before : {"", "/dev/serial/by-id/my-meter"}) {
    RecordingStore store;
    store.Values["Lobegraph/Ports/COM5"] = before;
    std::string link;
    {
      const MeterTerminal meter;
      const ComLink com(store, 5, meter.Handle());
      link = PathOf(store);
      std::ifstream port(link);
      meter.Send("400;");
      std::string text(4, ' ');
      port.read(text.data(), 4);
      EXPECT_EQ(text, "400;");
      EXPECT_EQ(std::filesystem::canonical(link), meter.Path());
    }
    EXPECT_EQ(PathOf(store), before);
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(link).parent_path()));
  }
}

TEST(BenchComLink, ANumberThatWasGivenAwayMeanwhileStaysSo) {
  RecordingStore store;
  {
    const MeterTerminal meter;
    const ComLink com(store, 5, meter.Handle());
    store.Save("Lobegraph", "Ports", "COM5", "/dev/ttyUSB0");
  }
  EXPECT_EQ(PathOf(store), "/dev/ttyUSB0");
}

TEST(BenchComLink, OfAKilledBenchLeadsNowhere) {
  RecordingStore store;
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    const MeterTerminal meter;
    const ComLink com(store, 5, meter.Handle());
    const std::string link = PathOf(store);
    if (write(ends[1], link.data(), link.size()) < 0) _exit(1);
    pause();
  }
  char text[4096];
  const ssize_t length = read(ends[0], text, sizeof text);
  ASSERT_GT(length, 0);
  const std::string link(text, static_cast<std::size_t>(length));
  EXPECT_TRUE(std::filesystem::exists(link));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_FALSE(std::filesystem::exists(link)) << "its terminal's number may be somebody else's by now";
  std::filesystem::remove_all(std::filesystem::path(link).parent_path());
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
