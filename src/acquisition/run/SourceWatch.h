#pragma once

#include <string>
#include <utility>

#include "acquisition/core/Clock.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/sound/SoundCapture.h"

namespace lobegraph {

/// The yield of a run. A sound source that breaks off is noticed at the next yield, a wait for a trigger
/// included, and ends a collection like a press of halt, so the readings taken so far are kept.
class SourceWatch final : public EventPump {
 public:
  SourceWatch(EventPump& pump, SoundCapture& sound, RunFlags& flags)
      : pump_(pump), sound_(sound), flags_(flags) {}

  /// Capture has started: watched from now on.
  void Begin() {
    watching_ = true;
    failure_.clear();
  }
  /// Watches no longer. @return why the source broke off; empty when it did not
  std::string End() {
    watching_ = false;
    return std::exchange(failure_, {});
  }
  bool Lost() const { return !failure_.empty(); }

  /// Asks only here: between two yields no block is analysed, so silence there means nothing.
  void ProcessPendingEvents() override {
    pump_.ProcessPendingEvents();
    if (!watching_ || Lost()) return;
    failure_ = sound_.SoundFailure();
    if (Lost()) flags_.HaltRequested = 1;
  }

 private:
  EventPump& pump_;
  SoundCapture& sound_;
  RunFlags& flags_;
  bool watching_ = false;
  std::string failure_;
};

}  // namespace lobegraph
