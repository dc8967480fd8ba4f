#include "acquisition/tone/ToneParts.h"

#include <cmath>
#include <numbers>

#include "acquisition/spectrum/Segments.h"

namespace lobegraph {
namespace {

constexpr double kHannNoiseLines = 1.5;  ///< noise bandwidth of the Hann window in lines of its length

}  // namespace

ToneParts::ToneParts(std::size_t samples, double toneHz, double samplesPerSecond)
    : cosine_(HannWindow(samples)), sine_(cosine_) {
  for (std::size_t i = 0; i < samples; ++i) {
    weight_ += cosine_[i];
    const double phase = 2.0 * std::numbers::pi * toneHz * static_cast<double>(i) / samplesPerSecond;
    cosine_[i] *= static_cast<float>(std::cos(phase));
    sine_[i] *= static_cast<float>(std::sin(phase));
  }
  bandwidthHz_ = kHannNoiseLines * samplesPerSecond / static_cast<double>(samples);
}

double ToneParts::PowerOf(std::span<const float> part) const {
  double inPhase = 0.0;
  double quadrature = 0.0;
  for (std::size_t i = 0; i < part.size(); ++i) {
    inPhase += double{part[i]} * cosine_[i];
    quadrature += double{part[i]} * sine_[i];
  }
  return 2.0 * (inPhase * inPhase + quadrature * quadrature) / (weight_ * weight_);
}

}  // namespace lobegraph
