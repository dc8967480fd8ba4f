#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/base/RunTimeError.h"

namespace lobegraph {

/// What a load needs to know besides the file.
struct LoadRules {
  bool Overlay = false;           ///< the record keeps its scale setting
  float PeakInputLevel = 1000.F;  ///< a pattern stronger than this is loaded with a warning
  bool Columns = false;           ///< a CSV file has columns of angle and level; else one level after another
};

/// What became of a load. The record holds the fields read before an error.
struct LoadOutcome {
  std::optional<RunTimeError> Error;
  std::vector<std::string> Messages;  ///< warnings the user is shown, in order
  bool DescriptionRead = false;       ///< the file got as far as its description
};

}  // namespace lobegraph
