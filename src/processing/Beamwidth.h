#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "processing/PlotResult.h"

namespace lobegraph {

/// Beamwidth in degrees between two -3 dB indexes: the smaller of the two ways round, 0 to 180. Two equal
/// indexes give 0, which stands for "none".
float BeamwidthBetween(int indexA, int indexB, float degreesPerReading);

/// The ratio of the two principal-plane beamwidths assumed for a number of elements (a text with ">": more
/// than eight), inverted for vertical polarization; none for a single element, which gets no ratio.
/// Deliberate: 6 and 7 elements take the ratio of 3.
std::optional<double> ElementRatioOf(std::string_view elements, bool horizontal);

/// Gain in dBi from the beamwidth: 10 log10(27000 / (b * b * ratio)) + 2.15, the practical form of Kraus's
/// estimate with the second plane taken from the element ratio. Deliberate: a single element has 360 degrees
/// in its second plane and gets no 2.15.
/// @param beamwidthDeg above 0
double GainFromBeamwidth(std::string_view elements, double beamwidthDeg, bool horizontal);

/// The figures of a beamwidth; none unless it lies between 0 and 180 degrees (both exclusive).
BeamFigures BeamFiguresOf(float beamwidthDeg, std::string_view elements, bool horizontal);

/// "65.00", or "Angle" in its place.
std::string BeamwidthText(const std::optional<float>& beamwidthDeg);
/// "7.89 dBi", or "Gain" in its place.
std::string GainText(const std::optional<double>& gainDbi);

}  // namespace lobegraph
