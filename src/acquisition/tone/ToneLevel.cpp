#include "acquisition/tone/ToneLevel.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace lobegraph {
namespace {

/// What of a tone's power lies within the main lobe of the Hann window.
constexpr double kShareOfLobe = 0.99949;
/// Lines so many lobes from the tone hold noise only.
constexpr double kLobesLeftOut = 2.0;
constexpr std::size_t kFewestLines = 12;

double MedianOf(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

Band LobeAround(const PowerSpectrum& spectrum, double toneHz) {
  return {toneHz - spectrum.MainLobeHz, toneHz + spectrum.MainLobeHz};
}

double TonePower(const PowerSpectrum& spectrum, double toneHz) {
  return spectrum.PowerIn(LobeAround(spectrum, toneHz)) / kShareOfLobe;
}

std::optional<double> NoiseDensity(const PowerSpectrum& spectrum, const Band& band,
                                   std::optional<double> toneHz) {
  const double apart = kLobesLeftOut * spectrum.MainLobeHz;
  const auto [first, end] = spectrum.LinesOf(band);
  std::vector<double> lines;
  lines.reserve(end - first);
  for (std::size_t line = first; line < end; ++line)
    if (!toneHz || std::abs(spectrum.HertzOf(line) - *toneHz) > apart) lines.push_back(spectrum.Power[line]);
  if (lines.size() < kFewestLines) return std::nullopt;
  return MedianOf(lines) / MedianShare(spectrum.Looks) / spectrum.StepHz;
}

double MedianShare(double looks) { return std::pow(1.0 - 1.0 / (9.0 * looks), 3.0); }

}  // namespace lobegraph
