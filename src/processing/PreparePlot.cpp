#include "processing/PreparePlot.h"

#include <cmath>

#include "data/base/Rounding.h"
#include "processing/Beamwidth.h"
#include "processing/Decibels.h"
#include "processing/Minus3dBWalk.h"
#include "processing/RadiusRule.h"

namespace lobegraph {
namespace {

/// A set that lies this far down throughout keeps its former peak index.
constexpr float kFaintestPeakDb = 60.F;
/// Side B's mark is this much shorter, so that the two can be told apart.
constexpr float kMarkDifference = 2.F;

void FindPeak(ReadingsRecord& record, float peakInputLevel) {
  record.PeakLevelDb = kFaintestPeakDb;
  for (int i = record.TrimFront; i <= record.LastPlotted(); ++i) {
    const float readingDb = DecibelsBelow(peakInputLevel, record.Readings(i));
    if (!(readingDb < record.PeakLevelDb)) continue;
    record.PeakLevelDb = readingDb;
    record.PeakIndex = static_cast<std::int16_t>(i);
  }
}

float RelativeDb(const ReadingsRecord& record, float peakInputLevel, int index) {
  return DecibelsBelow(peakInputLevel, record.Readings(index)) - record.PeakLevelDb;
}

float RadiusOf(const PlotStyle& style, float ratio, float relativeDb) {
  return PlotRadius(style.Scale, kFullScaleRadius, ratio, relativeDb, static_cast<float>(style.ScaleSetting));
}

void TracePoints(const ReadingsRecord& record, const PlotStyle& style, float peakInputLevel,
                 PlotResult& result) {
  result.Trace.clear();
  for (int i = record.TrimFront; i <= record.LastPlotted(); ++i) {
    const float relativeDb = RelativeDb(record, peakInputLevel, i);
    // Only the linear scale looks at the strongest reading itself, which may be a stale 0 elsewhere.
    const float ratio = result.Scale == PlotScale::Linear
                            ? CheckedRatio(record.Readings(i), record.Readings(record.PeakIndex))
                            : 0.F;
    const float angle = static_cast<float>(i - record.TrimFront) * result.DegreesPerReading;
    result.Trace.push_back({angle, RadiusOf(style, ratio, relativeDb)});
  }
  if (!record.Plot180 && !result.Trace.empty()) result.Trace.push_back(result.Trace.front());
}

float Minus3dBRadius(const PlotStyle& style) {
  constexpr float kHalfPowerRatio = 0.707F;
  return RadiusOf(style, kHalfPowerRatio, 3.F);
}

void FindMinus3dBPoints(const ReadingsRecord& record, const PlotStyle& style, float peakInputLevel,
                        PlotResult& result) {
  const auto levelAt = [&](int index) { return RelativeDb(record, peakInputLevel, index); };
  const WalkRange range{record.TrimFront, record.LastPlotted(), record.PeakIndex};
  result.Minus3dBIndexA = static_cast<std::int16_t>(WalkToMinus3dB(range, WalkSide::A, levelAt));
  result.Minus3dBIndexB = static_cast<std::int16_t>(WalkToMinus3dB(range, WalkSide::B, levelAt));
  const float radius = Minus3dBRadius(style);
  const auto angleOf = [&](std::int16_t index) {
    return static_cast<float>(index - record.TrimFront) * result.DegreesPerReading;
  };
  result.Minus3dBMarks = {TracePoint{angleOf(result.Minus3dBIndexA), radius},
                          TracePoint{angleOf(result.Minus3dBIndexB), radius - kMarkDifference}};
}

void SettleGeometry(ReadingsRecord& record, const PlotStyle& style, PlotResult& result) {
  result.Scale = style.Scale;
  result.DegreesPerReading = DegreesBetween(record.ReadingsPlotted, record.Plot180);
  record.Rotate = RotationFor(record, style.Rectangular);
  result.RotationOffset = RotationOffsetOf(style.Rectangular, record.Plot180, record.Rotate);
  result.FieldsSettled = true;
}

}  // namespace

PlotResult BeginPlot(ReadingsRecord& record, const Placement& placement, const PlotStyle& style,
                     const PatternRules& rules) {
  PlotResult result;
  const RangeCheck check = CheckRange(record, placement, rules.AnyLength);
  result.Refused = check.Refused;
  result.Message = check.Message;
  if (check.Passed) SettleGeometry(record, style, result);
  return result;
}

void CompletePlot(ReadingsRecord& record, const PlotStyle& style, const PatternRules& rules,
                  PlotResult& result) {
  FindPeak(record, rules.PeakInputLevel);
  TracePoints(record, style, rules.PeakInputLevel, result);
  FindMinus3dBPoints(record, style, rules.PeakInputLevel, result);
  result.BeamwidthDeg =
      BeamwidthBetween(result.Minus3dBIndexA, result.Minus3dBIndexB, result.DegreesPerReading);
  result.Figures = BeamFiguresOf(result.BeamwidthDeg, record.Elements, record.PolarizationHorizontal);
  result.PlotDone = true;
}

PlotResult PreparePlot(ReadingsRecord& record, const Placement& placement, const PlotStyle& style,
                       const PatternRules& rules) {
  PlotResult result = BeginPlot(record, placement, style, rules);
  if (result.FieldsSettled) CompletePlot(record, style, rules, result);
  return result;
}

PlotResult PlotOriginal(ReadingsRecord& record, const PlotStyle& style, const PatternRules& rules) {
  record.RestoreReadings();
  record.NumReadings = record.SavedNumReadings;
  record.TrimFront = 0;
  record.TrimEnd = 0;
  record.ReadingsPlotted = PlottedCount(record);
  PlotResult result;
  SettleGeometry(record, style, result);
  FindPeak(record, rules.PeakInputLevel);
  TracePoints(record, style, rules.PeakInputLevel, result);
  return result;
}

}  // namespace lobegraph
