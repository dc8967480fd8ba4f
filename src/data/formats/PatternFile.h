#pragma once

#include <string>
#include <string_view>

#include "data/base/FileAccess.h"
#include "data/formats/LoadOutcome.h"
#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// Reads a pattern file (".lbg") into a record: the fields of WritePatternText in their order.
/// Deliberate: reading 360 keeps its former value, and any text but exactly "Horizontal" or "180 plot" counts
/// as vertical or as a 360-degree set. The saved copy, the path and the name are the caller's.
/// @param bytes UTF-8 or Windows-1252; CR LF or LF
/// @return Error 62 for a cut file, 13 for a field that is no number, 6 for one that does not fit, 9 for more
/// than 361 readings or a peak index outside them.
LoadOutcome ReadPatternText(std::string_view bytes, const LoadRules& rules, ReadingsRecord& record);

/// The same from a file; a file that cannot be read is an error of the outcome (53, 75, 76).
LoadOutcome LoadPatternFile(FileAccess& files, const std::string& path, const LoadRules& rules,
                            ReadingsRecord& record);

/// The bytes of a pattern file: one field a line, CR LF: the last index; the readings; readings plotted; trim
/// END; rotate; peak level; peak index; trim FRONT; then the words. Deliberate: that order of the trims is
/// what makes files interchange. Double quotes and line breaks are dropped from the words, which have no way
/// to be escaped. Writes at most 360 readings: the caller has capped NumReadings (CapForFile).
std::string WritePatternText(const ReadingsRecord& record, std::string_view versionText);

/// A file holds at most 360 readings; the record keeps the capped value, and its saved copy has no more.
void CapForFile(ReadingsRecord& record);

/// A text that can stand between double quotes on one line: quotes and line breaks dropped.
std::string QuotableText(std::string_view text);

}  // namespace lobegraph
