#pragma once

#include <cstdint>

#include "render/Colour.h"

namespace lobegraph {

/// What decides how the empty plot looks.
struct GridOptions {
  bool LinearMode = false;    ///< the rectangular drawing instead of the circle
  bool ShowLogScale = true;   ///< logarithmic level lines; else evenly spaced ones
  bool chkPlotInDB = true;    ///< evenly spaced lines carry dB; else amplitudes
  std::int16_t Slider1 = 35;  ///< log scale factor, 10 to 100; never 0
  bool Overlay = false;       ///< a second pattern is coming: what is drawn stays
  Colour PlotGridColour;      ///< the whole grid and its labels
  Colour PlotUserColour;      ///< the trace colour once a circular grid is finished
};

}  // namespace lobegraph
