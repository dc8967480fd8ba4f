#pragma once

#include <functional>
#include <utility>

#include "acquisition/core/Clock.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/trigger/RotatorLine.h"

namespace lobegraph {

/// Waits for the rotator's pulse: the line goes high and then low once per step. The manual trigger button
/// stands in for a pulse at any time.
class RotatorTrigger {
 public:
  /// @param wanted whether a pulse is still asked for, looked at in each poll
  RotatorTrigger(RotatorLine& line, RunFlags& flags, EventPump& pump, std::function<bool()> wanted)
      : line_(line), flags_(flags), pump_(pump), wanted_(std::move(wanted)) {}

  /// Serves the window at each poll of the line. A line that is high already counts: its next low fires.
  /// @return true after a whole pulse or a manual trigger; false once HaltRequested is 1, which the port sets
  /// when it vanishes, or when no pulse is wanted any more
  bool WaitForTrigger();

 private:
  enum class Awaited { Came, Ended, Manual };
  Awaited Await(char state);

  RotatorLine& line_;
  RunFlags& flags_;
  EventPump& pump_;
  std::function<bool()> wanted_;
};

}  // namespace lobegraph
