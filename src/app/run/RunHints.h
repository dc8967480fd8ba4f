#pragma once

#include <string>

namespace lobegraph {

/// What the line at the foot of the plot says while a run is on.

/// Before the first reading.
/// @param autoStart a signal is waited for
std::string StartHint(bool autoStart, bool triggered, int rotationSeconds);
/// Where the turn is, and how long it still takes where the clock paces it.
/// @param reading taken so far, from 1
std::string ProgressHint(int reading, bool triggered, int rotationSeconds);

/// While the sweep runs. Only the sound card's level has a colour to aim at, and a volume to set.
std::string CalibrateHint(bool soundCard);
/// After the sweep.
inline constexpr const char* kCalibratedHint = "Start the rotator, then press Collect Data.";

/// Time left of a turn: "0:43", "12:05".
std::string TimeLeft(int readingsLeft, int rotationSeconds);

}  // namespace lobegraph
