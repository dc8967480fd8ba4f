#pragma once

#include <string>
#include <string_view>

#include "data/formats/PatternFile.h"

namespace lobegraph {

/// The formats that have a name of their own; anything else is taken for a pattern file.
enum class PatternFormat { Lbg, Csv, Planet, Splat, RadioMobile, Nsma, Model };

/// By the ending of a name, in any letter case; a text file by what stands in it.
PatternFormat FormatOf(const std::string& path, std::string_view bytes = {});

/// Reads a pattern of any format into a fresh record. Levels of foreign formats reach up to 1000.
/// @param table a CSV file has several columns; else it is one level after the other, as the editor reads it
/// @return Error 13 for a text without a pattern, or as ReadPatternText
LoadOutcome ReadPattern(const std::string& path, std::string_view bytes, const LoadRules& rules, bool table,
                        ReadingsRecord& record);

}  // namespace lobegraph
