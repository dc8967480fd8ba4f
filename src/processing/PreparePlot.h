#pragma once

#include "data/record/ReadingsRecord.h"
#include "processing/PlotRange.h"
#include "processing/PlotResult.h"

namespace lobegraph {

/// How a plot is made, besides the record.
struct PlotOptions {
  bool LinearMode = false;        ///< the rectangular drawing
  bool ShowLogScale = true;       ///< the logarithmic-scale flag
  bool chkPlotInDB = true;        ///< dB radii; else linear ones
  bool chkCalibrate = false;      ///< a short set is plotted
  float PeakInputLevel = 1000.F;  ///< full scale, in the unit of the readings
  float ScaleSetting = 35.F;      ///< value of the scale slider
  float FullScaleRadius = 234.F;  ///< R, surface units
};

/// Checks the boxes and settles how many readings are plotted, how far apart and how rotated. When it passed
/// (FieldsShown) the record's plot fields are what their boxes show; the trace is still to be computed.
/// @throws RunTimeError 6
PlotResult BeginPlot(ReadingsRecord& record, const PlotTexts& texts, const PlotOptions& options);

/// The rest: peak, trace, -3 dB points, beamwidth and gain, into a result that BeginPlot has passed.
/// @throws RunTimeError 11 for a reading of 0, 5 for a negative one, 9 for a peak outside the readings; what
/// was settled before stays in the record.
void CompletePlot(ReadingsRecord& record, const PlotOptions& options, PlotResult& result);

/// BeginPlot and CompletePlot in one, for those who show nothing in between.
PlotResult PreparePlot(ReadingsRecord& record, const PlotTexts& texts, const PlotOptions& options);

/// The original-data command: the saved readings and their count come back, trims are 0, and the whole set is
/// plotted without -3 dB points and figures.
/// @throws as CompletePlot
PlotResult PlotOriginal(ReadingsRecord& record, const PlotOptions& options);

}  // namespace lobegraph
