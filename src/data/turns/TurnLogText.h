#pragma once

#include <string>
#include <string_view>

#include "data/turns/TurnLog.h"

namespace lobegraph {

/// The log as a file: a line "# key: value" for each key, then the table by RFC 4180 with its heading, all
/// lines ended by CR LF. UTF-8. docs/formats.md tells it for other programs.
std::string TurnLogText(const TurnLog& log);

/// What stands before the first row while a turn goes on; rows follow by RowText as they are taken.
std::string TurnLogHead(const TurnLog& log);
std::string TurnRowText(const TurnLog::Row& row);

/// A log of a kill at any moment is read up to its last whole line: a line without its end does not count.
/// @throws RunTimeError 13 (Type mismatch) when this is no log of a turn: no heading with the columns
/// "reading" and "level", or more lines than any turn has
TurnLog ReadTurnLog(std::string_view bytes);

/// The largest file that is looked at, bytes: above it stands no log of a turn.
inline constexpr std::size_t kLargestTurnLog = 16U << 20U;

}  // namespace lobegraph
