#include "bench/Tone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace lobegraph {
namespace {

std::vector<std::int16_t> Play(Tone& tone, std::size_t frames) {
  std::vector<std::int16_t> samples(frames * 2);
  tone.Fill(samples);
  return samples;
}

int Peak(std::span<const std::int16_t> samples) {
  int peak = 0;
  for (const std::int16_t sample : samples) peak = std::max(peak, std::abs(sample));
  return peak;
}

TEST(ToneTest, EveryFiveMillisecondsThePeakIsExactly32TimesTheLevel) {
  for (const double level : {0.0, 0.5, 1.0, 333.3, 900.0, 1000.0, 1023.0}) {
    Tone tone([level](double) { return level; });
    const auto samples = Play(tone, 441 * 20);
    for (std::size_t block = 0; block < 20; ++block)
      EXPECT_EQ(Peak(std::span(samples).subspan(block * 882, 441)), std::lround(level * 32)) << level;
  }
}

TEST(ToneTest, BothChannelsAreTheSame) {
  Tone tone([](double) { return 500; });
  const auto samples = Play(tone, 100);
  for (std::size_t i = 0; i < samples.size(); i += 2) EXPECT_EQ(samples[i], samples[i + 1]);
}

TEST(ToneTest, AnyChunkingGivesTheSameAudio) {
  Tone whole([](double s) { return 1000 * s; }), cut([](double s) { return 1000 * s; });
  const auto expected = Play(whole, 1000);
  std::vector<std::int16_t> joined;
  for (const std::size_t frames : {1U, 39U, 40U, 41U, 500U, 379U}) {
    const auto part = Play(cut, frames);
    joined.insert(joined.end(), part.begin(), part.end());
  }
  EXPECT_EQ(joined, expected);
}

TEST(ToneTest, TheLevelChangesOncePerPeriodWhereTheWaveCrossesZero) {
  int asked = 0;
  Tone tone([&asked](double) { return ++asked * 100; });
  const auto samples = Play(tone, 80);
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(samples[80], 0);
  EXPECT_EQ(Peak(std::span(samples).first(80)), 3200);
  EXPECT_EQ(Peak(std::span(samples).last(80)), 6400);
}

TEST(ToneTest, TimeCountsTheSamplesMade) {
  std::vector<double> asked;
  Tone tone([&asked](double seconds) { return asked.push_back(seconds), 0.0; });
  Play(tone, 44100);
  EXPECT_DOUBLE_EQ(tone.Seconds(), 1);
  EXPECT_EQ(asked.front(), 0);
  EXPECT_DOUBLE_EQ(asked[1], 40.0 / 44100);
}

TEST(ToneTest, ALevelBeyondTheSamplesIsHeldAtTheirLimit) {
  Tone tone([](double) { return 5000; });
  EXPECT_EQ(Peak(Play(tone, 400)), 32767);
}

}  // namespace
}  // namespace lobegraph
