#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/formats/PatternFormats.h"
#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// A pattern as a file of some format.
struct WrittenPattern {
  std::string Bytes;
  std::vector<std::string> Losses;  ///< what the file does not hold of the pattern, a sentence each
};

/// Writes a record as its plot shows it: trims and rotation applied where the format has no room for them. A
/// set that cannot be plotted whole (a level of 0 in it) is written all the same.
/// @param format one that writes
/// @param versionText what a pattern file names as its writer
/// @throws RunTimeError 13 (Type mismatch) for a record without a range of readings, and for a format of
/// directions without a level above 0
WrittenPattern WritePattern(const ReadingsRecord& record, const PatternFormat& format,
                            std::string_view versionText);

}  // namespace lobegraph
