#pragma once

#include <string>
#include <string_view>

#include "acquisition/core/RunFlags.h"
#include "acquisition/core/UserMessages.h"
#include "acquisition/meters/LevelSource.h"
#include "acquisition/meters/dBMeter.h"
#include "acquisition/serial/SCom.h"
#include "acquisition/trigger/UsbModule.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// The meter's port, the trigger's port, the USB module and the meter window, opened and closed together.
class InputDevices {
 public:
  struct Parts {
    SCom& MSComm1;
    SCom& MSCommTrigger;
    UsbModule& Usb;
    MeterDisplay& Display;
    dBMeter& Meter;
    MeterState& State;
    RunFlags& Flags;
    const SettingsValues& Settings;
    UserMessages& Messages;
  };
  /// From now on what the meter's port receives is parsed. A meter's port whose far end goes is told in the
  /// meter window, the trigger's to the run that waits for it.
  explicit InputDevices(const Parts& parts);

  enum class Occasion { StartUp, Chosen };
  /// Opens what the chosen source needs: the meter window and the meter's port, then the trigger's port. What
  /// another meter said is forgotten, and its window goes where none is needed.
  /// Deliberate: once chosen, the external meter program gets a port too, unlike at start-up, so that a meter
  /// which that program shares can be watched.
  /// @return a line for the user about a port that nothing depends on; empty when there is nothing to say
  std::string Open(Occasion occasion);
  /// The meter's port, then the trigger's.
  void ClosePorts();

  /// Reports itself, as a box and in the meter window, when the port is not to be had. @param port COM
  /// number, 0 for none
  void OpenMeterPort(std::int16_t port, std::string_view baud);
  /// The same for the trigger's port, as the input choice says.
  void OpenTriggerPort();
  void CloseMeterPort() { CloseIfOpen(parts_.MSComm1); }
  void CloseTriggerPort() { CloseIfOpen(parts_.MSCommTrigger); }
  /// Releases the USB module if it is open. @return false when that failed
  bool CloseUsbModule() { return parts_.Usb.Close(); }
  void ShowMeterWindow() { parts_.Display.ShowWindow(); }

 private:
  static void CloseIfOpen(SCom& port);
  std::string OpenBesideProgram(const LevelSource& source);
  void ShowPort(StatusColour shape, const std::string& status);
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
