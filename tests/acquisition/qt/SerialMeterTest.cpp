// Whole turns through pseudo-terminals and through the store, and everything that can go wrong with a meter
// in the middle of one.
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <random>
#include <thread>

#include "acquisition/qt/MeterTurn.h"

namespace lobegraph {
namespace {

using test::ChildProcess;
using test::MeterTurn;
using test::Terminal;
using ::testing::IsEmpty;

constexpr int kTurnSeconds = 9;  // 25 ms a reading, exactly
constexpr double kPeak = 900;

struct Source {
  const char* Name;
  const char* As;
  const char* Baud;
  bool Roska, Program;
};
class WholeTurn : public ::testing::TestWithParam<Source> {};

/// Silence until the turn begins, so that automatic start finds its beginning.
std::vector<std::string> BenchArguments(const Source& source) {
  std::vector<std::string> arguments = {"--as",
                                        source.As,
                                        "--antenna",
                                        "cardioid",
                                        "--seconds",
                                        std::to_string(kTurnSeconds),
                                        "--start-bearing",
                                        "60",
                                        "--peak",
                                        "900",
                                        "--seconds-of-silence-before",
                                        "1.5"};
  if (!source.Program) arguments.insert(arguments.end(), {"--com", std::to_string(MeterTurn::kCom)});
  return arguments;
}

TEST_P(WholeTurn, IsThePatternWithinHalfADecibel) {
  MeterTurn turn;
  turn.Rig.Choice.ROSKAmeter = GetParam().Roska;
  turn.Rig.Choice.GaugeBridge = GetParam().Program;
  turn.Rig.Panel.AutoStart = true;
  const ChildProcess bench = turn.Bench(BenchArguments(GetParam()));
  if (GetParam().Program)
    ASSERT_TRUE(
        turn.Until([&] { return turn.Store.Get("GaugeBridge", "Settings", "Active", "N") == "Y"; }, 5000));
  else
    ASSERT_TRUE(turn.OpenMeter(GetParam().Baud)) << turn.Printed();
  const RunReport report = turn.Turn(kTurnSeconds);
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(report.Silent.Count, 0);
  EXPECT_THAT(turn.Texts(), IsEmpty());
  EXPECT_LE(test::WorstErrorDb(turn.Rig.Record, 60, 1, kPeak), 0.5);
}
INSTANTIATE_TEST_SUITE_P(Meters, WholeTurn,
                         ::testing::Values(Source{"Tarven", "tarven", "38400", false, false},
                                           Source{"Roska", "roska", "9600", true, false},
                                           Source{"ExternalProgram", "program", "", false, true}),
                         [](const auto& source) { return source.param.Name; });

class Unplugged : public ::testing::TestWithParam<int> {};

TEST_P(Unplugged, TheTurnGoesOnOneMessageFollowsAndPluggingInAgainWorks) {
  MeterTurn turn;
  const std::vector<std::string> omni = {"--as",  "tarven",          "--antenna", "cardioid", "--seconds",
                                         "86400", "--start-bearing", "0",         "--com",    "5"};
  ChildProcess bench = turn.Bench(omni);
  ASSERT_TRUE(turn.OpenMeter("38400"));
  ASSERT_TRUE(turn.Until([&] { return turn.Rig.Meter.ValuesReceived > 3; }, 3000));
  turn.Rig.Panel.OnStored = [&](int index) {
    if (index == std::max(GetParam() - 1, 0)) bench.Kill();
  };
  const RunReport report = turn.Turn(4);
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_NEAR(turn.Rig.Record.Readings(359), kPeak, 10) << "the last value stands";
  EXPECT_FALSE(turn.MSComm1.PortOpen());
  if (report.Silent.Count > 0 || GetParam() < 359) {
    EXPECT_NEAR(report.Silent.First, GetParam(), 3);
    EXPECT_NEAR(report.Silent.Count, 360 - GetParam(), 3);
  }
  turn.Store.Save("Lobegraph", "Ports", "COM5", "");
  const ChildProcess again = turn.Bench(omni);
  ASSERT_TRUE(turn.OpenMeter("38400"));
  const auto before = turn.Rig.Meter.ValuesReceived;
  EXPECT_TRUE(turn.Until([&] { return turn.Rig.Meter.ValuesReceived > before; }, 3000));
}
INSTANTIATE_TEST_SUITE_P(AtReading, Unplugged, ::testing::Values(0, 100, 359));

/// A pseudo-terminal whose meter is the test itself.
struct OwnMeter : Terminal {
  OwnMeter(MeterTurn& turn, const char* baud = "38400") {
    turn.Store.Save("Lobegraph", "Ports", "COM5", Path);
    turn.Devices.OpenMeterPort(5, baud);
  }
  void Say(std::string_view text) const {
    while (!text.empty()) {
      const auto written = write(Master, text.data(), text.size());
      if (written < 0) return;
      text.remove_prefix(static_cast<std::size_t>(written));
    }
  }
};

TEST(MeterInTrouble, TenMegabytesOfGarbageAtFullSpeedAreReadAndTheTurnEnds) {
  MeterTurn turn;
  const OwnMeter meter(turn);
  ASSERT_TRUE(turn.MSComm1.PortOpen());
  std::atomic<bool> written = false;
  std::thread garbage([&] {
    std::mt19937 random(1);
    std::string block(10'000, '\0');
    for (int i = 0; i < 1000; ++i) {
      for (char& character : block) character = static_cast<char>(random());
      meter.Say(block);
    }
    written = true;
  });
  EXPECT_EQ(turn.Turn(4).ReadingsTaken, 360);
  EXPECT_TRUE(turn.Until([&] { return written.load(); }, 20'000)) << "all of it was taken";
  garbage.join();
  ASSERT_TRUE(turn.MSComm1.PortOpen());
  meter.Say("\r300 \r300 \r300 ");
  EXPECT_TRUE(turn.Until([&] { return std::abs(turn.Rig.Meter.MeterDb - 30) < 0.01; }, 3000));
}

TEST(MeterInTrouble, OneThatStopsTalkingIsNamedAfterTheTurn) {
  MeterTurn turn;
  const OwnMeter meter(turn);
  meter.Say("\r600 \r600 \r600 ");
  ASSERT_TRUE(turn.Until([&] { return turn.Rig.Meter.ValuesReceived == 3; }, 3000));
  turn.Rig.Panel.OnStored = [&](int index) {
    if (index < 50) meter.Say("\r600 ");
  };
  const RunReport report = turn.Turn(4);
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(turn.Rig.Record.Readings(359), 1000.0F);
  EXPECT_NEAR(report.Silent.Count, 309, 6);
}

TEST(MeterInTrouble, AStoreRewrittenAHundredTimesASecondLosesNoPoll) {
  MeterTurn turn;
  turn.Rig.Choice.GaugeBridge = true;
  const std::string path = turn.Store.Place("GaugeBridge");
  turn.Store.Save("GaugeBridge", "Settings", "Reading", "-30");
  turn.Store.Save("GaugeBridge", "Settings", "Active", "Y");
  for (int i = 0; i < 3; ++i) turn.External.Poll();
  std::atomic<bool> over = false;
  std::thread writer([&] {  // in the clumsiest way: cut to nothing, then written in two pieces
    while (!over) {
      std::ofstream file(path);
      file << "[Settings]\nActive=Y\nRead" << std::flush;
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      file << "ing=-30\n" << std::flush;
      file.close();
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  });
  const RunReport report = turn.Turn(4);
  over = true;
  writer.join();
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(report.Silent.Count, 0);
  EXPECT_THAT(turn.Texts(), IsEmpty());
  for (int i = 0; i < 360; ++i) ASSERT_NEAR(turn.Rig.Record.Readings(i), 31.62F, 0.01F) << i;
}

double CpuSeconds() {
  rusage usage{};
  getrusage(RUSAGE_THREAD, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST(TriggerWait, CostsLessThanAFifthOfACoreAndHaltEndsIt) {
  MeterTurn turn;
  const OwnMeter line(turn);
  turn.Rig.Choice.Commtrigger = 5;
  QElapsedTimer waited;
  waited.start();
  const double before = CpuSeconds();
  QTimer::singleShot(3000, [&] { turn.Rig.Flags.HaltRequested = 1; });
  EXPECT_FALSE(turn.Trigger.WaitForTrigger());
  const double share = (CpuSeconds() - before) * 1000 / static_cast<double>(waited.elapsed());
  RecordProperty("core_share", std::to_string(share));
  EXPECT_LT(share, 0.2);
  EXPECT_GT(turn.Line.UsbStateCount, 300) << "and it polls often enough for a contact";
}

}  // namespace
}  // namespace lobegraph
