#pragma once

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// The radiation pattern in the text that an antenna-modelling program writes: the table of NEC-2 and NEC-4
/// programs, or the far-field table "Deg V dB H dB Tot dB". The total gain counts. Of several cuts the one
/// with the strongest level among the longest is taken; azimuth (one elevation, all round) comes before
/// elevation. Models count angles counter-clockwise from forward (+X), which lies at the top of the plot.
/// However many cuts there are, one of them is in memory.
/// @param lines can be begun again
/// @throws RunTimeError 13 (Type mismatch) for a text without such a table
PatternTable ReadModelTable(TextLines& lines);

/// Whether such a table stands in a text.
bool LooksLikeModelTable(TextLines& lines);

/// Whether a text is the input of such a program, cards CM, CE, GW ..., which holds wires and no pattern.
bool LooksLikeModelDeck(TextLines& lines);

}  // namespace lobegraph
