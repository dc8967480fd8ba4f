#pragma once

namespace lobegraph {

/// Waits for the rotator's pulse.
class TriggerWaiter {
 public:
  virtual ~TriggerWaiter() = default;
  /// Serves the window at each poll of the line.
  /// @return true after a whole pulse or a manual trigger; false once HaltRequested is 1
  virtual bool WaitForTrigger() = 0;
};

}  // namespace lobegraph
