#pragma once

#include "data/record/ScaleSetting.h"

namespace lobegraph {

/// How a level becomes a radius.
enum class PlotScale {
  Logarithmic,  ///< R * 10^(-dB / scale setting)
  Db50,         ///< linear in dB, 50 dB from rim to centre
  Linear,       ///< proportional to the level
};

/// The scale that two choices make. @param inDb radii in dB @param logarithmic on the logarithmic scale
constexpr PlotScale ScaleOf(bool inDb, bool logarithmic) {
  if (!inDb) return PlotScale::Linear;
  return logarithmic ? PlotScale::Logarithmic : PlotScale::Db50;
}

/// How a pattern is shown: by plots, grids, traces, and whoever reads levels off them.
struct PlotStyle {
  bool Rectangular = false;  ///< level over angle instead of the circle
  PlotScale Scale = PlotScale::Logarithmic;
  int ScaleSetting = scale_setting::kUsual;  ///< used by the logarithmic scale
  bool Minus3dBMarks = true;                 ///< lines at the -3 dB points

  constexpr bool Logarithmic() const { return Scale == PlotScale::Logarithmic; }
  /// Levels are read in dB; else in shares of the strongest.
  constexpr bool InDb() const { return Scale != PlotScale::Linear; }

  constexpr bool operator==(const PlotStyle&) const = default;
};

/// Full-scale radius R in surface units: the 0 dB ring, and the amplitude 1.0.
inline constexpr float kFullScaleRadius = 234.F;

}  // namespace lobegraph
