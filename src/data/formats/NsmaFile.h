#pragma once

#include <string>

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// NSMA WG16.99.050 (.adf): the first cut that is one of azimuth; the structure stands in docs/formats.md.
/// The dirt of other writers is taken; a line that cannot be read is passed over.
/// @throws RunTimeError 13 (Type mismatch) for a text without an azimuth cut
PatternTable ReadNsma(TextLines& lines);

/// 361 points from -180 to 180 degrees.
/// A text as it stands there: without what separates, at most as long as the name of a model may be.
std::string NsmaText(std::string_view text);

std::string WriteNsma(const PatternTable& table);

}  // namespace lobegraph
