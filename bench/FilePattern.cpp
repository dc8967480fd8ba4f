#include "bench/FilePattern.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "data/formats/PatternFile.h"

namespace lobegraph {
namespace {

constexpr double kTurnDeg = 360;

/// Whole turns taken away: 0 to below 360.
double WithinTurn(double bearingDeg) {
  const double rest = std::fmod(bearingDeg, kTurnDeg);
  return rest < 0 ? rest + kTurnDeg : rest;
}

}  // namespace

VoltagePattern PatternOf(const ReadingsRecord& record) {
  const auto count = std::min<std::ptrdiff_t>(record.NumReadings + 1, ReadingArray::kSize);
  if (count < 1) throw RunTimeError(fault::kInvalidProcedureCall, "the pattern has no readings");
  std::vector<double> levels(record.Readings.begin(), record.Readings.begin() + count);
  const double strongest = std::ranges::max(levels);
  if (!(strongest > 0))
    throw RunTimeError(fault::kInvalidProcedureCall, "the pattern has no reading above 0");
  for (double& level : levels) level = std::max(level, 0.0) / strongest;
  return [levels](double bearingDeg) {
    const double place = WithinTurn(bearingDeg) / kTurnDeg * static_cast<double>(levels.size());
    return levels[std::min(static_cast<std::size_t>(place), levels.size() - 1)];
  };
}

VoltagePattern PatternFromFile(FileAccess& files, const std::string& path) {
  ReadingsRecord record;
  const LoadOutcome outcome = LoadPatternFile(files, path, {}, record);
  if (outcome.Error) throw RunTimeError(*outcome.Error);
  return PatternOf(record);
}

}  // namespace lobegraph
