#pragma once

#include <span>
#include <string>

#include "processing/PlotResult.h"
#include "render/PictureLayer.h"
#include "render/PlotMapping.h"

namespace lobegraph {

/// A trace of several, and what it is called.
struct LegendEntry {
  std::string Name = {};
  Colour Line = {};
};

/// Writes which trace is which at the lower left of the plot, where neither drawing has anything: a line of
/// its colour and its name, as much of it as fits.
void WriteLegend(PictureLayer& layer, std::span<const LegendEntry> entries, Colour text);

/// Draws the -3 dB lines once more with an edge, so that they are seen on a background that is nearly their
/// colour. @param mapping as the trace has it, its rotation included
void OutlineMarks(PictureLayer& layer, const PlotMapping& mapping, const PlotResult& plot, Colour marks,
                  Colour edge);

}  // namespace lobegraph
