#include "acquisition/tone/ToneFinder.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "acquisition/tone/ToneLevel.h"

namespace lobegraph {
namespace {

/// The noise beside a line is taken from so many lobes to both sides.
constexpr double kBesideLobes = 8.0;
/// A line so far below a stronger one beside it is part of that one's skirt: the window's side lobes are 31
/// dB down.
constexpr double kSkirtDb = 25.0;
/// Mean square of an amplitude of half a sample step: what is quieter is rounding.
constexpr double kQuietestPower = 0.125;
/// Lines nearer than this share their lobes.
constexpr double kApartLobes = 2.0;

struct Line {
  double Hz = 0.0;
  double Top = 0.0;    ///< power of its highest line
  double Power = 0.0;  ///< of its whole lobe
};

bool IsPeak(const PowerSpectrum& spectrum, std::size_t line) {
  if (line == 0 || line + 1 >= spectrum.Power.size()) return false;
  return spectrum.Power[line] > spectrum.Power[line - 1] && spectrum.Power[line] >= spectrum.Power[line + 1];
}

/// The top of the parabola through the logarithms of a line and its neighbours.
double TopOf(const PowerSpectrum& spectrum, std::size_t line) {
  const double before = std::log(std::max(spectrum.Power[line - 1], 1e-30));
  const double at = std::log(std::max(spectrum.Power[line], 1e-30));
  const double after = std::log(std::max(spectrum.Power[line + 1], 1e-30));
  const double curvature = before - 2.0 * at + after;
  const double shift = curvature < 0.0 ? (before - after) / (2.0 * curvature) : 0.0;
  return (static_cast<double>(line) + std::clamp(shift, -0.5, 0.5)) * spectrum.StepHz;
}

double RatioOf(double db) { return std::pow(10.0, db / 10.0); }

bool IsSkirt(const PowerSpectrum& spectrum, const Line& line, const Band& beside) {
  const auto [first, end] = spectrum.LinesOf(beside);
  double strongest = 0.0;
  for (std::size_t at = first; at < end; ++at) strongest = std::max(strongest, spectrum.Power[at]);
  return line.Top < strongest / RatioOf(kSkirtDb);
}

bool StandsOut(const PowerSpectrum& spectrum, const Line& line) {
  const double reach = kBesideLobes * spectrum.MainLobeHz;
  const Band beside{line.Hz - reach, line.Hz + reach};
  const auto noise = NoiseDensity(spectrum, beside, line.Hz);
  if (line.Power < kQuietestPower || !noise || IsSkirt(spectrum, line, beside)) return false;
  const double besidePower = *noise * LobeAround(spectrum, line.Hz).WidthHz();
  return line.Power >= besidePower * RatioOf(kStandsOutDb);
}

/// The peaks of a band, strongest first.
std::vector<Line> PeaksOf(const PowerSpectrum& spectrum, const Band& band) {
  std::vector<Line> peaks;
  const auto [first, end] = spectrum.LinesOf({band.FromHz - spectrum.StepHz, band.ToHz + spectrum.StepHz});
  for (std::size_t line = first; line < end; ++line) {
    if (!IsPeak(spectrum, line)) continue;
    const double hz = TopOf(spectrum, line);
    if (band.Holds(hz)) peaks.push_back({hz, spectrum.Power[line], TonePower(spectrum, hz)});
  }
  std::ranges::sort(peaks, std::greater<>(), &Line::Top);
  return peaks;
}

/// The strongest other line that is of equal strength and no part of the first.
std::optional<Line> EqualOf(const PowerSpectrum& spectrum, const std::vector<Line>& peaks) {
  const Line& strongest = peaks.front();
  const double limit = strongest.Power / RatioOf(kEqualTonesDb);
  for (const Line& peak : peaks) {
    if (peak.Power < limit) continue;
    const bool apart = std::abs(peak.Hz - strongest.Hz) > kApartLobes * spectrum.MainLobeHz;
    if (apart && StandsOut(spectrum, peak)) return peak;
  }
  return std::nullopt;
}

}  // namespace

std::optional<double> LineIn(const PowerSpectrum& spectrum, const Band& band) {
  const std::vector<Line> peaks = PeaksOf(spectrum, band);
  if (peaks.empty() || !StandsOut(spectrum, peaks.front())) return std::nullopt;
  return peaks.front().Hz;
}

ToneSearch FindTone(const PowerSpectrum& spectrum, std::optional<double> lastHz) {
  const std::vector<Line> peaks = PeaksOf(spectrum, kToneRange);
  if (peaks.empty() || !StandsOut(spectrum, peaks.front())) return {};
  ToneSearch found{peaks.front().Hz, std::nullopt};
  if (const auto equal = EqualOf(spectrum, peaks)) found.OtherHz = equal->Hz;
  const bool otherIsNearer =
      found.OtherHz && lastHz && std::abs(*found.OtherHz - *lastHz) < std::abs(*found.Hz - *lastHz);
  if (otherIsNearer) std::swap(found.Hz, found.OtherHz);
  return found;
}

}  // namespace lobegraph
