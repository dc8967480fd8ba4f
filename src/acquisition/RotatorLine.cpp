#include "acquisition/RotatorLine.h"

#include "data/Rounding.h"

namespace lobegraph {

void RotatorLine::BeginWait() {
  if (parts_.Choice.GaugeBridgeTrigger) return;
  lastState_ = 'L';
  changes_ = LinePort().CtsChanges();
}

char RotatorLine::ReadTriggerState() {
  UsbStateCount = ToInt32(UsbStateCount + 1.0);
  return parts_.Choice.GaugeBridgeTrigger ? ReadUsb() : ReadLine();
}

char RotatorLine::ReadUsb() {
  UsbModule& usb = parts_.Usb;
  if (!usb.UsbDeviceOpen()) usb.OpenDevice("DLP2232M B");
  if (usb.UsbDeviceOpen()) return usb.PinD0() ? 'H' : 'L';
  parts_.Flags.HaltRequested = 1;
  return 'L';
}

char RotatorLine::ReadLine() {
  SCom& port = LinePort();
  const std::optional<std::uint32_t> changes = port.CtsChanges();
  const char line = port.CtsHolding() ? 'H' : 'L';
  // The same level again, yet it has changed meanwhile: the other level came and went between two polls.
  const bool missed = line == lastState_ && changes && changes_ && *changes != *changes_;
  changes_ = changes;
  lastState_ = missed ? (line == 'H' ? 'L' : 'H') : line;
  return lastState_;
}

/// With equal numbers the meter's port carries the line as well, if it is open on that number: an old meter
/// number must not leave the trigger dead.
SCom& RotatorLine::LinePort() {
  const InputChoice& choice = parts_.Choice;
  const bool shared = choice.Commport == choice.Commtrigger && parts_.MSComm1.PortOpen() &&
                      parts_.MSComm1.PortNumber() == choice.Commtrigger;
  return shared ? parts_.MSComm1 : parts_.MSCommTrigger;
}

}  // namespace lobegraph
