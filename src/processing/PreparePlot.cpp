#include "processing/PreparePlot.h"

#include <cmath>

#include "data/base/Rounding.h"
#include "processing/Beamwidth.h"
#include "processing/Decibels.h"
#include "processing/Minus3dBWalk.h"
#include "processing/RadiusRule.h"

namespace lobegraph {
namespace {

/// The weakest strongest reading: a set that lies below it keeps its former peak index.
constexpr float kFaintestPeakDb = 60.F;
/// Side B's mark is this much shorter, so that the two can be told apart.
constexpr float kMarkDifference = 2.F;

int LastPlotted(const ReadingsRecord& record) { return record.NumReadings - record.TrimEnd; }

void FindPeak(ReadingsRecord& record, float peakInputLevel) {
  record.PeakLevelDb = kFaintestPeakDb;
  for (int i = record.TrimFront; i <= LastPlotted(record); ++i) {
    const float readingDb = DecibelsBelow(peakInputLevel, record.Readings(i));
    if (!(readingDb < record.PeakLevelDb)) continue;
    record.PeakLevelDb = readingDb;
    record.PeakIndex = static_cast<std::int16_t>(i);
  }
}

float RelativeDb(const ReadingsRecord& record, const PlotOptions& options, int index) {
  return DecibelsBelow(options.PeakInputLevel, record.Readings(index)) - record.PeakLevelDb;
}

void TracePoints(const ReadingsRecord& record, const PlotOptions& options, PlotResult& result) {
  result.Trace.clear();
  for (int i = record.TrimFront; i <= LastPlotted(record); ++i) {
    const float relativeDb = RelativeDb(record, options, i);
    // Only the linear scale looks at the strongest reading itself, which may be a stale 0 elsewhere.
    const float ratio = result.Scale == PlotScale::Linear
                            ? CheckedRatio(record.Readings(i), record.Readings(record.PeakIndex))
                            : 0.F;
    const float angle = static_cast<float>(i - record.TrimFront) * result.DegreesPerReading;
    result.Trace.push_back(
        {angle, PlotRadius(result.Scale, options.FullScaleRadius, ratio, relativeDb, options.ScaleSetting)});
  }
  if (!record.Plot180 && !result.Trace.empty()) result.Trace.push_back(result.Trace.front());
}

float Minus3dBRadius(const PlotOptions& options, PlotScale scale) {
  constexpr float kHalfPowerRatio = 0.707F;
  return PlotRadius(scale, options.FullScaleRadius, kHalfPowerRatio, 3.F, options.ScaleSetting);
}

void FindMinus3dBPoints(const ReadingsRecord& record, const PlotOptions& options, PlotResult& result) {
  const auto levelAt = [&](int index) { return RelativeDb(record, options, index); };
  const WalkRange range{record.TrimFront, LastPlotted(record), record.PeakIndex};
  result.Minus3dBIndexA = static_cast<std::int16_t>(WalkToMinus3dB(range, WalkSide::A, levelAt));
  result.Minus3dBIndexB = static_cast<std::int16_t>(WalkToMinus3dB(range, WalkSide::B, levelAt));
  const float radius = Minus3dBRadius(options, result.Scale);
  const auto angleOf = [&](std::int16_t index) {
    return static_cast<float>(index - record.TrimFront) * result.DegreesPerReading;
  };
  result.Minus3dBMarks = {TracePoint{angleOf(result.Minus3dBIndexA), radius},
                          TracePoint{angleOf(result.Minus3dBIndexB), radius - kMarkDifference}};
}

void SettleGeometry(ReadingsRecord& record, const PlotOptions& options, PlotResult& result) {
  result.Scale = ScaleOf(options.chkPlotInDB, options.ShowLogScale);
  result.DegreesPerReading = DegreesBetween(record.ReadingsPlotted, record.Plot180);
  record.Rotate = RotationFor(record, options.LinearMode);
  result.FieldsShown = true;
}

}  // namespace

PlotResult BeginPlot(ReadingsRecord& record, const PlotTexts& texts, const PlotOptions& options) {
  PlotResult result;
  const RangeCheck check = CheckRange(record, texts, options.chkCalibrate);
  result.ResetBox = check.ResetBox;
  if (check.Message) result.Messages.push_back(*check.Message);
  if (check.Passed) SettleGeometry(record, options, result);
  return result;
}

void CompletePlot(ReadingsRecord& record, const PlotOptions& options, PlotResult& result) {
  FindPeak(record, options.PeakInputLevel);
  TracePoints(record, options, result);
  FindMinus3dBPoints(record, options, result);
  result.BeamwidthDeg =
      BeamwidthBetween(result.Minus3dBIndexA, result.Minus3dBIndexB, result.DegreesPerReading);
  const Figures figures = FiguresOf(result.BeamwidthDeg, record.Elements, record.PolarizationHorizontal);
  result.GainEstimate = figures.GainEstimate;
  result.txtAngle = figures.txtAngle;
  result.txtGain = figures.txtGain;
  result.PlotDone = true;
}

PlotResult PreparePlot(ReadingsRecord& record, const PlotTexts& texts, const PlotOptions& options) {
  PlotResult result = BeginPlot(record, texts, options);
  if (result.FieldsShown) CompletePlot(record, options, result);
  return result;
}

PlotResult PlotOriginal(ReadingsRecord& record, const PlotOptions& options) {
  record.RestoreReadings();
  record.NumReadings = record.SavedNumReadings;
  record.TrimFront = 0;
  record.TrimEnd = 0;
  record.ReadingsPlotted = PlottedCount(record);
  PlotResult result;
  SettleGeometry(record, options, result);
  FindPeak(record, options.PeakInputLevel);
  TracePoints(record, options, result);
  return result;
}

}  // namespace lobegraph
