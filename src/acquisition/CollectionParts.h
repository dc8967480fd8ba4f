#pragma once

#include "acquisition/Clock.h"
#include "acquisition/CollectionPanel.h"
#include "acquisition/LevelReader.h"
#include "acquisition/MeterPort.h"
#include "acquisition/MeterWindow.h"
#include "acquisition/RunFlags.h"
#include "acquisition/SoundCapture.h"
#include "acquisition/SourceWatch.h"
#include "acquisition/TriggerWaiter.h"
#include "acquisition/UserMessages.h"
#include "data/ReadingsRecord.h"
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
