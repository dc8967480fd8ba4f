#include "acquisition/tone/Keying.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "support/SoundSamples.h"

namespace lobegraph {
namespace {

constexpr double kRate = test::kSampleRate;
constexpr double kHz = 800.0;

/// Key over time: 'x' is a dot's length down, '.' one up.
std::vector<float> Keyed(std::string_view key, double wordsPerMinute, double amplitude,
                         double noiseRms = 0.0) {
  const auto dot = static_cast<std::size_t>(1.2 / wordsPerMinute * kRate);
  std::vector<float> sound = test::Sine(dot * key.size(), kHz, amplitude);
  for (std::size_t i = 0; i < sound.size(); ++i)
    if (key[i / dot] == '.') sound[i] = 0.0F;
  return noiseRms > 0.0 ? test::Mixed(sound, test::BandNoise(sound.size(), noiseRms)) : sound;
}

double DensityOf(double noiseRms) { return noiseRms * noiseRms / 2400.0; }

/// All samples of parts that are down, from the begin of the sound.
std::vector<KeyDown> Heard(Keying& keying, std::span<const float> sound, std::size_t reading,
                           double noiseRms) {
  std::vector<KeyDown> all;
  for (std::size_t at = 0; at + reading <= sound.size(); at += reading)
    for (KeyDown part : keying.PartsOf(sound.subspan(at, reading), kHz, DensityOf(noiseRms))) {
      part.First += at;
      all.push_back(part);
    }
  return all;
}

constexpr std::string_view kParis = "x.xxx.xxx.x...x.xxx...x.xxx.x...x.x...x.x.x.......";

TEST(KeyingTest, PartsLieWithinTheStrokes) {
  constexpr double kSpeed = 12.0;
  const auto dot = static_cast<std::size_t>(1.2 / kSpeed * kRate);
  const auto sound = Keyed(kParis, kSpeed, 1000.0, 30.0);
  Keying keying(kRate);
  const auto parts = Heard(keying, sound, 7350, 30.0);
  EXPECT_GT(parts.size(), 10U);
  for (const KeyDown& part : parts)
    for (std::size_t at = part.First; at < part.First + part.Count; ++at)
      ASSERT_EQ(kParis[at / dot], 'x') << "sample " << at << " of dot " << at / dot;
}

TEST(KeyingTest, MostOfTheStrokesIsCounted) {
  const auto sound = Keyed(kParis, 12.0, 1000.0, 30.0);
  Keying keying(kRate);
  std::size_t counted = 0;
  for (const KeyDown& part : Heard(keying, sound, 7350, 30.0)) counted += part.Count;
  const double down = static_cast<double>(std::ranges::count(kParis, 'x')) * 0.1 * kRate;
  EXPECT_GT(static_cast<double>(counted), 0.6 * down);
}

TEST(KeyingTest, ASteadyToneIsDownAllTheTime) {
  Keying keying(kRate);
  const auto sound = test::Sine(7350 * 3, kHz, 1000.0);
  Heard(keying, std::span(sound).first(7350), 7350, 10.0);
  const auto parts = keying.PartsOf(std::span(sound).subspan(7350, 7350), kHz, DensityOf(10.0));
  ASSERT_EQ(parts.size(), 1U);
  EXPECT_EQ(parts[0].First, 0U);
  EXPECT_GT(parts[0].Count, 6400U);
}

TEST(KeyingTest, NoiseAndSilenceHaveNoKeyDown) {
  Keying keying(kRate);
  for (std::uint64_t seed = 1; seed <= 300; ++seed)
    EXPECT_TRUE(keying.PartsOf(test::BandNoise(7350, 100.0, seed), kHz, DensityOf(100.0)).empty()) << seed;
  EXPECT_TRUE(keying.PartsOf(std::vector<float>(7350, 0.0F), kHz, 0.0).empty());
}

TEST(KeyingTest, TheLastMomentOfAStrokeIsNoReading) {
  const auto sound = test::Sine(7350 * 2, kHz, 1000.0);
  std::vector<float> cut = sound;
  std::fill(cut.begin() + 7350 + 300, cut.end(), 0.0F);
  Keying keying(kRate);
  keying.PartsOf(std::span(cut).first(7350), kHz, 0.0);
  EXPECT_TRUE(keying.PartsOf(std::span(cut).subspan(7350), kHz, 0.0).empty()) << "7 ms of tone";
}

TEST(KeyingTest, AReadingOf28MillisecondsWorks) {
  Keying keying(kRate);
  const auto parts = Heard(keying, Keyed(kParis, 12.0, 1000.0, 10.0), 1235, 10.0);
  EXPECT_GT(parts.size(), 20U);
}

TEST(KeyingTest, ReadingsTooShortForAPartHaveNone) {
  Keying keying(kRate);
  EXPECT_TRUE(keying.PartsOf({}, kHz, 0.0).empty());
  EXPECT_TRUE(keying.PartsOf(test::Sine(100, kHz, 1000.0), kHz, 0.0).empty());
}

TEST(KeyingTest, TellsTheSpeed) {
  for (const double speed : {8.0, 12.0, 18.0}) {
    Keying keying(kRate);
    EXPECT_FALSE(keying.WordsPerMinute());
    const auto word = Keyed(kParis, speed, 1000.0, 20.0);
    Heard(keying, word, 7350, 20.0);
    Heard(keying, word, 7350, 20.0);
    ASSERT_TRUE(keying.WordsPerMinute());
    EXPECT_NEAR(*keying.WordsPerMinute(), speed, 0.2 * speed);
  }
}

TEST(KeyingTest, TheRotatorMustBeAsSlowAsTheKey) {
  EXPECT_DOUBLE_EQ(ShortestKeyedTurn(12.0), 60.0);
  EXPECT_DOUBLE_EQ(ShortestKeyedTurn(6.0), 120.0);
}

}  // namespace
}  // namespace lobegraph
