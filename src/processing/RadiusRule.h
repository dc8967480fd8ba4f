#pragma once

#include "processing/PlotResult.h"

namespace lobegraph {

/// Which scale the check box and the flag choose.
/// @param plotInDb the plot-in-dB box is ticked @param logarithmic the logarithmic-scale flag
constexpr PlotScale ScaleOf(bool plotInDb, bool logarithmic) {
  if (!plotInDb) return PlotScale::Linear;
  return logarithmic ? PlotScale::Logarithmic : PlotScale::Db50;
}

/// The radius of a level, live and redrawn alike: only the reference differs (the peak input level while
/// readings come in, the strongest reading afterwards).
/// @param fullScale R, surface units @param levelRatio level / reference, used by the linear scale
/// @param downDb dB below the reference, used by the other two
/// @param scaleSetting value of the scale slider, used by the logarithmic scale
/// @return surface units; never below 0 on the 50 dB scale
/// @throws RunTimeError 11 for a scale setting of 0 on the logarithmic scale
float PlotRadius(PlotScale scale, float fullScale, float levelRatio, float downDb, float scaleSetting);

}  // namespace lobegraph
