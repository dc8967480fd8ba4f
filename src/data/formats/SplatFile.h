#pragma once

#include <string>

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// SPLAT! azimuth pattern (.az): a rotation, then azimuth and field strength, 1 at the strongest. A line that
/// cannot be read is passed over.
/// @throws RunTimeError 13 (Type mismatch) for a text without a point
PatternTable ReadSplat(TextLines& lines);

/// 360 whole degrees, rotation 0.
std::string WriteSplat(const PatternTable& table);

}  // namespace lobegraph
