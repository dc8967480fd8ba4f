#include "acquisition/tone/ReceiverBand.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace lobegraph {
namespace {

constexpr double kCellHz = 50.0;
constexpr double kFirstHz = 50.0;  ///< below it stand hum and the sound card's own offset
constexpr double kLastHz = 4000.0;
constexpr double kWithin = 0.1;  ///< 10 dB
constexpr double kNarrowestHz = 150.0;
/// Cells nearer to the tone hold its skirt as well.
constexpr double kBesideToneHz = 200.0;
/// Noise further below the tone than a receiver's ever is, per hertz (-100 dB), is the tone's own skirt;
/// noise near that of rounding to whole sample steps (1/12, spread over the spectrum) is none of a receiver.
constexpr double kSkirtDensity = 1e-10;
constexpr double kRoundingDensity = 10.0 / 12.0 / 22050.0;

using Densities = std::vector<std::optional<double>>;

Densities DensitiesOf(const PowerSpectrum& spectrum, std::optional<double> toneHz) {
  Densities cells;
  for (double hz = kFirstHz; hz + kCellHz <= kLastHz; hz += kCellHz) {
    const bool besideTone = toneHz && std::abs(hz + kCellHz / 2.0 - *toneHz) < kBesideToneHz;
    cells.push_back(besideTone ? std::nullopt : NoiseDensity(spectrum, {hz, hz + kCellHz}, std::nullopt));
  }
  return cells;
}

/// What the loudest quarter of the cells has at least; in a narrow filter fewer cells are loud.
double LoudDensity(const Densities& cells, double lowest) {
  std::vector<double> known;
  for (const std::optional<double>& cell : cells)
    if (cell) known.push_back(*cell);
  if (known.empty()) return 0.0;
  std::ranges::sort(known);
  const double quarter = known[known.size() * 3 / 4];
  return quarter >= lowest ? quarter : known.back();
}

/// The longest run of cells at or above a limit; a cell of which nothing is known breaks no run.
Band LongestRun(const Densities& cells, double limit) {
  Band longest;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= cells.size(); ++i) {
    if (i < cells.size() && cells[i].value_or(limit) >= limit) continue;
    const Band run{kFirstHz + kCellHz * static_cast<double>(begin),
                   kFirstHz + kCellHz * static_cast<double>(i)};
    if (run.WidthHz() > longest.WidthHz()) longest = run;
    begin = i + 1;
  }
  return longest;
}

}  // namespace

Band FindReceiverBand(const PowerSpectrum& spectrum, std::optional<double> toneHz) {
  const Densities cells = DensitiesOf(spectrum, toneHz);
  const double skirt = toneHz ? kSkirtDensity * TonePower(spectrum, *toneHz) : 0.0;
  const double lowest = std::max(kRoundingDensity, skirt);
  const double loud = LoudDensity(cells, lowest);
  if (loud < lowest) return kUsualReceiverBand;
  const Band band = LongestRun(cells, kWithin * loud);
  return band.WidthHz() >= kNarrowestHz ? band : kUsualReceiverBand;
}

}  // namespace lobegraph
