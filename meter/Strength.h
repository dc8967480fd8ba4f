#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lobegraph {

/// S9 of a receiver below 30 MHz.
inline constexpr double kS9Dbm = -73;
/// What the strongest level of a turn is published as: near the top of the plot's 60 dB, with room above.
inline constexpr double kStrongestDbm = -5;

/// The signal strength, dB over S9, in a daemon's answer to "l STRENGTH"; none for an answer that is no
/// number ("RPRT -11") or one beyond all sense (more than 1000 dB away).
std::optional<double> ParseStrength(std::string_view answer);

/// The text that is published for a true strength.
/// @param referenceDb true strength that is published as kStrongestDbm
std::string PublishedText(double trueDb, double referenceDb);

}  // namespace lobegraph
