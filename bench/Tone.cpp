#include "bench/Tone.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace lobegraph {
namespace {

constexpr double kSampleStepsPerLevel = 32;
constexpr double kLargestSample = 32767;

}  // namespace

Tone::Tone(std::function<double(double)> level) : level_(std::move(level)) {}

void Tone::Fill(std::span<std::int16_t> interleaved) {
  for (std::size_t i = 0; i + 1 < interleaved.size(); i += kChannels)
    interleaved[i] = interleaved[i + 1] = NextSample();
}

std::int16_t Tone::NextSample() {
  const auto place = static_cast<int>(frame_ % kFramesPerPeriod);
  if (place == 0) amplitude_ = std::clamp(level_(Seconds()) * kSampleStepsPerLevel, 0.0, kLargestSample);
  ++frame_;
  const double wave = std::sin(2 * std::numbers::pi * place / kFramesPerPeriod);
  return static_cast<std::int16_t>(std::lround(amplitude_ * wave));
}

}  // namespace lobegraph
