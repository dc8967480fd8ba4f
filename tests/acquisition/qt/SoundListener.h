#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "acquisition/qt/PulseCapture.h"
#include "acquisition/qt/QtEventPump.h"
#include "acquisition/qt/SystemClock.h"
#include "acquisition/sound/SoundCapture.h"

namespace lobegraph::test {

/// The program's own sound input, whole, as the main window holds it.
struct SoundListener {
  SoundLevelState State;
  QtEventPump Pump;
  PulseCapture Device{&Pump.Gate()};
  frmDX_Record Form{Device, State};
  SystemClock Time;
  SoundCardCapture Capture{Form, State, Time, Pump};

  /// Yields as a run does until reached() holds. @return whether it came to that in time
  bool YieldUntil(const std::function<bool()>& reached, int limitMs) {
    for (const std::int32_t start = Time.timeGetTime(); Time.timeGetTime() - start < limitMs;) {
      Pump.ProcessPendingEvents();
      if (reached()) return true;
      Time.Sleep(2);
    }
    return false;
  }
};

}  // namespace lobegraph::test
