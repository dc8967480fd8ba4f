#pragma once

#include <cstddef>
#include <string_view>

#include "render/Colour.h"

namespace lobegraph {

/// The six plot colours, named as in the settings; without a file those of a fresh installation.
struct PlotColours {
  Colour PlotBackground;
  Colour PlotGridColour;
  Colour PlotLineColour;
  Colour PlotLineOverlayColour;
  Colour PlotUserColour;         ///< -3 dB lines
  Colour PlotUserOverlayColour;  ///< -3 dB lines of the overlay
  bool operator==(const PlotColours&) const = default;
};

PlotColours DefaultColours();

/// Colours from a text: lines "PlotLineColour=#800000" (or the settings file's whole number), bare or in a
/// section [Settings], so that a settings file of Lobegraph serves as well. Other lines mean nothing; a
/// colour that is not named keeps its default.
/// @throws RunTimeError 13 (Type mismatch) for a value that is no colour; the detail names the key
PlotColours ReadColours(std::string_view text);

/// The trace of a pattern among several: 0 is the plot itself, 1 the first one over it. From the third
/// pattern on the colours are chosen to be told apart, by colour-blind people as well.
Colour TraceColourOf(const PlotColours& colours, std::size_t pattern);
/// Its -3 dB lines.
Colour MarkColourOf(const PlotColours& colours, std::size_t pattern);

}  // namespace lobegraph
