#pragma once

#include "acquisition/core/Clock.h"
#include "acquisition/core/LevelReader.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/meters/MeterState.h"
#include "acquisition/run/CollectionPanel.h"
#include "acquisition/sound/SoundLevel.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// Takes each sample from the source that the user chose.
class ChosenInput final : public LevelReader {
 public:
  struct Parts {
    const SettingsValues& Settings;
    const RunFlags& Flags;
    SoundLevelState& Sound;
    const SoundThresholds& Thresholds;
    const MeterState& Meter;
    MeterPoll& ExternalMeter;
    EventPump& Pump;
    Clock& Time;
    CollectionPanel& Panel;
  };
  explicit ChosenInput(const Parts& parts) : parts_(parts) {}

  /// Sound card: sleeps to the next millisecond tick, and paints the level's box by the level. Meter: serves
  /// the window once and lasts 5 ms, in which its next value comes in.
  float ReadInputLevel() override;

 private:
  float ReadSoundCard();
  float ReadMeter();

  Parts parts_;
};

}  // namespace lobegraph
