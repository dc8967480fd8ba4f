#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "acquisition/qt/SoundListener.h"
#include "support/PrivatePulse.h"

namespace lobegraph {
namespace {

using test::ChildProcess;
using test::PrivatePulse;
using test::SoundListener;
using ::testing::HasSubstr;

ChildProcess Bench(const PrivatePulse& server, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), LOBEGRAPH_BENCH);
  return ChildProcess(arguments, server.Folder() / "bench.log");
}

std::string Printed(const PrivatePulse& server) {
  std::ostringstream text;
  text << std::ifstream(server.Folder() / "bench.log").rdbuf();
  return text.str();
}

TEST(BenchPlays, ASteadyLevelIsHeardExactly) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
      << listener.Capture.SoundFailure();
  for (const char* peak : {"900", "333", "1023"}) {
    const ChildProcess bench = Bench(
        server, {"--antenna", "cardioid", "--seconds", "86400", "--start-bearing", "0", "--peak", peak});
    const float level = std::stof(peak);
    EXPECT_TRUE(listener.YieldUntil([&] { return listener.State.SoundLevel == level; }, 3000))
        << peak << ": " << listener.State.SoundLevel;
  }
}

TEST(BenchPlays, TheLevelFollowsTheTurningAntennaWithin1PercentOfItsPeak) {
  constexpr double kSecondsPerTurn = 20, kListenMs = 9000, kPeak = 900;
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
      << listener.Capture.SoundFailure();
  const ChildProcess bench = Bench(server, {"--antenna", "cardioid", "--seconds", "20", "--start-bearing",
                                            "90", "--seconds-of-silence-before", "0.5"});
  ASSERT_TRUE(listener.YieldUntil([&] { return listener.State.SoundLevel > 400; }, 5000));
  const std::int32_t start = listener.Time.timeGetTime();
  int looks = 0, near = 0;
  listener.YieldUntil(
      [&] {
        const double turned = (listener.Time.timeGetTime() - start) / 1000.0 / kSecondsPerTurn;
        const double expected = kPeak * (1 + std::cos(2 * M_PI * (0.25 + turned))) / 2;
        ++looks;
        near += std::abs(listener.State.SoundLevel - expected) <= kPeak / 100;
        return false;
      },
      static_cast<int>(kListenMs));
  EXPECT_GT(looks, 100);
  EXPECT_GE(near, 0.97 * looks) << near << " of " << looks;
}

TEST(BenchPlays, ItEndsAfterTheLastTurnAndShowsItsProgress) {
  PrivatePulse server;
  EXPECT_EQ(Bench(server, {"--seconds", "1.5", "--turns", "1"}).Wait(), 0);
  EXPECT_THAT(Printed(server), HasSubstr("turn 1  bearing "));
}

class BenchStops : public ::testing::TestWithParam<int> {};

TEST_P(BenchStops, CleanlyOnASignal) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  ChildProcess bench = Bench(server, {"--antenna", "omni"});
  ASSERT_TRUE(listener.YieldUntil([&] { return listener.State.SoundLevel > 100; }, 5000));
  bench.Signal(GetParam());
  EXPECT_EQ(bench.Wait(), 0);
}
INSTANTIATE_TEST_SUITE_P(Signals, BenchStops, ::testing::Values(SIGTERM, SIGINT));

TEST(BenchPlays, WithoutAServerItSaysSoAtOnce) {
  PrivatePulse server;
  server.Kill();
  EXPECT_EQ(Bench(server, {}).Wait(), 1);
  EXPECT_THAT(Printed(server), HasSubstr("lobegraph-bench: No sound server answers"));
}

TEST(BenchPlays, AServerThatStandsStillIsGivenUp) {
  PrivatePulse server;
  server.Freeze();
  EXPECT_EQ(Bench(server, {}).Wait(), 1);
  EXPECT_THAT(Printed(server), HasSubstr("The sound server does not answer within 2 seconds."));
}

TEST(BenchPlays, AnUnknownSinkIsNamed) {
  PrivatePulse server;
  EXPECT_EQ(Bench(server, {"--sink", "attic"}).Wait(), 1);
  EXPECT_THAT(Printed(server), HasSubstr("The sound server has no sink named \"attic\""));
}

TEST(BenchPlays, AServerWithoutAnySinkIsSaidSo) {
  PrivatePulse server(std::vector<std::string>{});
  EXPECT_EQ(Bench(server, {}).Wait(), 1);
  EXPECT_THAT(Printed(server), HasSubstr("The sound server has no sink"));
}

TEST(BenchPlays, AServerKilledInTheMiddleEndsItWithTheReason) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  ChildProcess bench = Bench(server, {"--antenna", "omni"});
  ASSERT_TRUE(listener.YieldUntil([&] { return listener.State.SoundLevel > 100; }, 5000));
  server.Kill();
  EXPECT_EQ(bench.Wait(), 1);
  EXPECT_THAT(Printed(server), HasSubstr("The sound server has gone"));
}

TEST(BenchPlays, AFileThatIsNotThereIsNamed) {
  PrivatePulse server;
  EXPECT_EQ(Bench(server, {"--file", "/nonexistent/a.lbg"}).Wait(), 1);
  EXPECT_THAT(Printed(server), HasSubstr("/nonexistent/a.lbg"));
}

}  // namespace
}  // namespace lobegraph
