#include "bench/receiver/ReceiverAgc.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

constexpr double kQuietest = 1e-4;  ///< of the target: no receiver has more than 80 dB of gain in hand

double ShareOf(double seconds, double samplesPerSecond) {
  return 1.0 - std::exp(-1.0 / (seconds * samplesPerSecond));
}

}  // namespace

ReceiverAgc::ReceiverAgc(double attackSeconds, double decaySeconds, double target, double samplesPerSecond)
    : target_(target),
      attack_(ShareOf(attackSeconds, samplesPerSecond)),
      decay_(ShareOf(decaySeconds, samplesPerSecond)),
      envelope_(target) {}

double ReceiverAgc::Next(double sample) {
  const double size = std::abs(sample);
  envelope_ += (size > envelope_ ? attack_ : decay_) * (size - envelope_);
  return sample * target_ / std::max(envelope_, kQuietest * target_);
}

}  // namespace lobegraph
