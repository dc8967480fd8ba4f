#include "acquisition/meters/MeterDevices.h"

namespace lobegraph {

MeterDevices::MeterDevices(const Parts& parts) : parts_(parts) {
  parts_.MSComm1.OnComm = [this](int eventCode) {
    if (eventCode == SCom::kReceived) parts_.Meter.ParseChars(parts_.MSComm1.Input());
  };
  parts_.MSComm1.OnGone = [this] {
    parts_.Display.PaintStatusShape(StatusColour::Red);
    parts_.Display.SetStatusText("The meter's port has gone. Plug it in and choose the input again.");
  };
}

void MeterDevices::OpenMeterPort(std::int16_t port, std::string_view baud) {
  SCom& com = parts_.MSComm1;
  CloseMeterPort();
  if (port == 0) return;
  com.SetPortNumber(port);
  com.SetBaud(baud);
  com.SetInputLength(0);
  com.SetDtr(true);
  com.SetRts(true);
  com.SetReceiveThreshold(1);
  com.SetSendThreshold(1);
  const SCom::Outcome outcome = com.Open();
  if (outcome.Opened) {
    com.SetInputMode(0);
  } else {
    Report(kMeterPortFailed, outcome);
  }
}

void MeterDevices::OpenTriggerPort() {
  const InputChoice& choice = parts_.Settings.Input;
  SCom& com = parts_.MSCommTrigger;
  CloseTriggerPort();
  if (choice.Commtrigger == 0 || choice.GaugeBridgeTrigger || TriggerSharesMeterPort()) return;
  com.SetPortNumber(choice.Commtrigger);
  com.SetInputLength(0);
  com.SetReceiveThreshold(1);
  com.SetSendThreshold(1);
  const SCom::Outcome outcome = com.Open();
  if (!outcome.Opened) Report(kTriggerPortFailed, outcome);
}

/// A number left from another meter shares nothing: the external meter program needs no port, and start-up
/// opens none for it.
bool MeterDevices::TriggerSharesMeterPort() const {
  const InputChoice& choice = parts_.Settings.Input;
  if (!choice.InputDeviceIsdBMeter || choice.Commtrigger != choice.Commport) return false;
  return !choice.GaugeBridge || parts_.MSComm1.PortOpen();
}

void MeterDevices::CloseIfOpen(SCom& port) {
  if (port.PortOpen()) port.Close();
}

void MeterDevices::Report(const std::string& text, const SCom::Outcome& outcome) {
  const std::string& group = outcome.GroupToJoin;
  parts_.Messages.Show({text + (group.empty() ? ""
                                              : "\r\nYou lack the right to open it: join the group \"" +
                                                    group + "\" and log in again.")});
}

}  // namespace lobegraph
