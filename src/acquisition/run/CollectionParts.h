#pragma once

#include "acquisition/core/Clock.h"
#include "acquisition/core/LevelReader.h"
#include "acquisition/core/MeterWindow.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/core/UserMessages.h"
#include "acquisition/meters/MeterState.h"
#include "acquisition/run/CollectionPanel.h"
#include "acquisition/run/SourceWatch.h"
#include "acquisition/serial/MeterPort.h"
#include "acquisition/sound/SoundCapture.h"
#include "acquisition/trigger/TriggerWaiter.h"
#include "data/record/ReadingsRecord.h"
#include "settings/SettingsStore.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// All that a run works with; everything outlives it. Settings and choice are read when they are needed, so a
/// change made in the middle of a sweep counts at its next point.
struct CollectionParts {
  Clock& Time;
  SourceWatch& Pump;
  RunFlags& Flags;
  ReadingsRecord& Record;
  LevelReader& Level;
  TriggerWaiter& Trigger;
  SoundCapture& Sound;
  MeterPort& MSComm1;
  MeterWindow& frmdBMeter;
  const MeterState& Meter;
  SettingsStore& Store;
  const SettingsValues& Settings;
  CollectionPanel& Panel;
  UserMessages& Messages;   ///< refusals, shown at once: nothing runs then
  DeviceMessages& Waiting;  ///< what devices had to say during the run, shown after the unlock

  bool FromSoundCard() const { return !Settings.Input.InputDeviceIsdBMeter; }
};

}  // namespace lobegraph
