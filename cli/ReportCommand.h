#pragma once

#include "cli/Command.h"
#include "cli/Options.h"

namespace lobegraph {

/// Reports on every file, in their order. A bad one is named on standard error and the others go on.
/// @return the program's exit code
int RunReport(const ReportRequest& request, const CommandParts& parts);

}  // namespace lobegraph
