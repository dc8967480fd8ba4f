#pragma once

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// Cuts of TICRA GRASP (.cut): for each a line of text, a line "V_INI V_INC V_NUM C ICOMP ICUT NCOMP" and
/// V_NUM lines with the real and imaginary part of each component. Of the components the stronger one of the
/// first two counts, of total power (ICOMP 9) the first. A conical cut (ICUT 2, one theta, all round) counts
/// its phi counter-clockwise with +X at the top of the plot; a polar cut (ICUT 1, one phi) has its axis there
/// and theta clockwise. Conical cuts come before polar ones; of several the longest is taken, among equals
/// the one with the strongest level.
/// @throws RunTimeError 13 (Type mismatch) for a text without a cut, and for components that are ratios
/// (ICOMP 5 to 8), 62 (Input past end of file) for one that breaks off
PatternTable ReadGraspCut(TextLines& lines);

}  // namespace lobegraph
