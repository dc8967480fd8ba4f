#pragma once

#include <cstdint>

#include "processing/PlotStyle.h"
#include "render/DrawingSurface.h"

namespace lobegraph {

/// Where the plot lies on the surface, in surface units.
struct PlotGeometry {
  float X = 250.5F;  ///< plot centre
  float Y = 283.0F;
  float R = kFullScaleRadius;

  constexpr SurfacePoint Centre() const { return {X, Y}; }
};

/// Centres the plot in what the control panel leaves free, three units below the middle. A surface of 758 x
/// 560 with a panel of 257 has its plot centre at (250.5, 283).
PlotGeometry MakePlotGeometry(float surfaceWidth, float surfaceHeight, float panelWidth);

/// The edges of the rectangular drawing: whole surface units, 2R wide and R high. They are also what the
/// mouse is compared with (edges belong to the area).
struct PlotArea {
  std::int16_t Left = 0;
  std::int16_t Right = 0;
  std::int16_t Top = 0;
  std::int16_t Bottom = 0;
  constexpr bool operator==(const PlotArea&) const = default;
};

/// @throws RunTimeError 6 (Overflow) for an edge beyond 16 bits.
PlotArea MakePlotArea(const PlotGeometry& geometry);

}  // namespace lobegraph
