#pragma once

#include <string>
#include <string_view>

#include "data/PatternFile.h"

namespace lobegraph {

/// Reads a pattern into a record by the ending of its name; anything that is no known foreign ending is a
/// pattern file.
LoadOutcome ReadPattern(const std::string& path, std::string_view bytes, const LoadRules& rules,
                        ReadingsRecord& record);

}  // namespace lobegraph
