#pragma once

#include <optional>

#include "render/PlotGeometry.h"

namespace lobegraph {

/// The plot-point rule: the one way from an angle and a radius to a point of the surface, for live and kept
/// traces and for the grid alike. 0 degrees is straight up, angles run clockwise.
class PlotMapping {
 public:
  explicit PlotMapping(const PlotGeometry& geometry) : geometry_(geometry), area_(MakePlotArea(geometry)) {}

  float RotationOffset = 0.0F;  ///< degrees added to every angle
  bool Rectangular = false;     ///< level over angle instead of the circle

  /// @param angleDeg clockwise, without the rotation offset; gets the angle that is drawn.
  /// Polar: Deliberate: the angle is a whole degree (halves to even) from -359 to 359, so that readings taken
  /// at slightly different speeds lie on the same spokes. An angle below 0 has no point. Rectangular: not
  /// snapped, from 0 up to 360.
  /// @param radius surface units.
  /// @throws RunTimeError 6 (Overflow) for an angle beyond whole numbers.
  std::optional<SurfacePoint> PointAt(float& angleDeg, float radius) const;

  const PlotGeometry& Geometry() const { return geometry_; }

 private:
  std::optional<SurfacePoint> PolarPoint(float& angleDeg, float radius) const;
  SurfacePoint RectangularPoint(float& angleDeg, float radius) const;

  PlotGeometry geometry_;
  PlotArea area_;
};

}  // namespace lobegraph
