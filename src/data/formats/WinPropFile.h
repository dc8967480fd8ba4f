#pragma once

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// ASCII antenna pattern of WinProp (.aha horizontal, .ava vertical): the number of pairs, then an angle in
/// degrees and a gain in dBi a line, in any order and at any step; "*" or "#" begins a comment.
/// @throws RunTimeError 13 (Type mismatch) for anything else and for more pairs than were counted, 62 (Input
/// past end of file) for fewer
PatternTable ReadWinProp(TextLines& lines);

}  // namespace lobegraph
