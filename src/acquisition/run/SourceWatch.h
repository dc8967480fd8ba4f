#pragma once

#include <string>
#include <utility>

#include "acquisition/core/Clock.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/meters/MeterSilence.h"
#include "acquisition/meters/MeterState.h"
#include "acquisition/sound/SoundCapture.h"

namespace lobegraph {

/// The yield of a run. A sound source that breaks off is noticed at the next yield, a wait for a trigger
/// included, and ends a collection like a press of halt, so the readings taken so far are kept. A meter that
/// falls silent ends nothing: it is counted.
class SourceWatch final : public EventPump {
 public:
  SourceWatch(EventPump& pump, SoundCapture& sound, RunFlags& flags, const MeterState& meter, Clock& time)
      : pump_(pump), sound_(sound), flags_(flags), meter_(meter), time_(time) {}

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

  /// The meter's readings begin.
  void BeginMeter();
  /// A reading was taken from the meter. @return whether it was silent for too long already
  bool MeterReading(int index);
  /// @param gone the meter's port is closed
  SilentReadings EndMeter(bool gone) { return silence_.End(gone); }
  /// Readings in which a program that shows no sign of life repeated one value for 5 seconds or more.
  SilentReadings OneValue() {
    return meter_.Life.ToldByChangesOnly ? sameness_.End(false) : SilentReadings{};
  }

  /// Asks only here: between two yields no block is analysed, so silence there means nothing.
  void ProcessPendingEvents() override;
  void ServeWindow() override { pump_.ServeWindow(); }

 private:
  EventPump& pump_;
  SoundCapture& sound_;
  RunFlags& flags_;
  const MeterState& meter_;
  Clock& time_;
  bool watching_ = false;
  std::string failure_;
  MeterSilence silence_;
  MeterSilence sameness_;
};

}  // namespace lobegraph
