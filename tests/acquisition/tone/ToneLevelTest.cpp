#include "acquisition/tone/ToneLevel.h"

#include <gtest/gtest.h>

#include "acquisition/tone/ReceiverBand.h"
#include "support/SoundSamples.h"

namespace lobegraph {
namespace {

using test::BandNoise;
using test::Mixed;
using test::Sine;

constexpr double kRate = test::kSampleRate;

double Db(double ratio) { return 10.0 * std::log10(ratio); }
PowerSpectrum SpectrumOf(const std::vector<float>& samples) { return SpectrumMaker(kRate).Of(samples); }

TEST(ToneLevelTest, IsTheMeanSquareOfTheToneWithinAThousandthOfADecibel) {
  for (const double hz : {250.0, 800.0, 801.3, 3000.0})
    EXPECT_NEAR(Db(TonePower(SpectrumOf(Sine(7350, hz, 3000.0)), hz) / 4.5e6), 0.0, 0.003) << hz;
}

TEST(ToneLevelTest, AnOffsetChangesNothing) {
  std::vector<float> sound = Sine(7350, 800.0, 1000.0);
  for (float& sample : sound) sample += 5000.0F;
  EXPECT_NEAR(Db(TonePower(SpectrumOf(sound), 800.0) / 5e5), 0.0, 0.003);
}

TEST(ToneLevelTest, NoiseOutsideItsLobeHardlyCounts) {
  const auto sound = Mixed(Sine(7350, 800.0, 1000.0), BandNoise(7350, 70.7));
  EXPECT_NEAR(Db(TonePower(SpectrumOf(sound), 800.0) / 5e5), 0.0, 0.2) << "20 dB in the receiver's band";
}

TEST(NoiseDensityTest, IsTheNoisesMeanSquarePerHertz) {
  for (const std::size_t samples : {1235U, 7350U, 44100U}) {
    double sum = 0.0;
    for (std::uint64_t seed = 1; seed <= 40; ++seed)
      sum += *NoiseDensity(SpectrumOf(BandNoise(samples, 300.0, seed)), kUsualReceiverBand, 800.0);
    EXPECT_NEAR(Db(sum / 40.0 * 2400.0 / 9e4), 0.0, 0.3) << samples;
  }
}

TEST(NoiseDensityTest, TheToneAndOtherTonesDoNotCount) {
  const auto noise = BandNoise(44100, 30.0);
  const double alone = *NoiseDensity(SpectrumOf(noise), kUsualReceiverBand, 800.0);
  const auto sound = Mixed(Mixed(noise, Sine(44100, 800.0, 9000.0)), Sine(44100, 1900.0, 9000.0));
  EXPECT_NEAR(Db(*NoiseDensity(SpectrumOf(sound), kUsualReceiverBand, 800.0) / alone), 0.0, 0.5);
}

TEST(NoiseDensityTest, WithoutLinesThereIsNone) {
  const PowerSpectrum spectrum = SpectrumOf(BandNoise(1235, 30.0));
  EXPECT_FALSE(NoiseDensity(spectrum, {780.0, 820.0}, 800.0));
  EXPECT_FALSE(NoiseDensity(spectrum, {900.0, 800.0}, std::nullopt));
}

TEST(NoiseDensityTest, TheMedianOfNoiseIsBelowItsMean) {
  EXPECT_NEAR(MedianShare(1.0), std::numbers::ln2, 0.01);
  EXPECT_NEAR(MedianShare(100.0), 1.0, 0.01);
}

TEST(ReceiverBandTest, IsWhereTheNoiseIs) {
  for (const Band& band : {Band{300.0, 2700.0}, Band{400.0, 900.0}, Band{100.0, 3600.0}}) {
    const auto sound = Mixed(test::FilteredNoise(33075, band.FromHz, band.ToHz), Sine(33075, 700.0, 3000.0));
    const Band found = FindReceiverBand(SpectrumOf(sound), 700.0);
    EXPECT_NEAR(found.FromHz, band.FromHz, 50.0);
    EXPECT_NEAR(found.ToHz, band.ToHz, 50.0);
  }
}

TEST(ReceiverBandTest, WithoutNoiseItIsTheUsualOne) {
  EXPECT_EQ(FindReceiverBand(SpectrumOf(std::vector<float>(33075, 0.0F)), std::nullopt), kUsualReceiverBand);
  std::vector<float> rounded = Sine(33075, 800.0, 20000.0);
  for (float& sample : rounded) sample = std::round(sample);
  EXPECT_EQ(FindReceiverBand(SpectrumOf(rounded), 800.0), kUsualReceiverBand)
      << "a tone alone, in whole steps";
}

TEST(ReceiverBandTest, AHumpTooNarrowForAReceiverIsNone) {
  EXPECT_EQ(FindReceiverBand(SpectrumOf(test::FilteredNoise(33075, 700.0, 760.0)), std::nullopt),
            kUsualReceiverBand);
}

TEST(ReceiverBandTest, AShortStretchHasABandToo) {
  const Band band = FindReceiverBand(SpectrumOf(BandNoise(1235, 100.0)), 800.0);
  EXPECT_GT(band.WidthHz(), 150.0);
}

}  // namespace
}  // namespace lobegraph
