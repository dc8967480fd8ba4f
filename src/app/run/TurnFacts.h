#pragma once

#include <string>
#include <string_view>

#include "acquisition/run/RunEvents.h"
#include "acquisition/run/RunReport.h"
#include "app/parts/Globals.h"
#include "data/turns/TurnKeeper.h"

namespace lobegraph {

/// What a turn's log tells of how it was taken. What is not known is not said.
/// @param source as the main window names it
TurnStart TurnStartOf(const Globals& shared, const RunControls& controls, const std::string& source);

/// A reading as the log has it.
ReadingTaken ReadingTakenOf(const run_event::ReadingStored& reading);

/// Why a turn took no further reading, in the log's words.
std::string_view EndOf(const RunReport& report);

/// What is known of the readings only at the end, and every remark, into the log that is not yet finished.
void NoteReport(const RunReport& report, TurnKeeper& keeper);

}  // namespace lobegraph
