#pragma once

#include <cstdint>

#include "data/record/ReadingsRecord.h"
#include "processing/PlotRange.h"
#include "processing/PlotResult.h"

namespace lobegraph {

/// What every pattern is held against.
struct PatternRules {
  float PeakInputLevel = 1000.F;       ///< full scale, in the unit of the readings
  std::int16_t SpikeDetectLevel = 50;  ///< a reading this far from both neighbours is a spike
  bool AnyLength = false;              ///< a set of less than 60 readings is plotted as well: calibrating
};

/// Checks the placement and settles how many readings are plotted, how far apart and how rotated. When it
/// passed (FieldsSettled) the record's plot fields are to be shown; the trace is still to be computed.
/// @throws RunTimeError 6
PlotResult BeginPlot(ReadingsRecord& record, const Placement& placement, const PlotStyle& style,
                     const PatternRules& rules);

/// The rest: peak, trace, -3 dB points, beamwidth and gain, into a result that BeginPlot has passed.
/// @throws RunTimeError 11 for a reading of 0, 5 for a negative one, 9 for a peak outside the readings; what
/// was settled before stays in the record.
void CompletePlot(ReadingsRecord& record, const PlotStyle& style, const PatternRules& rules,
                  PlotResult& result);

/// BeginPlot and CompletePlot in one, for those who show nothing in between.
PlotResult PreparePlot(ReadingsRecord& record, const Placement& placement, const PlotStyle& style,
                       const PatternRules& rules);

/// The original-data command: the saved readings and their count come back, trims are 0, and the whole set is
/// plotted without -3 dB points and figures.
/// @throws as CompletePlot
PlotResult PlotOriginal(ReadingsRecord& record, const PlotStyle& style, const PatternRules& rules);

}  // namespace lobegraph
