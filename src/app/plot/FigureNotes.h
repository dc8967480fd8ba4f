#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// What the tooltips of the figures say: an estimate is never shown as more than it is, so each names what
/// was assumed for it.

/// @param figure text of txtAngle: a placeholder needs no note
std::string AngleNote(std::string_view figure);
/// The gain from the beamwidth, with the width assumed for the plane that was not measured.
/// @param figure text of txtGain
/// @param elements text of cboElements, blank when nothing was chosen
std::string GainNote(std::string_view figure, std::string_view elements, bool horizontal);
/// The gain by integration, with what was taken off for the other plane.
std::string IntegratedGainNote(std::string_view elements, bool horizontal);

}  // namespace lobegraph
