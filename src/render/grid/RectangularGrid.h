#pragma once

#include <cstdint>
#include <vector>

#include "processing/PlotStyle.h"
#include "render/PlotColours.h"
#include "render/PlotGeometry.h"
#include "render/Plotter.h"
#include "render/grid/GridPainting.h"

namespace lobegraph {

/// A line from the top to the bottom edge.
struct AngleLine {
  std::int16_t X = 0;
  int PenWidth = 1;
};

/// A line from the left to the right edge.
struct LevelLine {
  float Y = 0.0F;
  int PenWidth = 1;
  bool Dashed = false;  ///< the -3 dB level
};

/// The rectangular grid as data, in the order in which it is drawn: angle lines, outline, level lines,
/// labels. The level 0 dB (amplitude 1.0) lies on the top edge; every other level as high above the bottom
/// edge as its ring in the circle is wide.
struct RectangularGrid {
  PlotArea Area;
  std::vector<AngleLine> AngleLines;
  std::vector<LevelLine> LevelLines;
  std::vector<GridLabel> Labels;
};

/// @throws RunTimeError 11 (Division by zero) for a log scale factor of 0 on the logarithmic scale.
RectangularGrid MakeRectangularGrid(const PlotGeometry& geometry, const PlotStyle& style);

/// Draws the empty rectangular drawing. Clears the surface and fills the plot area first unless what is drawn
/// is to stay. Leaves the pen width at 2, PlotGridColour as the trace colour and the plotter's form
/// rectangular.
/// @throws RunTimeError as MakeRectangularGrid; the surface is then half drawn.
void DrawRectangularGrid(Plotter& plotter, const PlotStyle& style, const PlotColours& colours,
                         GridOver over = GridOver::Cleared);

}  // namespace lobegraph
