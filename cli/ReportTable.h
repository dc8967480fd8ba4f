#pragma once

#include <string>

#include "cli/PatternSession.h"

namespace lobegraph {

/// The heading of the table that people read, line end included.
std::string TableHeading();

/// A row of it; "-" for a figure that the pattern does not have.
std::string TableRow(const PatternSession& session, const std::string& file);

}  // namespace lobegraph
