#pragma once

#include <string>

namespace lobegraph {

/// What the line at the foot of the plot says while a run is on.

/// Before the first reading.
/// @param autoStart a signal is waited for
/// @param pulsesCome the trigger's port is open
std::string StartHint(bool autoStart, bool triggered, bool pulsesCome, int rotationSeconds);
/// Where the turn is, and how long it still takes where the clock paces it.
/// @param reading taken so far, from 1
std::string ProgressHint(int reading, bool triggered, int rotationSeconds);

/// While the sweep runs. Only the sound card's level has a colour to aim at, and a volume to set.
std::string CalibrateHint(bool soundCard);
/// While the meter has not yet said enough.
inline constexpr const char* kAwaitsMeterHint = "Waiting for the meter. Halt Collection ends the wait.";
inline constexpr const char* kSweepAwaitsMeterHint = "Waiting for the meter.";
/// After the sweep.
inline constexpr const char* kCalibratedHint = "Start the rotator, then press Collect Data.";

/// Time left of a turn: "0:43", "12:05".
std::string TimeLeft(int readingsLeft, int rotationSeconds);

}  // namespace lobegraph
