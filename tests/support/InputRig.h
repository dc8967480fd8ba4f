#pragma once

#include "acquisition/meters/ExternalMeter.h"
#include "acquisition/meters/InputDevices.h"
#include "acquisition/trigger/RotatorLine.h"
#include "app/parts/Globals.h"
#include "support/FakeClock.h"
#include "support/MeterFakes.h"
#include "support/RecordingStore.h"

namespace lobegraph::test {

/// Meters, triggers and the USB module as the program puts them together, over ports and a library in memory.
/// What they are asked to do stands in one log.
struct InputRig {
  InputRig(Globals& shared, std::vector<std::string>& log, SettingsStore& publishes, FakeClock& time)
      : Log(log), Shared(shared), Store(publishes), Time(time) {
    Display.OnChange = [this](const std::string& change) { Log.push_back(change); };
    Library.OnCall = [this](const std::string& call) { Log.push_back("module " + call); };
  }

  std::vector<std::string>& Log;
  Globals& Shared;
  SettingsStore& Store;
  FakeSCom MSComm1{Log, "meter"}, MSCommTrigger{Log, "trigger"};
  FakeD2xx Library;
  FakeDisplay Display;
  ShownMessages Messages;
  UsbModule Usb{Library, Display, Shared.Run, Messages};
  FakeClock& Time;
  dBMeter Meter{Shared.Meter, Shared.Settings, Display, Time};
  ExternalMeter Program{Store, Meter, Shared.Meter, Display, Time};
  InputDevices Devices{
      {MSComm1, MSCommTrigger, Usb, Display, Meter, Shared.Meter, Shared.Run, Shared.Settings, Messages}};
  RotatorLine Line{{Shared.Settings.Input, MSComm1, MSCommTrigger, Usb, Shared.Run, [] {}}};
};

}  // namespace lobegraph::test
