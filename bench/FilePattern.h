#pragma once

#include <string>

#include "bench/Antenna.h"
#include "data/base/FileAccess.h"
#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// The readings as they were taken, spread evenly over one turn: reading 0 from bearing 0 on, each held until
/// the next, so that a collection of the same length takes the same readings. The strongest is 1. Trim and
/// rotation do not count.
/// @throws RunTimeError 5 for a set without a reading above 0.
VoltagePattern PatternOf(const ReadingsRecord& record);

/// The same from a pattern file. @throws RunTimeError as loading it does.
VoltagePattern PatternFromFile(FileAccess& files, const std::string& path);

}  // namespace lobegraph
