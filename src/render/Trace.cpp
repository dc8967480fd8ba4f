#include "render/Trace.h"

#include <optional>

namespace lobegraph {
namespace {

SurfacePoint FootOf(const Plotter& plotter, SurfacePoint point) {
  if (!plotter.Pen().LinearMode) return plotter.Geometry().Centre();
  return {point.X, static_cast<float>(MakePlotArea(plotter.Geometry()).Bottom)};
}

void DrawMinus3dBMark(Plotter& plotter, TracePoint mark, Colour colour) {
  const std::optional<SurfacePoint> point = plotter.PointAt(mark.AngleDeg, mark.Radius);
  if (point) plotter.Surface().Line(FootOf(plotter, *point), *point, colour);
}

}  // namespace

void DrawTrace(Plotter& plotter, const PlotResult& result, const TraceOptions& options) {
  StartTrace(plotter, options.Overlay ? options.PlotLineOverlayColour : options.PlotLineColour,
             options.RotationOffset);
  for (const TracePoint& point : result.Trace) DrawTracePoint(plotter, point.AngleDeg, point.Radius);
  if (!options.chkShow3dB || !result.PlotDone) return;
  const Colour markColour = options.Overlay ? options.PlotUserOverlayColour : options.PlotUserColour;
  for (const TracePoint& mark : result.Minus3dBMarks) DrawMinus3dBMark(plotter, mark, markColour);
}

void StartTrace(Plotter& plotter, Colour traceColour, float rotationOffset) {
  PlotPen& pen = plotter.Pen();
  pen.TraceColour = traceColour;
  pen.RotationOffset = rotationOffset;
  pen.PenDown = false;
  plotter.Surface().SetPenWidth(2);
}

SurfacePoint DrawTracePoint(Plotter& plotter, float angleDeg, float radius) {
  const SurfacePoint end = plotter.PlotPoint(angleDeg, radius);
  plotter.Pen().PenDown = true;
  return end;
}

}  // namespace lobegraph
