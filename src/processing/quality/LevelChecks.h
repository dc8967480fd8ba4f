#pragma once

#include "processing/quality/QualityItem.h"
#include "processing/quality/TurnReadings.h"

namespace lobegraph {

/// What can be wrong with the levels of single readings. Limits and their reasons stand in docs/figures.md.

/// Samples at the end of the scale.
QualityItem CheckClipping(const TurnReadings& turn);

/// The level that the noise alone gives, in dB relative to the strongest reading (its median over the turn; 0
/// or less); none when no noise was measured.
std::optional<double> FloorDb(const TurnReadings& turn);
/// The floor, and which readings stand less than 10 dB above it.
QualityItem CheckFloor(const TurnReadings& turn);

/// Readings that stand out from their neighbours on both sides, one or two at a time: a click, a crash of
/// static.
QualityItem CheckSpikes(const TurnReadings& turn);

}  // namespace lobegraph
