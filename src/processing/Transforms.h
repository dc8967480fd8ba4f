#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/record/ReadingsRecord.h"
#include "processing/PlotResult.h"

namespace lobegraph {

/// Two passes of a three-point running mean over the plotted count, in place, each value raised by 0.1 so
/// that no level is 0 for the logarithm. Deliberate: the walk begins at reading 0 whatever the front trim,
/// while its two ends wrap to the ends of the plotted range.
/// @throws RunTimeError 6 or 9 for trims that leave no range
void Smooth(ReadingsRecord& record);

/// Reverses all readings, swaps the trims and mirrors a rotation that is not 0 (as the whole number its box
/// shows).
void Reverse(ReadingsRecord& record);

/// What became of a de-spike.
struct DeSpikeOutcome {
  bool Done = false;                   ///< false: refused before any change
  std::optional<std::string> Message;  ///< why it was refused, or that the originals came back
};

/// Replaces each plotted reading that differs from both neighbours by more than the level (strictly) by the
/// previous reading continued by the previous slope, at most the peak input level. When that makes any
/// reading negative, the saved readings come back and a message says so.
/// @throws RunTimeError 6 for trims beyond 16 bits
DeSpikeOutcome DeSpike(ReadingsRecord& record, std::int16_t spikeDetectLevel, float peakInputLevel);

/// The rotation that centres the beam between the -3 dB points on 0 degrees: a whole number, 0 to 359.
float OrientationOf(const ReadingsRecord& record, const PlotResult& plot);

/// Everything that a new pattern makes void: trims, rotation, count, file name; the description when it came
/// from a file.
void ClearPlotFields(ReadingsRecord& record, bool descriptionWasLoaded);

}  // namespace lobegraph
