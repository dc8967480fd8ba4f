#pragma once

#include <string>
#include <string_view>

#include "data/formats/LoadOutcome.h"
#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// Levels, one a field (.csv), as the readings editor takes them up: at most 360, the last one that is not 0
/// ends the set, trims and rotation stay.
/// @return Error 13 (Type mismatch) for a text without a level
LoadOutcome ReadLevels(std::string_view bytes, const LoadRules& rules, ReadingsRecord& record);

/// All readings as they were collected, one a line.
std::string WriteLevels(const ReadingsRecord& record, std::string_view versionText);

}  // namespace lobegraph
