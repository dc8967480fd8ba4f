#include "processing/compare/FigureSpread.h"

#include <array>
#include <cmath>

namespace lobegraph {
namespace {

constexpr double kTurnDeg = 360.0;

struct FigureRow {
  std::string_view Key;
  std::optional<double> (*Of)(const CutFigures& figures);
  bool IsBearing = false;
};

constexpr auto kRows = std::to_array<FigureRow>({
    {"hpbw", [](const CutFigures& f) { return f.Hpbw; }},
    {"hpbw10", [](const CutFigures& f) { return f.Hpbw10; }},
    {"fnbw", [](const CutFigures& f) { return f.Fnbw; }},
    {"peakBearing", [](const CutFigures& f) { return f.PeakBearing; }, true},
    {"beamCentre", [](const CutFigures& f) { return f.BeamCentre; }, true},
    {"squint", [](const CutFigures& f) { return f.Squint; }},
    {"frontToBack", [](const CutFigures& f) { return f.FrontToBack; }},
    {"frontToRear", [](const CutFigures& f) { return f.FrontToRear; }},
    {"frontToRearSector", [](const CutFigures& f) { return f.FrontToRearSector; }},
    {"frontToSide", [](const CutFigures& f) { return f.FrontToSide; }},
    {"sideLobeLevel", [](const CutFigures& f) { return f.SideLobeLevel; }},
    {"sideLobeAngle", [](const CutFigures& f) { return f.SideLobeAngle; }, true},
    {"ripple", [](const CutFigures& f) { return f.Ripple; }},
    {"closure", [](const CutFigures& f) { return f.Closure; }},
    {"kraus", [](const CutFigures& f) { return f.Directivity.Kraus; }},
    {"taiPereira", [](const CutFigures& f) { return f.Directivity.TaiPereira; }},
    {"integrated", [](const CutFigures& f) { return f.Directivity.Integrated; }},
});

/// The same bearing within half a turn of another.
double Near(double bearing, double to) { return to + std::remainder(bearing - to, kTurnDeg); }

double InTurn(double bearing) {
  const double rest = std::fmod(bearing, kTurnDeg);
  return rest < 0.0 ? rest + kTurnDeg : rest;
}

FigureSpread SpreadOf(const FigureRow& row, const std::vector<double>& values) {
  FigureSpread spread{row.Key, static_cast<int>(values.size()), std::nullopt, std::nullopt};
  if (values.empty()) return spread;
  const auto count = static_cast<double>(values.size());
  double mean = 0.0;
  for (const double value : values) mean += value / count;
  spread.Mean = row.IsBearing ? InTurn(mean) : mean;
  if (values.size() < 2) return spread;
  double squares = 0.0;
  for (const double value : values) squares += (value - mean) * (value - mean);
  spread.Deviation = std::sqrt(squares / (count - 1.0));
  return spread;
}

}  // namespace

std::vector<FigureSpread> SpreadsOf(std::span<const CutFigures> turns) {
  std::vector<FigureSpread> spreads;
  for (const FigureRow& row : kRows) {
    std::vector<double> values;
    for (const CutFigures& turn : turns)
      if (const auto value = row.Of(turn))
        values.push_back(row.IsBearing && !values.empty() ? Near(*value, values.front()) : *value);
    spreads.push_back(SpreadOf(row, values));
  }
  return spreads;
}

}  // namespace lobegraph
