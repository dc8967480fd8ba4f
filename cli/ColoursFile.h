#pragma once

#include <string_view>

#include "render/PlotColours.h"

namespace lobegraph {

/// The plot colours of a fresh installation.
PlotColours DefaultColours();

/// Colours from a text: lines "PlotLineColour=#800000" (or the settings file's whole number), bare or in a
/// section [Settings], so that a settings file of Lobegraph serves as well. Other lines mean nothing; a
/// colour that is not named keeps its default.
/// @throws RunTimeError 13 (Type mismatch) for a value that is no colour; the detail names the key
PlotColours ReadColours(std::string_view text);

}  // namespace lobegraph
