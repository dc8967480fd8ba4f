#pragma once

#include "acquisition/rotator/RotatorControl.h"
#include "support/FakeRotator.h"

namespace lobegraph::test {

/// A control and its rotator; time passes by Pass.
struct RotatorRig {
  FakeRotator Rotator;
  RotatorControl Control{Rotator};

  void Pass(double seconds) {
    constexpr double kPollS = 0.1;
    for (double left = seconds; left > 1e-9; left -= kPollS) {
      Rotator.Advance(std::min(left, kPollS));
      Control.Poll(Rotator.NowS);
    }
  }
  void Connect() {
    Control.Connect({1, "", 0}, Rotator.NowS);
    Pass(1);
  }
  /// Connected, and the user has said that the way is free.
  void ConnectToDrive() {
    Connect();
    Control.Consent().Tick(true);
    Control.Consent().Answer(true);
  }
};

}  // namespace lobegraph::test
