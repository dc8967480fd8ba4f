#pragma once

#include <optional>
#include <string_view>

#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// Directivity in dB of the plotted readings taken as a body of revolution about the beam: 10 log10(4 / I)
/// with I the integral of (level / peak)^2 |sin angle| over the turn, by Simpson's rule from the strongest
/// reading on. An even count loses its last reading, because the rule needs an odd number of points.
/// @throws RunTimeError 6 when all readings are 0, 11 when nothing is left to integrate
double DirectivityByIntegration(const ReadingsRecord& record);

/// dB subtracted from it for a number of elements (0 for a text with ">"), negated for vertical polarization;
/// none below two elements, for which the command says nothing.
/// @throws RunTimeError 6 for a number of elements beyond 32 bits
std::optional<double> ElementCorrection(std::string_view elements, bool horizontal);

/// The gain that the command shows, dBi; none below two elements.
std::optional<double> IntegratedGain(const ReadingsRecord& record);

}  // namespace lobegraph
