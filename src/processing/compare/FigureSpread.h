#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "processing/Figures.h"

namespace lobegraph {

/// One figure of several turns of one antenna.
struct FigureSpread {
  std::string_view Key;             ///< as reports name it
  int Turns = 0;                    ///< that have it
  std::optional<double> Mean;       ///< none when no turn has it
  std::optional<double> Deviation;  ///< standard deviation (of a sample); none for fewer than two
};

/// Every figure, in the order of reports. Bearings are averaged round the circle.
std::vector<FigureSpread> SpreadsOf(std::span<const CutFigures> turns);

}  // namespace lobegraph
