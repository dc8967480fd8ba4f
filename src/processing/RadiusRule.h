#pragma once

#include "processing/PlotStyle.h"

namespace lobegraph {

/// The radius of a level, live and redrawn alike: only the reference differs (the peak input level while
/// readings come in, the strongest reading afterwards).
/// @param fullScale R, surface units @param levelRatio level / reference, used by the linear scale
/// @param downDb dB below the reference, used by the other two
/// @param scaleSetting used by the logarithmic scale
/// @return surface units; never below 0 on the 50 dB scale
/// @throws RunTimeError 11 for a scale setting of 0 on the logarithmic scale
float PlotRadius(PlotScale scale, float fullScale, float levelRatio, float downDb, float scaleSetting);

}  // namespace lobegraph
