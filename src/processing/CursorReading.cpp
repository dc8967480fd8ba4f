#include "processing/CursorReading.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr double kFullTurnDeg = 360.0;

int CountOf(const PatternCut& cut) { return static_cast<int>(cut.LevelDb.size()); }

CursorReading Reading(const ReadingsRecord& record, const PatternCut& cut, int index) {
  return {cut.BearingOf(index), cut.LevelDb[static_cast<std::size_t>(index)], record.TrimFront + index + 1,
          record.NumReadings + 1};
}

/// Around a whole turn; none beyond an end.
std::optional<int> Inside(const PatternCut& cut, long index) {
  const long count = CountOf(cut);
  if (cut.FullTurn) return static_cast<int>((index % count + count) % count);
  if (index < 0 || index >= count) return std::nullopt;
  return static_cast<int>(index);
}

}  // namespace

std::optional<CursorReading> ReadingAt(const ReadingsRecord& record, double bearingDeg) {
  const auto cut = CutOf(record);
  if (!cut || cut->LevelDb.empty()) return std::nullopt;
  const double fromStart = std::remainder(bearingDeg - cut->StartDeg, kFullTurnDeg);
  // A half turn may begin just before the bearing that it starts with.
  const bool before = fromStart < -cut->StepDeg / 2.0;
  const auto index =
      Inside(*cut, std::lround((before ? fromStart + kFullTurnDeg : fromStart) / cut->StepDeg));
  if (!index) return std::nullopt;
  return Reading(record, *cut, *index);
}

std::optional<CursorReading> ReadingBeside(const ReadingsRecord& record, int number, int steps) {
  const auto cut = CutOf(record);
  if (!cut || cut->LevelDb.empty()) return std::nullopt;
  const auto strongest = std::max_element(cut->LevelDb.begin(), cut->LevelDb.end()) - cut->LevelDb.begin();
  const long from = number - 1 - record.TrimFront;
  if (number <= 0 || from < 0 || from >= CountOf(*cut))
    return Reading(record, *cut, static_cast<int>(strongest));
  const auto index = Inside(*cut, from + steps);
  return Reading(record, *cut, index.value_or(static_cast<int>(from)));
}

std::string CursorText(const CursorReading& reading) {
  const auto tenths = [](double value) { return std::round(value * 10.0) / 10.0 + 0.0; };  // and never "-0.0"
  const double bearing = std::fmod(tenths(reading.BearingDeg), kFullTurnDeg);
  return "Bearing " + FixedText(bearing, bearing == std::floor(bearing) ? 0 : 1) + ": " +
         FixedText(tenths(reading.LevelDb), 1) + " dB, reading " + std::to_string(reading.Number) + " of " +
         std::to_string(reading.Of) + ".";
}

}  // namespace lobegraph
