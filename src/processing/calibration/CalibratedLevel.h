#pragma once

#include "data/calibration/CalibrationTable.h"

namespace lobegraph {

/// dB of a level as calibrations count it: 0 at level 1000, -60 at level 1. @param level above 0
double HeardDbOf(double level);
double LevelOfHeardDb(double db);

/// The level of the true signal. Without points the level itself, to the bit; else at least 1.
float CalibratedLevel(const CalibrationTable& table, float level);

/// The same for a meter's value in dB, 60 at full scale: at least 0, so that the level that belongs to it
/// is 1.
float CalibratedMeterDb(const CalibrationTable& table, float meterDb);

}  // namespace lobegraph
