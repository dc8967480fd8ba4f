#pragma once

#include "acquisition/core/Clock.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/trigger/RotatorLine.h"

namespace lobegraph {

/// Waits for the rotator's pulse: the line goes high and then low once per step. The manual trigger button
/// stands in for a pulse at any time.
class RotatorTrigger {
 public:
  RotatorTrigger(RotatorLine& line, RunFlags& flags, EventPump& pump)
      : line_(line), flags_(flags), pump_(pump) {}

  /// Serves the window at each poll of the line. A line that is high already counts: its next low fires.
  /// @return true after a whole pulse or a manual trigger; false once HaltRequested is 1
  bool WaitForTrigger();

 private:
  enum class Awaited { Came, Halted, Manual };
  Awaited Await(char state);

  RotatorLine& line_;
  RunFlags& flags_;
  EventPump& pump_;
};

}  // namespace lobegraph
