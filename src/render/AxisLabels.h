#pragma once

#include <vector>

#include "processing/PlotStyle.h"
#include "render/DrawingSurface.h"
#include "render/PictureLayer.h"
#include "render/PlotGeometry.h"

namespace lobegraph {

/// The angles of the plot, every 30 degrees, and the units of both axes: around the circle 0 at the top and
/// clockwise up to 330, below the rectangular drawing from -180 to 180. They stand outside the grid, which
/// has no labels for them.
/// @param colour of the texts: one that is readable on the background
std::vector<LayerText> AxisLabels(const PlotStyle& style, const PlotGeometry& geometry, Colour colour);

/// Writes a text of a layer on a surface.
void DrawText(DrawingSurface& surface, const LayerText& text);

}  // namespace lobegraph
