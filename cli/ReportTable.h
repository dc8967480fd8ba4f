#pragma once

#include <string>

#include "cli/OpenPattern.h"

namespace lobegraph {

/// The heading of the table that people read, line end included.
std::string TableHeading();

/// A row of it; "-" for a figure that the pattern does not have.
std::string TableRow(const OpenedPattern& pattern, const std::string& file);

}  // namespace lobegraph
