#pragma once

#include <optional>
#include <string>

#include "acquisition/rotator/RotatorWatchdog.h"

namespace lobegraph {

/// The sentence for an alarm: what was seen, what was done.
std::string SentenceOf(DriveAlarm alarm);

/// What an antenna does that was told so: "Goes to 90 degrees."
std::string WordsOf(const DriveOrder& order);

/// The bearing in the rotator's own count that is within its range and nearest to where it is; none when no
/// such bearing is.
std::optional<double> InRange(double deg, const RotatorAbilities& can, double nearDeg);

}  // namespace lobegraph
