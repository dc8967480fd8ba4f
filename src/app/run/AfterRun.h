#pragma once

#include <string>
#include <vector>

#include "acquisition/core/UserMessages.h"
#include "acquisition/run/RunReport.h"
#include "acquisition/run/TurnHint.h"

namespace lobegraph {

/// What a run's report is told as, once the window is unlocked: readings that must not be trusted, in boxes.
std::vector<UserMessage> BoxesAfterRun(const RunReport& report);

/// What can be said after a turn: what to distrust, and what to do next.
/// @param copyFailure why the safety copy could not be written; empty when it could
TurnHint HintAfterRun(const RunReport& report, const std::string& copyFailure);

}  // namespace lobegraph
