#include "render/Plotter.h"

namespace lobegraph {

SurfacePoint Plotter::PlotPoint(float& angleDeg, float radius) {
  const std::optional<SurfacePoint> point = mapping_.PointAt(angleDeg, radius);
  if (!point) return pen_.Previous;
  const bool wrapped = mapping_.Rectangular && point->X < pen_.Previous.X;
  if (pen_.PenDown && !wrapped) {
    surface_.Line(pen_.Previous, *point, pen_.TraceColour);
  } else {
    surface_.Dot(*point, pen_.TraceColour);
  }
  pen_.Previous = *point;
  return *point;
}

}  // namespace lobegraph
