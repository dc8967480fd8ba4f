#pragma once

#include <string>

#include "acquisition/core/UserMessages.h"
#include "acquisition/meters/InputDevices.h"
#include "acquisition/meters/dBMeter.h"
#include "acquisition/serial/SCom.h"
#include "acquisition/trigger/UsbModule.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// The meter's port, the trigger's port, the USB module and the meter window, opened and closed together.
class MeterDevices final : public InputDevices {
 public:
  struct Parts {
    SCom& MSComm1;
    SCom& MSCommTrigger;
    UsbModule& Usb;
    MeterDisplay& Display;
    dBMeter& Meter;
    const SettingsValues& Settings;
    UserMessages& Messages;
  };
  /// From now on what the meter's port receives is parsed, and a port whose far end goes is told in the meter
  /// window.
  explicit MeterDevices(const Parts& parts);

  void ShowMeterWindow() override { parts_.Display.ShowWindow(); }
  void OpenMeterPort(std::int16_t port, std::string_view baud) override;
  void OpenTriggerPort() override;
  void CloseMeterPort() override { CloseIfOpen(parts_.MSComm1); }
  void CloseTriggerPort() override { CloseIfOpen(parts_.MSCommTrigger); }
  bool CloseUsbModule() override { return parts_.Usb.Close(); }

 private:
  static void CloseIfOpen(SCom& port);
  bool TriggerSharesMeterPort() const;
  void Report(const std::string& text, const SCom::Outcome& outcome);

  Parts parts_;
};

inline constexpr const char* kMeterPortFailed =
    "COM Port not available. May be in use by another program\r\n"
    "If yes, then close that program and retry.\r\n"
    "If no, then change the CommPort to another port and try again.";
inline constexpr const char* kTriggerPortFailed =
    "Trigger COM Port not available. May be in use by another program\r\n"
    "If yes, then close that program and retry.\r\n"
    "If no, then change to another port and try again.";

}  // namespace lobegraph
