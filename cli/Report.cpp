#include "cli/Report.h"

#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>

#include "data/base/FileAccess.h"
#include "processing/Beamwidth.h"
#include "processing/Figures.h"
#include "render/PlotMapping.h"

namespace lobegraph {
namespace {

using Json = nlohmann::ordered_json;

/// A single as the decimal number that stands for it (0.1, not 0.10000000149).
Json Number(float value) {
  if (!std::isfinite(value)) return nullptr;
  if (value == std::trunc(value)) return static_cast<double>(value);
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  double decimal = 0.0;
  std::from_chars(buffer, end, decimal);
  return decimal;
}

template <typename Value>
Json OrNull(const std::optional<Value>& value) {
  return value ? Json(*value) : Json();
}

Json ErrorOf(const std::optional<RunTimeError>& error) {
  if (!error) return nullptr;
  return {{"number", error->Number()}, {"description", error->Description()}};
}

void AddRecord(Json& report, const ReadingsRecord& record, const std::string& file) {
  report["NumReadings"] = record.NumReadings;
  report["ReadingCount"] = record.ReadingCount;
  report["ReadingsPlotted"] = record.ReadingsPlotted;
  report["TrimFront"] = record.TrimFront;
  report["TrimEnd"] = record.TrimEnd;
  report["Rotate"] = Number(record.Rotate);
  report["PeakLevelDb"] = Number(record.PeakLevelDb);
  report["PeakIndex"] = record.PeakIndex;
  report["Description"] = record.Description;
  report["ScaleSetting"] = Number(record.ScaleSetting);
  report["WriterVersion"] = record.WriterVersion;
  report["CollectedBy"] = record.CollectedBy;
  report["CollectedDate"] = record.CollectedDate;
  report["Elements"] = record.Elements;
  report["PolarizationHorizontal"] = record.PolarizationHorizontal;
  report["Plot180"] = record.Plot180;
  report["FileName"] = FileNameOf(file);
}

void AddPlot(Json& report, const OpenedPattern& pattern) {
  const PatternSession& session = pattern.Session;
  const PlotResult& plot = session.Plot();
  report["PlotDone"] = plot.PlotDone;
  report["DegreesPerReading"] = Number(plot.DegreesPerReading);
  report["Minus3dBIndexA"] = plot.Minus3dBIndexA;
  report["Minus3dBIndexB"] = plot.Minus3dBIndexB;
  report["BeamwidthDeg"] = Number(session.BeamwidthDeg());
  report["GainEstimate"] = OrNull(plot.Figures.GainDbi);
  report["txtAngle"] = BeamwidthText(session.Figures().BeamwidthDeg);
  report["txtGain"] = GainText(session.Figures().GainDbi);
  report["txtRotate"] = pattern.RotateText;
  const auto integrated = session.IntegratedGain();
  report["directivity"] = integrated ? Json(GainText(integrated)) : Json();
}

Json FiguresObject(const CutFigures& figures) {
  const DirectivityEstimates& estimates = figures.Directivity;
  return {{"hpbw", OrNull(figures.Hpbw)},
          {"hpbw10", OrNull(figures.Hpbw10)},
          {"fnbw", OrNull(figures.Fnbw)},
          {"peakBearing", OrNull(figures.PeakBearing)},
          {"beamCentre", OrNull(figures.BeamCentre)},
          {"squint", OrNull(figures.Squint)},
          {"frontToBack", OrNull(figures.FrontToBack)},
          {"frontToRear", OrNull(figures.FrontToRear)},
          {"frontToRearSector", OrNull(figures.FrontToRearSector)},
          {"frontToSide", OrNull(figures.FrontToSide)},
          {"sideLobeLevel", OrNull(figures.SideLobeLevel)},
          {"sideLobeAngle", OrNull(figures.SideLobeAngle)},
          {"ripple", OrNull(figures.Ripple)},
          {"closure", OrNull(figures.Closure)},
          {"directivityEstimates",
           {{"kraus", OrNull(estimates.Kraus)},
            {"taiPereira", OrNull(estimates.TaiPereira)},
            {"integrated", OrNull(estimates.Integrated)}}}};
}

void AddReadings(Json& report, const ReadingsRecord& record) {
  Json readings = Json::array();
  for (const float level : record.Readings) readings.push_back(Number(level));
  report["Readings"] = std::move(readings);
}

void AddTrace(Json& report, const PatternSession& session) {
  PlotMapping mapping({.X = 0.F, .Y = 0.F});
  mapping.RotationOffset = session.Plot().RotationOffset;
  Json trace = Json::array();
  Json points = Json::array();
  for (const TracePoint& point : session.Plot().Trace) {
    trace.push_back({Number(point.AngleDeg), Number(point.Radius)});
    float angleDeg = point.AngleDeg;
    const SurfacePoint drawn = mapping.PointAt(angleDeg, point.Radius).value_or(SurfacePoint{});
    points.push_back({Number(drawn.X), Number(drawn.Y)});
  }
  report["Trace"] = std::move(trace);
  report["Points"] = std::move(points);
}

}  // namespace

Json ReportObject(const OpenedPattern& pattern, const std::string& file, const ReportExtras& extras) {
  const PatternSession& session = pattern.Session;
  Json report;
  report["file"] = file;
  report["error"] = ErrorOf(pattern.Error());
  report["messages"] = pattern.Messages;
  AddRecord(report, session.Record(), file);
  AddPlot(report, pattern);
  report["figures"] =
      FiguresObject(session.Plot().FieldsSettled ? FiguresOfRecord(session.Record()) : CutFigures{});
  if (extras.Readings) AddReadings(report, session.Record());
  if (extras.Trace) AddTrace(report, session);
  return report;
}

std::string ReportLine(const OpenedPattern& pattern, const std::string& file, const ReportExtras& extras) {
  return ReportObject(pattern, file, extras).dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace lobegraph
