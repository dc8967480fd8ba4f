#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/base/FileAccess.h"
#include "data/record/ReadingsRecord.h"
#include "data/turns/TurnLog.h"

namespace lobegraph {

/// The log found beside a pattern file.
struct LogBeside {
  std::optional<TurnLog> Log;  ///< none: there is none, or it is not to be believed
  std::string Note;            ///< why it is not believed, for people; empty when there is nothing to say
};

/// Reads the log beside a pattern file that was loaded as this record. One that cannot be read, is no log, or
/// belongs to another pattern costs nothing but a note; it stays where it lies.
LogBeside ReadLogBeside(FileAccess& files, const std::string& patternPath, const ReadingsRecord& record);

/// Saves a pattern, and its log beside it. Both are replaced, or neither: when the pattern cannot be written
/// the former log is there again. Where nothing is known of the new pattern's turn, or its log cannot be
/// written, the log of the former pattern goes with it; one that belongs to neither is left alone.
/// @param pattern bytes of the pattern file
/// @param log none: nothing is known of the turn
/// @return why the log could not be written, for people; empty when it could or there is none. The pattern is
/// saved all the same.
/// @throws RunTimeError 61, 75, 76 when the pattern could not be saved
std::string SaveTurn(FileAccess& files, const std::string& patternPath, std::string_view pattern,
                     const std::optional<TurnLog>& log);

}  // namespace lobegraph
