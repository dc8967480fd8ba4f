#pragma once

namespace lobegraph {

/// The line on which the rotator's pulses come. This one has no device: it is low for ever, and only the
/// manual trigger fires.
class TriggerLine {
 public:
  virtual ~TriggerLine() = default;
  /// A wait begins: pulses from before are not for it.
  virtual void BeginWait() {}
  /// Level of the line now: 'H' or 'L'.
  virtual char ReadTriggerState() { return 'L'; }
  /// Rests between two polls.
  virtual void Rest() {}
};

}  // namespace lobegraph
