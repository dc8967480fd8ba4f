#pragma once

#include "render/Colour.h"
#include "render/DrawingSurface.h"
#include "render/PlotMapping.h"

namespace lobegraph {

/// What the plot-point rule keeps from point to point.
struct PlotPen {
  Colour TraceColour;
  bool PenDown = false;   ///< join each point to the previous one; else set a single dot
  SurfacePoint Previous;  ///< the last point plotted
};

/// Draws points where the plot-point rule puts them.
class Plotter {
 public:
  /// The surface must outlive the plotter.
  Plotter(DrawingSurface& surface, const PlotGeometry& geometry) : surface_(surface), mapping_(geometry) {}

  /// Draws the point in the trace colour (a line from the previous point when the pen is down, else a dot)
  /// and makes it the previous point. One that the rule has no place for is not drawn: the point stays where
  /// it was. In the rectangular drawing the pen is up where the axis ends and begins again.
  /// @param angleDeg clockwise, without the rotation offset; gets the angle that was drawn.
  /// @return the previous point after the call. @throws as PlotMapping::PointAt
  SurfacePoint PlotPoint(float& angleDeg, float radius);

  PlotPen& Pen() { return pen_; }
  PlotMapping& Mapping() { return mapping_; }
  const PlotMapping& Mapping() const { return mapping_; }
  DrawingSurface& Surface() { return surface_; }
  const PlotGeometry& Geometry() const { return mapping_.Geometry(); }

 private:
  DrawingSurface& surface_;
  PlotMapping mapping_;
  PlotPen pen_;
};

}  // namespace lobegraph
