#include "render/Trace.h"

#include <optional>

namespace lobegraph {
namespace {

SurfacePoint FootOf(const Plotter& plotter, SurfacePoint point) {
  if (!plotter.Mapping().Rectangular) return plotter.Geometry().Centre();
  return {point.X, static_cast<float>(MakePlotArea(plotter.Geometry()).Bottom)};
}

void DrawMinus3dBMark(Plotter& plotter, TracePoint mark, Colour colour) {
  const std::optional<SurfacePoint> point = plotter.Mapping().PointAt(mark.AngleDeg, mark.Radius);
  if (point) plotter.Surface().Line(FootOf(plotter, *point), *point, colour);
}

}  // namespace

void DrawTrace(Plotter& plotter, const PlotResult& result, const TraceInk& ink, bool minus3dBMarks) {
  StartTrace(plotter, ink.Line, result.RotationOffset);
  for (const TracePoint& point : result.Trace) DrawTracePoint(plotter, point.AngleDeg, point.Radius);
  if (!minus3dBMarks || !result.PlotDone) return;
  for (const TracePoint& mark : result.Minus3dBMarks) DrawMinus3dBMark(plotter, mark, ink.Marks);
}

void StartTrace(Plotter& plotter, Colour traceColour, float rotationOffset) {
  PlotPen& pen = plotter.Pen();
  pen.TraceColour = traceColour;
  plotter.Mapping().RotationOffset = rotationOffset;
  pen.PenDown = false;
  plotter.Surface().SetPenWidth(2);
}

SurfacePoint DrawTracePoint(Plotter& plotter, float angleDeg, float radius) {
  const SurfacePoint end = plotter.PlotPoint(angleDeg, radius);
  plotter.Pen().PenDown = true;
  return end;
}

}  // namespace lobegraph
