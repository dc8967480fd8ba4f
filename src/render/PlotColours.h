#pragma once

#include <cstddef>

#include "render/Colour.h"

namespace lobegraph {

/// The six plot colours, named as in the settings.
struct PlotColours {
  Colour PlotBackground = {};
  Colour PlotGridColour = {};  ///< the whole grid and its labels
  Colour PlotLineColour = {};
  Colour PlotLineOverlayColour = {};
  Colour PlotUserColour = {};         ///< -3 dB lines
  Colour PlotUserOverlayColour = {};  ///< -3 dB lines of the overlay
  bool operator==(const PlotColours&) const = default;
};

/// What a pattern is drawn with.
struct TraceInk {
  Colour Line = {};
  Colour Marks = {};  ///< the -3 dB lines
};

/// The ink of a pattern among several: 0 is the plot itself, 1 the first one over it. From the third pattern
/// on the colours are chosen to be told apart, by colour-blind people as well.
TraceInk InkOf(const PlotColours& colours, std::size_t pattern);

}  // namespace lobegraph
