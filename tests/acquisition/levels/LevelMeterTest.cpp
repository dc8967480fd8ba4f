#include "acquisition/levels/LevelMeter.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

#include "acquisition/levels/LevelWorker.h"
#include "support/Stretches.h"

namespace lobegraph {
namespace {

using test::BandNoise;
using test::Mixed;
using test::Sine;

constexpr double kRate = test::kSampleRate;
constexpr std::int64_t kBlock = 441;

/// Plays a sound into a meter, 10 ms at a time, as the clock goes.
class Player {
 public:
  explicit Player(LevelMeter& meter) : meter_(meter) {}

  void Play(std::span<const float> sound) {
    const std::vector<std::int16_t> samples = test::Stretch(sound).Samples;
    for (std::size_t at = 0; at + 2 * kBlock <= samples.size(); at += 2 * kBlock) {
      nowMs_ += 10;
      meter_.Hear(std::span(samples).subspan(at, 2 * kBlock), nowMs_);
    }
  }
  std::int64_t NowMs() const { return nowMs_; }

 private:
  LevelMeter& meter_;
  std::int64_t nowMs_ = 5000;
};

const LevelChoice kTone{.Method = LevelMethod::Tone};

TEST(LevelMeterTest, ReadingsAreWhatCameInBetweenTheirTimes) {
  LevelMeter meter(kTone, kRate, 0.1);
  Player player(meter);
  player.Play(Sine(44100, 800.0, 3200.0));
  meter.Open(player.NowMs());
  meter.Close(player.NowMs() + 100);
  meter.Close(player.NowMs() + 200);
  EXPECT_TRUE(meter.Take().empty()) << "their sound is still to come";
  player.Play(Sine(4410, 800.0, 3200.0));
  player.Play(Sine(4410, 800.0, 6400.0));
  const auto readings = meter.Take();
  ASSERT_EQ(readings.size(), 2U);
  EXPECT_NEAR(readings[0].Level, 100.0, 0.5);
  EXPECT_NEAR(readings[1].Level, 200.0, 0.5);
  EXPECT_EQ(readings[0].First, 44100);
  EXPECT_EQ(readings[1].First, 48510);
  EXPECT_EQ(readings[0].Detail.Samples, 4410);
}

TEST(LevelMeterTest, WaitingItHasALiveLevelAndFindsTheTone) {
  LevelMeter meter(kTone, kRate, 0.167);
  Player player(meter);
  EXPECT_FALSE(meter.Status().Heard);
  player.Play(Mixed(Sine(44100, 1234.0, 3200.0), BandNoise(44100, 32.0)));
  const LevelStatus& status = meter.Status();
  EXPECT_TRUE(status.Heard);
  EXPECT_NEAR(status.Level, 100.0, 0.5);
  EXPECT_NEAR(*status.ToneHz, 1234.0, 0.2);
  EXPECT_TRUE(status.ToneStandsOut);
  EXPECT_NEAR(*status.RatioDbHz, 37.0 + 33.8, 1.5);
  ASSERT_TRUE(status.Spectrum);
  EXPECT_GT(status.Spectrum->Power.size(), 1000U);
}

TEST(LevelMeterTest, WaitingItGoesToAStrongerTone) {
  LevelMeter meter(kTone, kRate, 0.167);
  Player player(meter);
  player.Play(Sine(44100, 800.0, 3200.0));
  player.Play(Sine(44100, 1500.0, 3200.0));
  EXPECT_NEAR(*meter.Status().ToneHz, 1500.0, 0.2);
}

TEST(LevelMeterTest, WhileReadingsAreTakenItStaysWithItsTone) {
  LevelMeter meter(kTone, kRate, 0.1);
  Player player(meter);
  player.Play(Mixed(Sine(44100, 800.0, 3200.0), BandNoise(44100, 10.0)));
  meter.Open(player.NowMs());
  for (int i = 1; i <= 10; ++i) meter.Close(player.NowMs() + 100 * i);
  player.Play(Mixed(Sine(44100, 1500.0, 9600.0), BandNoise(44100, 10.0)));
  for (const MeasuredReading& reading : meter.Take()) EXPECT_LT(reading.Level, 5.0F);
  EXPECT_NEAR(*meter.Status().ToneHz, 800.0, 1.0);
}

TEST(LevelMeterTest, TwoTonesOfEqualStrengthAreTold) {
  LevelMeter meter({.Method = LevelMethod::Tone, .LastHz = 610.0}, kRate, 0.167);
  Player player(meter);
  player.Play(Mixed(Sine(44100, 600.0, 3200.0), Sine(44100, 1500.0, 3200.0)));
  EXPECT_NEAR(*meter.Status().ToneHz, 600.0, 0.2);
  EXPECT_NEAR(*meter.Status().OtherToneHz, 1500.0, 0.2);
}

TEST(LevelMeterTest, SilenceAndASilentChannelAreTold) {
  LevelMeter meter(kTone, kRate, 0.167);
  Player player(meter);
  player.Play(std::vector<float>(44100, 0.0F));
  EXPECT_TRUE(meter.Status().Silent);
  EXPECT_FALSE(meter.Status().ToneHz);
  const SoundStretch left = test::Stretch(Sine(44100, 800.0, 3200.0), std::vector<float>(44100, 0.0F));
  meter.Hear(left.Samples, player.NowMs() + 1000);
  EXPECT_FALSE(meter.Status().Silent);
  EXPECT_TRUE(meter.Status().RightSilent);
  EXPECT_FALSE(meter.Status().LeftSilent);
}

TEST(LevelMeterTest, InThePausesOfAKeyTheLiveLevelStaysForAWhile) {
  LevelMeter meter({.Method = LevelMethod::Tone, .Keyed = true}, kRate, 0.167);
  Player player(meter);
  const auto noise = [](std::size_t samples) { return BandNoise(samples, 3.0); };
  player.Play(Mixed(Sine(44100, 800.0, 3200.0), noise(44100)));
  EXPECT_NEAR(meter.Status().Level, 100.0, 1.0);
  player.Play(noise(44100));
  EXPECT_NEAR(meter.Status().Level, 100.0, 1.0) << "a pause between words";
  player.Play(noise(3 * 44100));
  EXPECT_LT(meter.Status().Level, 5.0) << "the beacon has gone";
}

TEST(LevelMeterTest, LostFramesAreCountedInTheirReading) {
  LevelMeter meter(kTone, kRate, 0.1);
  Player player(meter);
  player.Play(Sine(44100, 800.0, 3200.0));
  meter.Open(player.NowMs());
  meter.Close(player.NowMs() + 100);
  meter.HearGap(441, player.NowMs() + 10);
  player.Play(Sine(4410, 800.0, 3200.0));
  const auto readings = meter.Take();
  ASSERT_EQ(readings.size(), 1U);
  EXPECT_EQ(readings[0].Detail.Missing, 441);
}

TEST(LevelMeterTest, AfterTheLastReadingItListensAgain) {
  LevelMeter meter(kTone, kRate, 0.1);
  Player player(meter);
  player.Play(Sine(44100, 800.0, 3200.0));
  meter.Open(player.NowMs());
  meter.CloseLast(player.NowMs() + 100);
  player.Play(Sine(44100, 1500.0, 3200.0));
  EXPECT_EQ(meter.Take().size(), 1U);
  EXPECT_NEAR(*meter.Status().ToneHz, 1500.0, 0.2);
}

TEST(LevelWorkerTest, OnTheCallersThreadEverythingIsDoneAtOnce) {
  LevelWorker worker(kTone, kRate, 0.1, LevelWorker::Thread::Callers);
  worker.Hear(test::Stretch(Sine(44100, 800.0, 3200.0)).Samples, 2000);
  EXPECT_NEAR(worker.Level(), 100.0F, 0.5F);
  worker.Open(2000);
  worker.Close(2100);
  EXPECT_TRUE(worker.Take().empty());
  worker.Hear(test::Stretch(Sine(4410, 800.0, 3200.0)).Samples, 2100);
  EXPECT_EQ(worker.Take().size(), 1U);
  EXPECT_TRUE(worker.Take().empty()) << "each is taken once";
}

/// Plays from one thread while another cuts and takes: every frame comes out once, in order.
TEST(LevelWorkerTest, NoSampleIsLostOrUsedTwiceBetweenTheThreads) {
  constexpr int kBlocks = 600;
  LevelWorker worker({.Method = LevelMethod::AllOfTheSound}, kRate, 0.028);
  const std::vector<std::int16_t> block = test::Stretch(Sine(kBlock, 1000.0, 3200.0)).Samples;
  worker.Hear(block, 10);
  worker.Open(10);
  std::thread capture([&] {
    for (int i = 2; i <= kBlocks; ++i) worker.Hear(block, 10 * i);
  });
  std::vector<MeasuredReading> readings;
  const auto take = [&] {
    for (MeasuredReading& reading : worker.Take()) readings.push_back(std::move(reading));
  };
  const int count = 10 * (kBlocks - 1) / 28;
  for (int k = 1; k <= count; ++k) {
    worker.Close(10 + 28 * k);
    take();
  }
  capture.join();
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (readings.size() < static_cast<std::size_t>(count) && std::chrono::steady_clock::now() < deadline) {
    take();
    std::this_thread::yield();
  }
  ASSERT_EQ(readings.size(), static_cast<std::size_t>(count));
  std::int64_t next = readings.front().First;
  for (const MeasuredReading& reading : readings) {
    EXPECT_EQ(reading.First, next);
    next = reading.First + reading.Detail.Samples;
  }
}

TEST(LevelWorkerTest, EndsWithWorkStillWaiting) {
  for (int i = 0; i < 20; ++i) {
    LevelWorker worker(kTone, kRate, 0.1);
    for (int block = 1; block < 50; ++block)
      worker.Hear(test::Stretch(std::vector<float>(kBlock, 1.0F)).Samples, block * 10);
  }
}

}  // namespace
}  // namespace lobegraph
