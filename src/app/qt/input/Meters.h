#pragma once

#include <QTimer>

#include "acquisition/meters/ExternalMeter.h"
#include "acquisition/meters/InputDevices.h"
#include "acquisition/qt/FtdiModule.h"
#include "acquisition/qt/SerialControl.h"
#include "acquisition/qt/SystemClock.h"
#include "acquisition/serial/ComPorts.h"
#include "acquisition/trigger/RotatorLine.h"
#include "app/parts/Globals.h"
#include "app/qt/input/MeterForm.h"

namespace lobegraph {

/// Meters and triggers put together: ports, USB module, meter window and what they share.
class Meters {
 public:
  Meters(Globals& shared, SettingsStore& store, SystemClock& clock, UserMessages& messages);
  Meters(const Meters&) = delete;
  Meters& operator=(const Meters&) = delete;

  InputDevices& Devices() { return devices_; }
  SCom& MSComm1() { return MSComm1_; }
  MeterForm& frmdBMeter() { return frmdBMeter_; }
  ExternalMeter& External() { return external_; }
  RotatorLine& Line() { return line_; }
  ComPorts& Ports() { return ports_; }

 private:
  void Connect();

  Globals& shared_;
  SettingsStore& store_;
  ComPorts ports_;
  SerialControl MSComm1_;
  SerialControl MSCommTrigger_;
  FtdiModule ftdi_;
  MeterForm frmdBMeter_;
  UserMessages& messages_;
  UsbModule usb_;
  dBMeter meter_;
  ExternalMeter external_;
  InputDevices devices_;
  RotatorLine line_;
  QTimer tmrOneSec_;
};

}  // namespace lobegraph
