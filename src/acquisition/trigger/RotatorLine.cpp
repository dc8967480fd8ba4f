#include "acquisition/trigger/RotatorLine.h"

#include <utility>

#include "data/base/Rounding.h"

namespace lobegraph {

void RotatorLine::BeginWait() {
  if (parts_.Choice.GaugeBridgeTrigger) return;
  SCom& port = LinePort();
  explained_ = port.CtsChanges();
  lastState_ = port.CtsHolding() ? 'H' : 'L';
  highAtBegin_ = lastState_ == 'H';
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
  // High when the wait began, it counts though it may have fallen since.
  if (std::exchange(highAtBegin_, false)) return 'H';
  SCom& port = LinePort();
  const std::optional<std::uint32_t> changes = port.CtsChanges();
  const char line = port.CtsHolding() ? 'H' : 'L';
  if (line != lastState_) {
    lastState_ = line;
    if (explained_) ++*explained_;
  } else if (changes && CameAndWent(*changes)) {
    lastState_ = line == 'H' ? 'L' : 'H';
    explained_ = *changes - 1;
  }
  return lastState_;
}

/// The line has its level again, but left it between two polls. One change more than was seen proves nothing:
/// the count and the level are not of the same moment, and some drivers count milliseconds late.
bool RotatorLine::CameAndWent(std::uint32_t changes) const {
  return explained_ && static_cast<std::int32_t>(changes - *explained_) >= 2;
}

/// With equal numbers the meter's port carries the line as well, if it is open on that number: an old meter
/// number must not leave the trigger dead.
SCom& RotatorLine::LinePort() const {
  const InputChoice& choice = parts_.Choice;
  const bool shared = choice.Commport == choice.Commtrigger && parts_.MSComm1.PortOpen() &&
                      parts_.MSComm1.PortNumber() == choice.Commtrigger;
  return shared ? parts_.MSComm1 : parts_.MSCommTrigger;
}

}  // namespace lobegraph
