#pragma once

#include <vector>

#include "processing/PlotStyle.h"
#include "render/PlotColours.h"
#include "render/PlotGeometry.h"
#include "render/Plotter.h"
#include "render/grid/GridPainting.h"

namespace lobegraph {

struct GridRing {
  float Radius = 0.0F;
  int PenWidth = 1;
};

/// The circular grid as data, in the order in which it is drawn: 36 radial lines, the blanked middle, rings,
/// labels.
struct CircularGrid {
  float BlankRadius = 0.0F;  ///< the radial lines stop here
  std::vector<GridRing> Rings;
  std::vector<GridLabel> Labels;
};

/// @throws RunTimeError 11 (Division by zero) for a log scale factor of 0 on the logarithmic scale.
CircularGrid MakeCircularGrid(const PlotGeometry& geometry, const PlotStyle& style);

/// Draws the empty plot: the circular grid, or the rectangular one. Clears the surface first unless what is
/// drawn is to stay. The grid is never rotated. Leaves the pen width at 2, the pen up, the rotation offset as
/// it was and PlotUserColour as the trace colour, and sets the plotter's form to that of the style.
/// @throws RunTimeError as MakeCircularGrid; the surface is then half drawn.
void DrawCircularGrid(Plotter& plotter, const PlotStyle& style, const PlotColours& colours,
                      GridOver over = GridOver::Cleared);

}  // namespace lobegraph
