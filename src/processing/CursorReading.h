#pragma once

#include <optional>
#include <string>

#include "processing/Figures.h"

namespace lobegraph {

/// The reading at a bearing.
struct CursorReading {
  double BearingDeg = 0.0;  ///< of the reading, 0 up to 360
  double LevelDb = 0.0;     ///< relative to the strongest plotted one, at most 0
  int Number = 0;           ///< from 1, trimmed readings counted
  int Of = 0;               ///< all readings of the record
};

/// The plotted reading next to a bearing. @param bearingDeg any; 0 is the top of the plot
/// @return none beyond the ends of a half turn, by more than half a step, and where levels have no dB value
std::optional<CursorReading> ReadingAt(const ReadingsRecord& record, double bearingDeg);

/// So many plotted readings further, around a whole turn; at the ends of a half turn it stays.
/// @param number of a reading, or 0 for none: then it begins at the strongest
std::optional<CursorReading> ReadingBeside(const ReadingsRecord& record, int number, int steps);

/// "Bearing 47: -12.3 dB, reading 48 of 360."
std::string CursorText(const CursorReading& reading);

}  // namespace lobegraph
