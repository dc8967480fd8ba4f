#pragma once

#include "processing/quality/QualityItem.h"
#include "processing/quality/TurnReadings.h"

namespace lobegraph {

/// What can be wrong with the source and the receiver over the whole turn.

/// Where the end of the turn arrives against its start, in dB; none for less than a turn.
std::optional<double> ClosureDb(const TurnReadings& turn);
QualityItem CheckClosure(const TurnReadings& turn);

/// How far the source moved: by the reference channel, or by directions that were measured twice.
QualityItem CheckDrift(const TurnReadings& turn);

/// A source that changed its power: a jump within one reading that stays for the rest of the turn, so that
/// the turn does not close by as much.
QualityItem CheckSteps(const TurnReadings& turn);

/// AGC by what it cannot change, the ratio of the tone to the noise beside it. Slope of the tone's level
/// against that ratio, both in dB: 1 with AGC off, where the noise stands still; 0 with AGC on, where the
/// tone does.
std::optional<double> AgcSlope(const TurnReadings& turn);
QualityItem CheckAgc(const TurnReadings& turn);

}  // namespace lobegraph
