#pragma once

#include "cli/Command.h"
#include "cli/Options.h"

namespace lobegraph {

/// Reads one file and writes another by the endings of their names. What the new format cannot hold is said
/// on standard error.
/// @param versionText what a pattern file names as its writer
/// @return the program's exit code
int RunConvert(const ConvertRequest& request, const CommandParts& parts, const std::string& versionText);

}  // namespace lobegraph
