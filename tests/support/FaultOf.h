#pragma once

#include "data/base/RunTimeError.h"

namespace lobegraph {

/// Number of the fault that an action ends with; 0 for none.
int FaultOf(const auto& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace lobegraph
