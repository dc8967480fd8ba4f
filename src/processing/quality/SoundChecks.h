#pragma once

#include "processing/quality/QualityItem.h"
#include "processing/quality/TurnReadings.h"

namespace lobegraph {

/// What can be wrong with how readings were taken.

/// Samples that the sound server lost.
QualityItem CheckLost(const TurnReadings& turn);

/// Readings before a tone was known, or while it was out of reach.
QualityItem CheckTone(const TurnReadings& turn);

/// Readings of a keyed source without a key-down, filled from their neighbours.
QualityItem CheckKey(const TurnReadings& turn);

/// Readings for which the source had nothing new to say.
QualityItem CheckSilence(const TurnReadings& turn);

/// Readings that ended too late.
QualityItem CheckLate(const TurnReadings& turn);

}  // namespace lobegraph
