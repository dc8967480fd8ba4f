#pragma once

#include <optional>

#include "render/Colour.h"
#include "render/DrawingSurface.h"
#include "render/PlotGeometry.h"

namespace lobegraph {

/// What the plot-point rule keeps from point to point.
struct PlotPen {
  float RotationOffset = 0.0F;  ///< degrees added to every angle
  Colour TraceColour;
  bool PenDown = false;      ///< join each point to the previous one; else set a single dot
  bool Rectangular = false;  ///< level over angle instead of the circle
  SurfacePoint Previous;     ///< the last point plotted
};

/// The plot-point rule: the one way from an angle and a radius to a point of the surface, for live and kept
/// traces and for the grid alike. 0 degrees is straight up, angles run clockwise.
class Plotter {
 public:
  /// The surface must outlive the plotter.
  Plotter(DrawingSurface& surface, const PlotGeometry& geometry);

  /// Draws the point in the trace colour (a line from the previous point when the pen is down, else a dot)
  /// and makes it the previous point.
  /// @param angleDeg clockwise, without the rotation offset; gets the angle that was drawn.
  /// Polar: Deliberate: the angle is a whole degree (halves to even) from -359 to 359, so that readings taken
  /// at slightly different speeds lie on the same spokes. An angle below 0 is not drawn: the point stays
  /// where it was. Rectangular: not snapped, from 0 up to 360; the pen is up where the axis ends and begins
  /// again.
  /// @param radius surface units.
  /// @return the previous point after the call.
  /// @throws RunTimeError 6 (Overflow) for an angle beyond whole numbers.
  SurfacePoint PlotPoint(float& angleDeg, float radius);

  /// Where PlotPoint would put it, without drawing; angleDeg gets the same value. None: the point would stay.
  std::optional<SurfacePoint> PointAt(float& angleDeg, float radius) const;

  PlotPen& Pen() { return pen_; }
  const PlotPen& Pen() const { return pen_; }
  DrawingSurface& Surface() { return surface_; }
  const PlotGeometry& Geometry() const { return geometry_; }

 private:
  std::optional<SurfacePoint> PolarPoint(float& angleDeg, float radius) const;
  SurfacePoint RectangularPoint(float& angleDeg, float radius) const;

  DrawingSurface& surface_;
  PlotGeometry geometry_;
  PlotArea area_;
  PlotPen pen_;
};

}  // namespace lobegraph
