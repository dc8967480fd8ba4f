#pragma once

#include <vector>

#include "processing/quality/Arcs.h"
#include "processing/quality/TurnReadings.h"

namespace lobegraph {

/// The stretches of readings for which a condition holds.
/// @param holds bool(std::size_t index)
template <typename Condition>
std::vector<Arc> ArcsWhere(const TurnReadings& turn, Condition holds) {
  std::vector<int> indices;
  for (std::size_t i = 0; i < turn.Levels.size(); ++i)
    if (holds(i)) indices.push_back(static_cast<int>(i));
  return ArcsOf(indices);
}

/// The middle value; the mean of the two middle ones of an even count. @param values not empty
double MedianOf(std::vector<double> values);

}  // namespace lobegraph
