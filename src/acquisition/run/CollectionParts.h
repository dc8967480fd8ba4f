#pragma once

#include <functional>

#include "acquisition/core/Clock.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/core/UserMessages.h"
#include "acquisition/meters/ExternalMeter.h"
#include "acquisition/meters/LevelSource.h"
#include "acquisition/meters/MeterState.h"
#include "acquisition/run/RunEvents.h"
#include "acquisition/run/SourceWatch.h"
#include "acquisition/serial/SCom.h"
#include "acquisition/sound/SoundCapture.h"
#include "data/record/ReadingsRecord.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// All that a run works with; everything outlives it. Settings and choice are read when they are needed, so a
/// change made in the middle of a sweep counts at its next point.
struct CollectionParts {
  Clock& Time;
  SourceWatch& Pump;
  RunFlags& Flags;
  ReadingsRecord& Record;
  std::function<float()> ReadInputLevel;  ///< one sample, see ChosenInput
  std::function<bool()> WaitForTrigger;   ///< see RotatorTrigger
  SoundCapture& Sound;
  SCom& MSComm1;
  MeterState& Meter;
  ExternalMeter& Program;
  const SettingsValues& Settings;
  RunFront Window;
  float FullScaleRadius;    ///< of the plot, surface units
  UserMessages& Messages;   ///< refusals, shown at once: nothing runs then
  DeviceMessages& Waiting;  ///< what devices had to say during the run, shown after the unlock

  const LevelSource& Source() const { return SourceOf(Settings.Input); }
  bool FromSoundCard() const { return !Source().IsMeter(); }
};

}  // namespace lobegraph
