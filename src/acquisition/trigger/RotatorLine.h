#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "acquisition/core/RunFlags.h"
#include "acquisition/serial/SCom.h"
#include "acquisition/trigger/UsbModule.h"
#include "settings/InputChoice.h"

namespace lobegraph {

/// The rotator's pulses over the CTS line of a COM port or over the USB module, as the input choice says.
class RotatorLine {
 public:
  struct Parts {
    const InputChoice& Choice;
    SCom& MSComm1;
    SCom& MSCommTrigger;
    UsbModule& Usb;
    RunFlags& Flags;
    std::function<void()> Sleep;  ///< between two polls, at most 0.2 ms
  };
  explicit RotatorLine(Parts parts) : parts_(std::move(parts)) {}

  /// A wait begins: pulses from before are not for it.
  void BeginWait();
  /// Level of the line now: 'H' or 'L'. A USB module is opened first if need be; when it cannot be, the
  /// collection ends. On a COM port a pulse that came and went between two polls is not lost where the driver
  /// counts the line's changes.
  /// @throws RunTimeError 6 when the count of polls overflows
  char ReadTriggerState();
  void Sleep() { parts_.Sleep(); }
  /// Whether pulses can come: the line's port is open. A USB module is only opened, and found missing, by a
  /// poll.
  bool Ready() const { return parts_.Choice.GaugeBridgeTrigger || LinePort().PortOpen(); }

  /// Trigger-state reads since the last one-second tick.
  std::int32_t UsbStateCount = 0;

 private:
  char ReadUsb();
  char ReadLine();
  bool CameAndWent(std::uint32_t changes) const;
  SCom& LinePort() const;

  Parts parts_;
  char lastState_ = 'L';
  bool highAtBegin_ = false;
  /// Count of the driver as far as the levels seen account for it; it may run ahead of the driver's own.
  std::optional<std::uint32_t> explained_;
};

}  // namespace lobegraph
