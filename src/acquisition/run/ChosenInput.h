#pragma once

#include "acquisition/core/Clock.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/meters/ExternalMeter.h"
#include "acquisition/meters/MeterState.h"
#include "acquisition/run/RunEvents.h"
#include "acquisition/sound/SoundLevel.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// Takes each sample from the source that the user chose.
class ChosenInput {
 public:
  struct Parts {
    const SettingsValues& Settings;
    const RunFlags& Flags;
    SoundLevelState& Sound;
    const SoundThresholds& Thresholds;
    const MeterState& Meter;
    ExternalMeter& Program;
    EventPump& Pump;
    Clock& Time;
    std::function<void(const RunEvent&)> Tell;
  };
  explicit ChosenInput(const Parts& parts) : parts_(parts) {}

  /// Linear level: 1 to the peak input level (sound card), 1 to 1000 (meters).
  /// Sound card: sleeps to the next millisecond tick, and paints the level's box by the level. Meter: serves
  /// the window once and lasts 5 ms, in which its next value comes in.
  float ReadInputLevel();

 private:
  float ReadSoundCard();
  float ReadMeter(bool polled);

  Parts parts_;
};

}  // namespace lobegraph
