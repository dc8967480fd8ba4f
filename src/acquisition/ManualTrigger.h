#pragma once

#include "acquisition/Clock.h"
#include "acquisition/RunFlags.h"
#include "acquisition/TriggerWaiter.h"

namespace lobegraph {

/// Waits for the manual trigger button: each press takes one reading.
class ManualTrigger final : public TriggerWaiter {
 public:
  ManualTrigger(RunFlags& flags, EventPump& pump, Clock& clock) : flags_(flags), pump_(pump), clock_(clock) {}

  bool WaitForTrigger() override {
    while (!flags_.ManualTriggerPressed) {
      if (flags_.HaltRequested == 1) return false;
      Pause(pump_, clock_, 1);
    }
    flags_.ManualTriggerPressed = false;
    return true;
  }

 private:
  RunFlags& flags_;
  EventPump& pump_;
  Clock& clock_;
};

}  // namespace lobegraph
