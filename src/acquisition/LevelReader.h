#pragma once

#include "acquisition/Clock.h"
#include "acquisition/CollectionPanel.h"
#include "acquisition/MeterState.h"
#include "acquisition/RunFlags.h"
#include "acquisition/SoundLevel.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// One sample of the chosen input.
class LevelReader {
 public:
  virtual ~LevelReader() = default;
  /// Linear level: 1 to the peak input level (sound card), 1 to 1000 (meters).
  virtual float ReadInputLevel() = 0;
};

/// A meter whose value is fetched at each sample: the external meter program.
class MeterPoll {
 public:
  virtual ~MeterPoll() = default;
  virtual void Poll() = 0;
};

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
