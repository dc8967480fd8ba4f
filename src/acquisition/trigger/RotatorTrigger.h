#pragma once

#include "acquisition/core/Clock.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/trigger/TriggerLine.h"
#include "acquisition/trigger/TriggerWaiter.h"

namespace lobegraph {

/// Waits for the rotator's pulse: the line goes high and then low once per step. The manual trigger button
/// stands in for a pulse at any time.
class RotatorTrigger final : public TriggerWaiter {
 public:
  RotatorTrigger(TriggerLine& line, RunFlags& flags, EventPump& pump)
      : line_(line), flags_(flags), pump_(pump) {}

  /// A line that is high already counts: its next low fires.
  bool WaitForTrigger() override;

 private:
  enum class Awaited { Came, Halted, Manual };
  Awaited Await(char state);

  TriggerLine& line_;
  RunFlags& flags_;
  EventPump& pump_;
};

}  // namespace lobegraph
