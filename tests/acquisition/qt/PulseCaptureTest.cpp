#include "acquisition/qt/PulseCapture.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cmath>
#include <fstream>

#include "acquisition/qt/SoundListener.h"
#include "support/PrivatePulse.h"

namespace lobegraph {
namespace {

using test::ChildProcess;
using test::PrivatePulse;
using test::SoundListener;
using ::testing::HasSubstr;

/// Seconds of a 1102.5 Hz tone, both channels: 40 samples a period, so its peaks are hit exactly.
std::string ToneFile(const PrivatePulse& server, int amplitude, int seconds) {
  const std::string path = server.Folder() / ("tone" + std::to_string(amplitude) + ".raw");
  std::vector<std::int16_t> samples;
  for (int frame = 0; frame < 44100 * seconds; ++frame) {
    const auto sample = static_cast<std::int16_t>(std::lround(amplitude * std::sin(2 * M_PI * frame / 40)));
    samples.insert(samples.end(), {sample, sample});
  }
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(samples.data()),
             static_cast<std::streamsize>(samples.size() * sizeof(std::int16_t)));
  return path;
}

ChildProcess Play(const std::string& file) {
  return ChildProcess({"pacat", "--playback", "--raw", "--rate=44100", "--channels=2", "--format=s16le",
                       "--latency-msec=50", file});
}

int EntriesOf(const char* folder) {
  int entries = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++entries;
  return entries;
}

TEST(PulseCaptureTest, TheLevelOfAToneIsItsAmplitudeDividedBy32) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
      << listener.Capture.SoundFailure();
  for (const int amplitude : {32000, 16000, 3200}) {
    const ChildProcess player = Play(ToneFile(server, amplitude, 3));
    const auto heard = [&] { return listener.State.SoundLevel == static_cast<float>(amplitude) / 32; };
    EXPECT_TRUE(listener.YieldUntil(heard, 3000)) << amplitude << ": " << listener.State.SoundLevel;
  }
}

TEST(PulseCaptureTest, AMicrophoneThatHearsSilenceReads1) {
  PrivatePulse server;
  SoundListener listener;
  listener.State.SoundLevel = 500;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
      << listener.Capture.SoundFailure();
  EXPECT_EQ(listener.State.SoundLevel, 0.0F);
  EXPECT_EQ(ReadSoundLevel(listener.State, true, 1000, {}, listener.Time).Level, 1.0F);
}

TEST(PulseCaptureTest, TheSourceIsTheServersDefaultAskedForAtEachStart) {
  PrivatePulse server(
      {PrivatePulse::NullSink().front(),
       "module-null-sink sink_name=other norewinds=1 sink_properties=device.description=Other"});
  SoundListener listener;
  ASSERT_EQ(server.Pactl({"set-default-source", "rx.monitor"}), 0);
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
      << listener.Capture.SoundFailure();
  EXPECT_EQ(listener.Capture.SoundSourceName(), "Monitor of Receiver");
  listener.Capture.StopSoundCapture();
  ASSERT_EQ(server.Pactl({"set-default-source", "other.monitor"}), 0);
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
      << listener.Capture.SoundFailure();
  EXPECT_EQ(listener.Capture.SoundSourceName(), "Monitor of Other");
}

TEST(PulseCaptureTest, ASourceCanBeNamed) {
  PrivatePulse server({PrivatePulse::NullSink().front(), "module-null-sink sink_name=other norewinds=1"});
  SoundListener listener;
  std::string error;
  listener.Form.Initialize(44100, 16, 2, 0, "other.monitor", error);
  EXPECT_EQ(error, "");
  listener.Form.SoundStart();
  EXPECT_TRUE(listener.YieldUntil([&] { return listener.Form.BlocksAnalysed() > 3; }, 2000));
  listener.Form.Initialize(44100, 16, 2, 0, "no.such.source", error);
  EXPECT_THAT(error, HasSubstr("no.such.source"));
}

TEST(PulseCaptureTest, NoticesComeOnlyWhileTheWindowIsServed) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  const std::uint64_t before = listener.Form.BlocksAnalysed();
  listener.Time.Sleep(300);
  EXPECT_EQ(listener.Form.BlocksAnalysed(), before);
  listener.Pump.ProcessPendingEvents();
  const std::uint64_t analysed = listener.Form.BlocksAnalysed() - before;
  EXPECT_GE(analysed, 1U);
  EXPECT_LE(analysed, 3U) << "the two newest halves, and at most one that came in meanwhile";
}

TEST(PulseCaptureTest, ServingTheWindowAloneLeavesTheNoticesInTheirQueue) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  const std::uint64_t before = listener.Form.BlocksAnalysed();
  for (int i = 0; i < 20; ++i) {
    listener.Time.Sleep(15);
    listener.Pump.ServeWindow();
  }
  EXPECT_EQ(listener.Form.BlocksAnalysed(), before);
  listener.Pump.ProcessPendingEvents();
  EXPECT_GE(listener.Form.BlocksAnalysed(), before + 1) << "and nothing of them is lost";
}

/// Two sources; the first is captured.
std::vector<std::string> TwoSinks() {
  return {PrivatePulse::NullSink().front(),
          "module-null-sink sink_name=other rate=44100 channels=2 format=s16le norewinds=1 "
          "sink_properties=device.description=Other"};
}

TEST(PulseCaptureTest, DuringACollectionASourceThatIsPulledOutIsAFailureThoughAnotherIsThere) {
  PrivatePulse server(TwoSinks());
  SoundListener listener;
  ASSERT_EQ(server.Pactl({"set-default-source", "rx.monitor"}), 0);
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  ASSERT_EQ(server.Pactl({"unload-module", "module-null-sink"}), 0);
  EXPECT_TRUE(listener.YieldUntil([&] { return !listener.Capture.SoundFailure().empty(); }, 1500));
  EXPECT_EQ(listener.Capture.SoundFailure(), "The sound input has gone.");
}

TEST(PulseCaptureTest, DuringACollectionNobodyCanPutAnotherSourceInItsPlace) {
  PrivatePulse server(TwoSinks());
  SoundListener listener;
  ASSERT_EQ(server.Pactl({"set-default-source", "rx.monitor"}), 0);
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_NE(server.Pactl({"move-source-output", "0", "other.monitor"}), 0) << "refused";
  ASSERT_EQ(server.Pactl({"set-default-source", "other.monitor"}), 0);
  EXPECT_FALSE(listener.YieldUntil([&] { return !listener.Capture.SoundFailure().empty(); }, 500));
  EXPECT_EQ(listener.Capture.SoundSourceName(), "Monitor of Receiver");
}

TEST(PulseCaptureTest, DuringASweepASourceThatTakesItsPlaceIsFollowedByItsName) {
  PrivatePulse server(TwoSinks());
  SoundListener listener;
  ASSERT_EQ(server.Pactl({"set-default-source", "rx.monitor"}), 0);
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFollowed));
  ASSERT_EQ(server.Pactl({"move-source-output", "0", "other.monitor"}), 0);
  EXPECT_TRUE(
      listener.YieldUntil([&] { return listener.Capture.SoundSourceName() == "Monitor of Other"; }, 1500));
  ASSERT_EQ(server.Pactl({"move-source-output", "0", "rx.monitor"}), 0);
  EXPECT_TRUE(
      listener.YieldUntil([&] { return listener.Capture.SoundSourceName() == "Monitor of Receiver"; }, 1500));
  EXPECT_EQ(listener.Capture.SoundFailure(), "");
}

TEST(PulseCaptureTest, BlocksComeEveryTenMilliseconds) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  const std::uint64_t before = listener.Form.BlocksAnalysed();
  listener.YieldUntil([] { return false; }, 1000);
  EXPECT_NEAR(static_cast<double>(listener.Form.BlocksAnalysed() - before), 100, 15);
}

TEST(PulseCaptureTest, AFreshBlockIsThereWithinThreeTenthsOfASecond) {
  PrivatePulse server;
  SoundListener listener;
  const std::int32_t start = listener.Time.timeGetTime();
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_LT(listener.Time.timeGetTime() - start, 300);
}

TEST(PulseCaptureTest, WithoutAServerTheStartFailsAtOnceAndSaysWhy) {
  setenv("PULSE_SERVER", "unix:/nonexistent/lobegraph.sock", 1);
  SoundListener listener;
  const std::int32_t start = listener.Time.timeGetTime();
  EXPECT_FALSE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_LT(listener.Time.timeGetTime() - start, 500);
  EXPECT_THAT(listener.Capture.SoundFailure(), HasSubstr("No sound server answers"));
  EXPECT_FALSE(listener.State.SoundCaptureActive);
  unsetenv("PULSE_SERVER");
}

TEST(PulseCaptureTest, AServerWithoutAnyInputIsSaidSo) {
  PrivatePulse server(std::vector<std::string>{});
  SoundListener listener;
  EXPECT_FALSE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(listener.Capture.SoundFailure(), "The sound server has no input.");
}

TEST(PulseCaptureTest, AServerKilledInTheMiddleIsAFailureWithinTwoSeconds) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  server.Kill();
  EXPECT_TRUE(listener.YieldUntil([&] { return !listener.Capture.SoundFailure().empty(); }, 2000));
  EXPECT_THAT(listener.Capture.SoundFailure(), HasSubstr("The sound server has gone"));
  EXPECT_FALSE(listener.State.SoundCaptureActive);
  listener.Capture.StopSoundCapture();
}

TEST(PulseCaptureTest, ASourceThatIsUnpluggedInTheMiddleIsAFailure) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  ASSERT_EQ(server.Pactl({"unload-module", "module-null-sink"}), 0);
  EXPECT_TRUE(listener.YieldUntil([&] { return !listener.Capture.SoundFailure().empty(); }, 2000));
  EXPECT_EQ(listener.Capture.SoundFailure(), "The sound input has gone.");
}

TEST(PulseCaptureTest, AServerThatStandsStillIsAFailureNotAHang) {
  PrivatePulse server;
  SoundListener listener;
  ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  server.Freeze();
  EXPECT_TRUE(listener.YieldUntil([&] { return !listener.Capture.SoundFailure().empty(); }, 2500));
  listener.Capture.StopSoundCapture();
  const std::int32_t start = listener.Time.timeGetTime();
  EXPECT_FALSE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_LT(listener.Time.timeGetTime() - start, 2500);
  EXPECT_THAT(listener.Capture.SoundFailure(), HasSubstr("does not answer"));
  server.Thaw();
  EXPECT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
      << "and it works again: " << listener.Capture.SoundFailure();
}

TEST(PulseCaptureTest, FiftyStartsAndStopsLeaveNothingBehind) {
  PrivatePulse server;
  SoundListener listener;
  const auto startAndStop = [&] {
    ASSERT_TRUE(listener.Capture.StartSoundCapture(SourceMoves::AreFailures))
        << listener.Capture.SoundFailure();
    listener.Capture.StopSoundCapture();
  };
  startAndStop();
  const int threads = EntriesOf("/proc/self/task"), files = EntriesOf("/proc/self/fd");
  for (int round = 0; round < 50; ++round) startAndStop();
  EXPECT_EQ(EntriesOf("/proc/self/task"), threads);
  EXPECT_EQ(EntriesOf("/proc/self/fd"), files);
}

TEST(PulseCaptureTest, BlocksAreHeardExactlyAsTheyWereWritten) {
  const auto folder = std::filesystem::temp_directory_path() / ("lobegraph-pipe-" + std::to_string(getpid()));
  PrivatePulse server(
      {"module-pipe-source source_name=mic rate=44100 channels=2 format=s16le file=" + folder.string()});
  SoundListener listener;
  ASSERT_EQ(listener.Capture.StartRecording(), "");
  const int pipe = open(folder.c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_GE(pipe, 0);
  for (std::uint64_t block = 1; block <= 30; ++block) {
    std::vector<std::int16_t> samples(882, 32000);
    std::fill_n(samples.begin(), 441, static_cast<std::int16_t>(block * 320));
    const std::size_t bytes = samples.size() * sizeof(std::int16_t);
    ASSERT_EQ(write(pipe, samples.data(), bytes), static_cast<ssize_t>(bytes));
    ASSERT_TRUE(listener.YieldUntil([&] { return listener.Form.BlocksAnalysed() == block; }, 2000)) << block;
    EXPECT_EQ(listener.State.SoundLevel, static_cast<float>(block) * 10)
        << "the loud second half is not heard";
  }
  close(pipe);
  std::filesystem::remove(folder);
}

}  // namespace
}  // namespace lobegraph
