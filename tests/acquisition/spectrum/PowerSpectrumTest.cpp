#include "acquisition/spectrum/PowerSpectrum.h"

#include <gtest/gtest.h>

#include "support/SoundSamples.h"

namespace lobegraph {
namespace {

constexpr double kRate = test::kSampleRate;

double Db(double ratio) { return 10.0 * std::log10(ratio); }

TEST(PowerSpectrumTest, TheMainLobeOfASineHoldsItsMeanSquare) {
  SpectrumMaker maker(kRate);
  for (const std::size_t samples : {1235U, 7350U, 147000U})
    for (const double hz : {203.0, 800.3, 1102.5, 3497.7}) {
      const PowerSpectrum spectrum = maker.Of(test::Sine(samples, hz, 1000.0));
      const double power = spectrum.PowerIn({hz - spectrum.MainLobeHz, hz + spectrum.MainLobeHz});
      EXPECT_NEAR(Db(power / 500'000.0), 0.0, 0.01) << samples << " samples, " << hz << " Hz";
    }
}

TEST(PowerSpectrumTest, NoiseHasItsMeanSquareInProportionToTheBand) {
  SpectrumMaker maker(kRate);
  const PowerSpectrum spectrum = maker.Of(test::WhiteNoise(20 * 44100, 300.0));
  EXPECT_NEAR(Db(spectrum.PowerIn({300.0, 2700.0}) / (90'000.0 * 2400.0 / 22050.0)), 0.0, 0.05);
}

TEST(PowerSpectrumTest, SilenceHasNoPower) {
  SpectrumMaker maker(kRate);
  EXPECT_EQ(maker.Of(std::vector<float>(7350, 0.0F)).PowerIn({0.0, 22050.0}), 0.0);
}

TEST(PowerSpectrumTest, AStretchOfOneSampleHasASpectrum) {
  SpectrumMaker maker(kRate);
  const PowerSpectrum spectrum = maker.Of(std::vector<float>(1, 5.0F));
  for (const double power : spectrum.Power) EXPECT_TRUE(std::isfinite(power));
}

TEST(PowerSpectrumTest, LinesOfABandLieWithinIt) {
  PowerSpectrum spectrum{.StepHz = 10.0, .Power = std::vector<double>(11, 1.0)};
  EXPECT_EQ(spectrum.LinesOf({20.0, 40.0}), (std::pair<std::size_t, std::size_t>(2, 5)));
  EXPECT_EQ(spectrum.LinesOf({21.0, 39.0}), (std::pair<std::size_t, std::size_t>(3, 4)));
  EXPECT_EQ(spectrum.LinesOf({22.0, 28.0}), (std::pair<std::size_t, std::size_t>(3, 3))) << "none";
  EXPECT_EQ(spectrum.LinesOf({-50.0, 1e9}), (std::pair<std::size_t, std::size_t>(0, 11)));
  EXPECT_EQ(spectrum.LinesOf({500.0, 400.0}).first, spectrum.LinesOf({500.0, 400.0}).second);
  EXPECT_EQ(spectrum.PowerIn({20.0, 40.0}), 3.0);
}

TEST(PowerSpectrumTest, ManyLengthsInTurnGiveWhatEachGivesAlone) {
  SpectrumMaker kept(kRate);
  for (std::size_t samples = 1200; samples < 1240; ++samples) {
    const std::vector<float> sound = test::Sine(samples, 800.0, 1000.0);
    SpectrumMaker fresh(kRate);
    EXPECT_EQ(kept.Of(sound).Power, fresh.Of(sound).Power);
  }
}

}  // namespace
}  // namespace lobegraph
