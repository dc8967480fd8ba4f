#pragma once

#include <cmath>

#include "data/table/PatternTable.h"

namespace lobegraph {

/// A lopsided pattern with its strongest level at 40 degrees and a deep null at 200, and every word that a
/// format may have room for.
inline PatternTable LopsidedTable() {
  PatternTable table{.Name = "3 el, yagi", .CollectedBy = "DL1ABC", .CollectedDate = "20240201"};
  table.Horizontal = false;
  table.GainDbi = 8.25;
  table.BeamwidthDeg = 60.5;
  table.FrontToBackDb = 14.0;
  for (int d = 0; d < 360; ++d)
    table.Points.push_back(
        {1.0 * d, -15.0 + 15.0 * std::cos((d - 40) / 57.29577951) - (d == 200 ? 25.0 : 0.0)});
  return table;
}

}  // namespace lobegraph
