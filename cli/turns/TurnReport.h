#pragma once

#include <string>

#include "data/record/ReadingsRecord.h"
#include "data/turns/TurnFiles.h"

namespace lobegraph {

/// What a log says, for people: a line for each key, what was done to the readings since, and how many
/// readings bear each flag.
std::string TurnTable(const std::string& file, const TurnLog& log, const ReadingsRecord& record);

/// The same and every reading as an object on one line, line end included; its keys are an interface that
/// scripts rely on (see lobegraph-cli(1)). Without a log its "turn" is null.
std::string TurnLine(const std::string& file, const LogBeside& beside, const ReadingsRecord& record);

}  // namespace lobegraph
