#include "bench/receiver/ReceiverSound.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

namespace lobegraph {
namespace {

constexpr double kRate = 44100;

std::vector<double> LeftOf(ReceiverSound& sound, std::size_t frames) {
  std::vector<std::int16_t> samples(frames * static_cast<std::size_t>(sound.Channels()));
  sound.Fill(samples);
  std::vector<double> left;
  for (std::size_t i = 0; i < samples.size(); i += static_cast<std::size_t>(sound.Channels()))
    left.push_back(samples[i]);
  return left;
}

ReceiverSound Steady(const ReceiverSettings& settings, double level = 500) {
  return {settings, 500, [level](double) { return level; }};
}

double Rms(std::span<const double> sound) {
  double sum = 0;
  for (const double sample : sound) sum += sample * sample;
  return std::sqrt(sum / static_cast<double>(sound.size()));
}

/// Amplitude at a frequency.
double LineAt(std::span<const double> sound, double hz, double rate = kRate) {
  std::complex<double> sum = 0;
  for (std::size_t i = 0; i < sound.size(); ++i)
    sum += sound[i] * std::polar(1.0, -2 * std::numbers::pi * hz * static_cast<double>(i) / rate);
  return 2 * std::abs(sum) / static_cast<double>(sound.size());
}

TEST(ReceiverSoundTest, TheLevelIsTheTonesAmplitude) {
  ReceiverSound sound = Steady({.ToneHz = 800});
  const auto left = LeftOf(sound, 44100);
  EXPECT_NEAR(LineAt(left, 800), 16000, 1);
  EXPECT_NEAR(Rms(left), 16000 / std::numbers::sqrt2, 5);
  EXPECT_DOUBLE_EQ(sound.Seconds(), 1.0);
}

TEST(ReceiverSoundTest, TheLevelMovesWithoutSteps) {
  ReceiverSound sound({.ToneHz = 800}, 500, [](double seconds) { return 500 * std::exp(-3 * seconds); });
  const auto left = LeftOf(sound, 44100);
  double largest = 0;
  for (std::size_t i = 2; i < left.size(); ++i)
    largest = std::max(largest, std::abs(left[i] - 2 * left[i - 1] + left[i - 2]));
  EXPECT_LT(largest, 16000 * std::pow(2 * std::numbers::pi * 800 / kRate, 2) * 1.02 + 2);
}

TEST(ReceiverSoundTest, ItDrifts) {
  ReceiverSound sound = Steady({.ToneHz = 800, .DriftHzPerSecond = 10});
  LeftOf(sound, 4 * 44100);
  EXPECT_GT(LineAt(LeftOf(sound, 4410), 840.5), 15500);
}

TEST(ReceiverSoundTest, NoiseLiesInItsBandAndIsAsStrongAsAsked) {
  ReceiverSound sound = Steady({.NoiseHz = std::pair(300.0, 2700.0), .SnrDb = 20}, 0);
  const auto left = LeftOf(sound, 20 * 44100);
  EXPECT_NEAR(20 * std::log10(Rms(left) / (16000 / std::numbers::sqrt2)), -20, 0.2);
  const auto density = [&](double fromHz, double toHz) {
    double sum = 0;
    for (int i = 0; i < 40; ++i) {
      const double hz = fromHz + (toHz - fromHz) * i / 40;
      sum += std::pow(LineAt(std::span(left).subspan(static_cast<std::size_t>(i) * 22050, 22050), hz), 2);
    }
    return 10 * std::log10(sum / 40);
  };
  const double within = density(400, 2500);
  EXPECT_LT(density(50, 150), within - 30);
  EXPECT_LT(density(5000, 8000), within - 30);
}

TEST(ReceiverSoundTest, TheSameSeedGivesTheSameNoise) {
  const auto noise = [](std::uint64_t seed) {
    ReceiverSound sound = Steady({.NoiseHz = std::pair(300.0, 2700.0), .Seed = seed});
    return LeftOf(sound, 4410);
  };
  EXPECT_EQ(noise(1), noise(1));
  EXPECT_NE(noise(1), noise(2));
}

TEST(ReceiverSoundTest, AgcMakesWeakAndStrongAlike) {
  const ReceiverSettings settings{.ToneHz = 800, .AgcSeconds = std::pair(0.005, 0.2)};
  ReceiverSound strong = Steady(settings, 500);
  ReceiverSound weak = Steady(settings, 5);
  LeftOf(strong, 88200);
  LeftOf(weak, 88200);
  EXPECT_NEAR(LineAt(LeftOf(weak, 44100), 800) / LineAt(LeftOf(strong, 44100), 800), 1.0, 0.01);
}

TEST(ReceiverSoundTest, AgcLetsTheNoiseRiseWhenTheToneFalls) {
  const ReceiverSettings settings{
      .ToneHz = 800, .NoiseHz = std::pair(300.0, 2700.0), .SnrDb = 40, .AgcSeconds = std::pair(0.005, 0.2)};
  const auto noise = [&](double level) {
    ReceiverSound sound = Steady(settings, level);
    LeftOf(sound, 88200);
    auto left = LeftOf(sound, 44100);
    const double tone = LineAt(left, 800) / std::numbers::sqrt2;
    const double all = Rms(left);
    return std::sqrt(all * all - tone * tone);
  };
  EXPECT_NEAR(20 * std::log10(noise(50) / noise(500)), 20, 2);
}

TEST(ReceiverSoundTest, AKeyedToneIsMorseCodeAtItsSpeed) {
  ReceiverSound sound = Steady({.ToneHz = 800, .WordsPerMinute = 12});
  const auto left = LeftOf(sound, 44100);
  // "V": three dots and a dash, 100 ms a dot.
  const auto heard = [&](double fromSeconds) {
    return LineAt(std::span(left).subspan(static_cast<std::size_t>(fromSeconds * kRate), 2205), 800) > 8000;
  };
  for (const double down : {0.02, 0.22, 0.42, 0.62, 0.75, 0.85}) EXPECT_TRUE(heard(down)) << down;
  for (const double up : {0.12, 0.32, 0.52, 0.92}) EXPECT_FALSE(heard(up)) << up;
}

TEST(ReceiverSoundTest, ASecondToneIsThere) {
  ReceiverSound sound = Steady({.ToneHz = 800, .SecondTone = std::pair(1500.0, -6.0206)}, 250);
  const auto left = LeftOf(sound, 44100);
  EXPECT_NEAR(LineAt(left, 800), 8000, 5);
  EXPECT_NEAR(LineAt(left, 1500), 4000, 5);
}

TEST(ReceiverSoundTest, ClippingAndOffsetAreTheSoundCards) {
  ReceiverSound clipped = Steady({.ToneHz = 800, .ClipDb = 6});
  const auto left = LeftOf(clipped, 44100);
  EXPECT_EQ(std::ranges::max(left), 32767);
  EXPECT_EQ(std::ranges::min(left), -32768);
  EXPECT_GT(std::ranges::count(left, 32767), 10000);
  ReceiverSound moved = Steady({.ToneHz = 800, .Offset = 3000});
  double sum = 0;
  for (const double sample : LeftOf(moved, 44100)) sum += sample;
  EXPECT_NEAR(sum / 44100, 3000, 1);
}

TEST(ReceiverSoundTest, TheRightChannelCarriesWhatIsAsked) {
  const auto right = [](RightChannel what) {
    ReceiverSound sound = Steady({.ToneHz = 800, .Right = what}, 100);
    std::vector<std::int16_t> samples(2 * 4410);
    sound.Fill(samples);
    std::vector<double> channel;
    for (std::size_t i = 1; i < samples.size(); i += 2) channel.push_back(samples[i]);
    return LineAt(channel, 800);
  };
  EXPECT_NEAR(right(RightChannel::Same), 3200, 20);
  EXPECT_EQ(right(RightChannel::Silent), 0);
  EXPECT_NEAR(right(RightChannel::Reference), 8000, 30) << "it does not turn";
}

TEST(ReceiverSoundTest, AFadingSourceFadesForBothAntennas) {
  ReceiverSound sound =
      Steady({.ToneHz = 800, .Fade = std::pair(6.0206, 2.0), .Right = RightChannel::Reference});
  std::vector<std::int16_t> samples(2 * 44100 * 2);
  sound.Fill(samples);
  const auto at = [&](std::size_t frame, std::size_t channel) {
    std::vector<double> part;
    for (std::size_t i = frame; i < frame + 2205; ++i) part.push_back(samples[2 * i + channel]);
    return LineAt(part, 800);
  };
  EXPECT_NEAR(at(44100 - 1100, 0) / at(0, 0), 0.5, 0.01);
  EXPECT_NEAR(at(44100 - 1100, 1) / at(0, 1), 0.5, 0.01);
}

TEST(ReceiverSoundTest, OneChannelAndAnotherRate) {
  ReceiverSound sound = Steady({.ToneHz = 800, .Mono = true, .SamplesPerSecond = 8000});
  const auto left = LeftOf(sound, 8000);
  EXPECT_EQ(left.size(), 8000U);
  EXPECT_NEAR(LineAt(left, 800, 8000), 16000, 5);
  EXPECT_DOUBLE_EQ(sound.Seconds(), 1.0);
}

}  // namespace
}  // namespace lobegraph
