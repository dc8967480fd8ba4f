#include "acquisition/tone/ToneFinder.h"

#include <gtest/gtest.h>

#include "support/SoundSamples.h"

namespace lobegraph {
namespace {

using test::BandNoise;
using test::Mixed;
using test::Sine;

constexpr double kRate = test::kSampleRate;
constexpr std::size_t kHalfSecond = 22050;

PowerSpectrum SpectrumOf(const std::vector<float>& samples) { return SpectrumMaker(kRate).Of(samples); }

TEST(ToneFinderTest, FindsALineToAFractionOfAHertz) {
  for (const double hz : {203.0, 437.21, 800.3, 1102.5, 2999.9, 3497.0}) {
    const ToneSearch found = FindTone(SpectrumOf(Sine(kHalfSecond, hz, 1000.0)), std::nullopt);
    ASSERT_TRUE(found.Hz) << hz;
    EXPECT_NEAR(*found.Hz, hz, 0.1);
    EXPECT_FALSE(found.OtherHz);
  }
}

TEST(ToneFinderTest, OutsideItsRangeNothingIsFound) {
  for (const double hz : {150.0, 196.0, 3504.0, 5000.0})
    EXPECT_FALSE(FindTone(SpectrumOf(Sine(kHalfSecond, hz, 1000.0)), std::nullopt).Hz) << hz;
}

TEST(ToneFinderTest, SilenceAndAnOffsetHaveNoTone) {
  EXPECT_FALSE(FindTone(SpectrumOf(std::vector<float>(kHalfSecond, 0.0F)), std::nullopt).Hz);
  EXPECT_FALSE(FindTone(SpectrumOf(std::vector<float>(kHalfSecond, 8000.0F)), std::nullopt).Hz);
}

TEST(ToneFinderTest, PureNoiseHasNoTone) {
  for (std::uint64_t seed = 1; seed <= 200; ++seed)
    EXPECT_FALSE(FindTone(SpectrumOf(BandNoise(kHalfSecond, 1000.0, seed)), std::nullopt).Hz) << seed;
}

TEST(ToneFinderTest, FindsAToneThatIsWeakerThanTheNoise) {
  int found = 0;
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    const auto sound = Mixed(BandNoise(kHalfSecond, 1000.0, seed), Sine(kHalfSecond, 800.0, 1000.0 * 0.6));
    const auto tone = FindTone(SpectrumOf(sound), std::nullopt);
    found += tone.Hz && std::abs(*tone.Hz - 800.0) < 3.0;
  }
  EXPECT_GE(found, 49) << "7 dB below the noise";
}

TEST(ToneFinderTest, TheStrongestOfSeveralIsTheTone) {
  const auto sound = Mixed(Sine(kHalfSecond, 600.0, 500.0), Sine(kHalfSecond, 1500.0, 1000.0));
  const ToneSearch found = FindTone(SpectrumOf(sound), 600.0);
  EXPECT_NEAR(*found.Hz, 1500.0, 0.1) << "6 dB stronger: the last one has no say";
  EXPECT_FALSE(found.OtherHz);
}

TEST(ToneFinderTest, OfTwoOfEqualStrengthTheOneNearerToTheLastIsKeptAndTheOtherIsNamed) {
  const auto sound = Mixed(Sine(kHalfSecond, 600.0, 900.0), Sine(kHalfSecond, 1500.0, 1000.0));
  const PowerSpectrum spectrum = SpectrumOf(sound);
  const ToneSearch nearLow = FindTone(spectrum, 640.0);
  EXPECT_NEAR(*nearLow.Hz, 600.0, 0.1);
  EXPECT_NEAR(*nearLow.OtherHz, 1500.0, 0.1);
  const ToneSearch nearHigh = FindTone(spectrum, 1300.0);
  EXPECT_NEAR(*nearHigh.Hz, 1500.0, 0.1);
  EXPECT_NEAR(*nearHigh.OtherHz, 600.0, 0.1);
  EXPECT_NEAR(*FindTone(spectrum, std::nullopt).Hz, 1500.0, 0.1) << "no last one: the stronger";
}

TEST(ToneFinderTest, ANarrowFilterFullOfNoiseIsNoTone) {
  const auto sound = test::FilteredNoise(kHalfSecond, 650.0, 750.0);
  EXPECT_FALSE(FindTone(SpectrumOf(sound), std::nullopt).Hz);
}

TEST(ToneFinderTest, ALineIsFoundWithinItsBandOnly) {
  const PowerSpectrum spectrum = SpectrumOf(Sine(kHalfSecond, 800.0, 1000.0));
  EXPECT_TRUE(LineIn(spectrum, {780.0, 820.0}));
  EXPECT_FALSE(LineIn(spectrum, {803.0, 900.0})) << "its skirt is no line";
  EXPECT_FALSE(LineIn(spectrum, {0.0, 0.0}));
}

}  // namespace
}  // namespace lobegraph
