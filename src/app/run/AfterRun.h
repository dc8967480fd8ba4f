#pragma once

#include <string>
#include <vector>

#include "acquisition/core/UserMessages.h"
#include "acquisition/run/RunReport.h"
#include "acquisition/run/TurnHint.h"

namespace lobegraph {

/// What a run's report is told as, once the window is unlocked: readings that must not be trusted, in boxes.
std::vector<UserMessage> BoxesAfterRun(const RunReport& report);

/// Why what the program keeps of a turn could not be written; empty where it could.
struct KeepingTrouble {
  std::string Copy;  ///< the pattern in the state folder
  std::string Log;
};

/// What can be said after a turn: what to distrust, and what to do next.
TurnHint HintAfterRun(const RunReport& report, const KeepingTrouble& trouble);

}  // namespace lobegraph
