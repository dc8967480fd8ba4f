#pragma once

#include <cmath>
#include <optional>

namespace lobegraph {

/// When a moment of the audio is heard. What the sound server says of its buffers wavers; the sum does not.
class HeardAt {
 public:
  /// @param audioS the moment that is made now. @param monotonicS when the server thinks that it will sound
  void Sync(double audioS, double monotonicS) {
    constexpr double kShare = 0.02, kOtherS = 0.1;
    const double offset = monotonicS - audioS;
    const bool other =
        !offsetS_ || std::abs(offset - *offsetS_) > kOtherS;  // the stream stood still meanwhile
    offsetS_ = other ? offset : *offsetS_ + kShare * (offset - *offsetS_);
  }
  /// Seconds of the monotonic clock.
  double MonotonicS(double audioS) const { return audioS + offsetS_.value_or(0); }

 private:
  std::optional<double> offsetS_;
};

}  // namespace lobegraph
