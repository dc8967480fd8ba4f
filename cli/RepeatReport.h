#pragma once

#include "cli/Command.h"
#include "cli/Options.h"

namespace lobegraph {

/// `report --repeat`: turns of one antenna on top of each other. A table of the figures with their spread, or
/// one object with mean and standard deviation of each degree as well.
/// @return kSomeFailed when a file could not be used; nothing is said of the others then
int RunRepeat(const ReportRequest& request, const CommandParts& parts);

}  // namespace lobegraph
