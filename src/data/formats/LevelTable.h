#pragma once

#include <string>

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// Reads a table of several columns (or one), whatever wrote it: finds the separator (comma, semicolon, tab
/// or blanks), a heading, decimal commas, the column of angles and that of levels, and whether those are dB.
/// A column is known by its heading (angle, azimuth, deg, position; dB, gain, total, level, ...); without
/// headings two columns are angle and level. Levels with a negative one among them are dB, others linear
/// unless the heading says dB. Without angles the rows are spread over the turn.
/// @param lines can be begun again
/// @throws RunTimeError 13 (Type mismatch) for a text without numbers
PatternTable ReadLevelTable(TextLines& lines);

/// "index,angle,level,dB" and a row for each plotted reading.
std::string WriteLevelTable(const PatternTable& table);

}  // namespace lobegraph
