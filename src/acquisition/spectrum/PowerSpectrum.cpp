#include "acquisition/spectrum/PowerSpectrum.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

namespace lobegraph {
namespace {

/// Zeros behind the samples, so that the lines stand closer than a window resolves.
constexpr double kPadding = 4.0 / 3.0;
constexpr std::size_t kSmallestTransform = 64;
/// Lengths differ by a sample from reading to reading; more of them than this are not kept.
constexpr std::size_t kMostLooks = 16;

}  // namespace

std::pair<std::size_t, std::size_t> PowerSpectrum::LinesOf(const Band& band) const {
  const auto line = [this](double hz) {
    return static_cast<std::size_t>(std::clamp(hz, 0.0, static_cast<double>(Power.size())));
  };
  const std::size_t first = line(std::ceil(band.FromHz / StepHz));
  return {first, std::max(first, line(std::floor(band.ToHz / StepHz) + 1.0))};
}

double PowerSpectrum::PowerIn(const Band& band) const {
  const auto [first, end] = LinesOf(band);
  return std::accumulate(Power.begin() + static_cast<std::ptrdiff_t>(first),
                         Power.begin() + static_cast<std::ptrdiff_t>(end), 0.0);
}

PowerSpectrum SpectrumMaker::Of(std::span<const float> samples) {
  const Look& look = LookAt(samples.size());
  RealTransform& transform = TransformFor(look.Parts.Length);
  PowerSpectrum spectrum;
  spectrum.StepHz = rate_ / static_cast<double>(transform.Size());
  spectrum.MainLobeHz = MainLobeHz(look.Parts.Length, rate_);
  spectrum.Looks = look.Looks;
  spectrum.Power.assign(transform.Lines(), 0.0);
  windowed_.resize(look.Parts.Length);
  for (const std::size_t start : look.Parts.Starts) {
    std::ranges::transform(samples.subspan(start, look.Parts.Length), look.Window, windowed_.begin(),
                           std::multiplies<>());
    transform.AddPower(windowed_, spectrum.Power);
  }
  // Half of a tone's power lies at negative frequencies.
  const double scale = 2.0 / (static_cast<double>(transform.Size()) * look.WindowEnergy *
                              static_cast<double>(look.Parts.Starts.size()));
  for (double& power : spectrum.Power) power *= scale;
  return spectrum;
}

const SpectrumMaker::Look& SpectrumMaker::LookAt(std::size_t samples) {
  if (looks_.size() >= kMostLooks && !looks_.contains(samples)) looks_.clear();
  const auto [entry, isNew] = looks_.try_emplace(samples);
  Look& look = entry->second;
  if (!isNew) return look;
  look.Parts = SegmentsOf(samples, rate_);
  look.Looks = IndependentLooks(look.Parts);
  look.Window = HannWindow(look.Parts.Length);
  for (const float value : look.Window) look.WindowEnergy += double{value} * value;
  return look;
}

RealTransform& SpectrumMaker::TransformFor(std::size_t length) {
  const auto padded = static_cast<std::size_t>(std::ceil(kPadding * static_cast<double>(length)));
  const std::size_t size = std::bit_ceil(std::max(padded, kSmallestTransform));
  return transforms_.try_emplace(size, size).first->second;
}

}  // namespace lobegraph
