#include "processing/Transforms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "processing/PlotRange.h"

namespace lobegraph {
namespace {

/// Difference of each plotted reading from its predecessor and its successor, both wrapping round the plotted
/// set.
struct SpikeDiffs {
  std::array<float, ReadingArray::kSize> BackDiff{};
  std::array<float, ReadingArray::kSize> ForwardDiff{};
};

SpikeDiffs ComputeSpikeDiffs(const ReadingsRecord& record) {
  SpikeDiffs diffs;
  const int count = record.ReadingsPlotted;
  for (int i = 0; i < count; ++i) {
    const int before = i == 0 ? count - 1 : i - 1;
    const int after = i == count - 1 ? 0 : i + 1;
    const auto at = static_cast<std::size_t>(i);
    diffs.BackDiff[at] = record.Readings(i) - record.Readings(before);
    diffs.ForwardDiff[at] = record.Readings(i) - record.Readings(after);
  }
  return diffs;
}

void ReplaceSpikes(ReadingsRecord& record, float level, float peakInputLevel) {
  SpikeDiffs diffs = ComputeSpikeDiffs(record);
  for (int i = 0; i < record.ReadingsPlotted; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const bool spike = std::abs(diffs.ForwardDiff[at]) > level && std::abs(diffs.BackDiff[at]) > level;
    if (!spike) continue;
    const int previous = i == 0 ? record.ReadingsPlotted - 1 : i - 1;
    const float continued = record.Readings(previous) + diffs.BackDiff[static_cast<std::size_t>(previous)];
    record.Readings(i) = std::min(continued, peakInputLevel);
    diffs = ComputeSpikeDiffs(record);
  }
}

void SmoothOnce(ReadingsRecord& record, int first, int last) {
  for (int i = 0; i < record.ReadingsPlotted; ++i) {
    const int before = i == 0 ? last : i - 1;
    const int after = i == 0 ? 1 : (i == last ? first : i + 1);
    const float mean = (record.Readings(i) + record.Readings(before) + record.Readings(after)) / 3.F;
    record.Readings(i) = static_cast<float>(static_cast<double>(mean) + 0.1);
  }
}

}  // namespace

void Smooth(ReadingsRecord& record) {
  record.ReadingsPlotted = PlottedCount(record);
  const int first = record.TrimFront;
  const int last = first + record.ReadingsPlotted - 1;
  SmoothOnce(record, first, last);
  SmoothOnce(record, first, last);
}

void Reverse(ReadingsRecord& record) {
  for (int front = 0, back = record.NumReadings; front < back; ++front, --back)
    std::swap(record.Readings(front), record.Readings(back));
  std::swap(record.TrimFront, record.TrimEnd);
  if (record.Rotate != 0.F) record.Rotate = WholeRotation(360.F - record.Rotate);
}

DeSpikeOutcome DeSpike(ReadingsRecord& record, std::int16_t spikeDetectLevel, float peakInputLevel) {
  record.ReadingsPlotted = PlottedCount(record);
  if (auto refusal = CountRefusal(record.ReadingsPlotted, false)) return {false, std::move(refusal)};
  ReplaceSpikes(record, spikeDetectLevel, peakInputLevel);
  const bool negative =
      std::any_of(record.Readings.begin(), record.Readings.end(), [](float level) { return level < 0.F; });
  if (!negative) return {true, std::nullopt};
  record.RestoreReadings();
  return {true, "LBG032 Despike operation failed - original readings restored"};
}

float OrientationOf(const ReadingsRecord& record, const PlotResult& plot) {
  const float step = plot.DegreesPerReading;
  float orientBeamwidthDeg = std::abs(static_cast<float>(plot.Minus3dBIndexB - plot.Minus3dBIndexA) * step);
  if (orientBeamwidthDeg > 180.F) orientBeamwidthDeg = 360.F - orientBeamwidthDeg;
  const float beamSideDeg = static_cast<float>(plot.Minus3dBIndexB - record.TrimFront) * step;
  const float halfBeamDeg = orientBeamwidthDeg / 2.F;
  float orientationDeg = 360.F - beamSideDeg - halfBeamDeg;
  if (orientationDeg < 0.F) orientationDeg += 360.F;
  return WholeRotation(orientationDeg);
}

void ClearPlotFields(ReadingsRecord& record, bool descriptionWasLoaded) {
  record.TrimEnd = 0;
  record.TrimFront = 0;
  record.Rotate = 0.F;
  record.ReadingCount = 0.0;
  record.FileName.clear();
  if (descriptionWasLoaded) record.Description.clear();
}

}  // namespace lobegraph
