#include "bench/receiver/BandNoise.h"

#include <cmath>
#include <numbers>

namespace lobegraph {
namespace {

constexpr int kSections = 4;
constexpr int kImpulseSamples = 100'000;

}  // namespace

BandNoise::BandNoise(double fromHz, double toHz, double rms, double samplesPerSecond, std::uint64_t seed)
    : random_(seed) {
  AddSections(Kind::HighPass, fromHz, samplesPerSecond);
  AddSections(Kind::LowPass, toHz, samplesPerSecond);
  scale_ = rms / GainOfNoise();
}

/// Second-order sections by the bilinear transform. Source: R. Bristow-Johnson, "Audio EQ cookbook".
void BandNoise::AddSections(Kind kind, double hz, double samplesPerSecond) {
  const double turn = 2.0 * std::numbers::pi * hz / samplesPerSecond;
  for (int k = 0; k < kSections; ++k) {
    const double quality = 0.5 / std::cos(std::numbers::pi * (2.0 * k + 1.0) / (4.0 * kSections));
    const double alpha = std::sin(turn) / (2.0 * quality);
    const double side = kind == Kind::LowPass ? 1.0 - std::cos(turn) : 1.0 + std::cos(turn);
    const double middle = kind == Kind::LowPass ? side : -side;
    const double a0 = 1.0 + alpha;
    sections_.push_back(
        {side / 2.0 / a0, middle / a0, side / 2.0 / a0, -2.0 * std::cos(turn) / a0, (1.0 - alpha) / a0});
  }
}

double BandNoise::Section::Pass(double in) {
  const double out = B0 * in + Z1;
  Z1 = B1 * in - A1 * out + Z2;
  Z2 = B2 * in - A2 * out;
  return out;
}

double BandNoise::Filtered(double in) {
  for (Section& section : sections_) in = section.Pass(in);
  return in;
}

/// Root of the energy of the filter's answer to one sample. Leaves the filter at rest.
double BandNoise::GainOfNoise() {
  double energy = 0.0;
  for (int i = 0; i < kImpulseSamples; ++i) {
    const double out = Filtered(i == 0 ? 1.0 : 0.0);
    energy += out * out;
  }
  for (Section& section : sections_) section.Z1 = section.Z2 = 0.0;
  return std::sqrt(energy);
}

double BandNoise::Next() { return scale_ * Filtered(normal_(random_)); }

}  // namespace lobegraph
