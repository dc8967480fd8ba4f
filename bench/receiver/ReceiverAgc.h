#pragma once

namespace lobegraph {

/// Automatic gain: holds the largest samples at a target; the gain falls within the attack time and comes
/// back within the decay time.
class ReceiverAgc {
 public:
  ReceiverAgc(double attackSeconds, double decaySeconds, double target, double samplesPerSecond);

  double Next(double sample);

 private:
  double target_;
  double attack_;  ///< share of the way per sample
  double decay_;
  double envelope_;
};

}  // namespace lobegraph
