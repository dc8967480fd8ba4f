#include "acquisition/meters/InputDevices.h"

#include "acquisition/meters/LevelSource.h"

namespace lobegraph {

InputDevices::InputDevices(const Parts& parts) : parts_(parts) {
  parts_.MSComm1.OnComm = [this](int eventCode) {
    if (eventCode == SCom::kReceived) parts_.Meter.ParseChars(parts_.MSComm1.Input());
  };
  parts_.MSComm1.OnGone = [this] {
    parts_.Display.PaintStatusShape(StatusColour::Red);
    parts_.Display.SetStatusText("The meter's port has gone. Plug it in and choose the input again.");
  };
}

void InputDevices::Open(Occasion occasion) {
  const InputChoice& choice = parts_.Settings.Input;
  const LevelSource& source = SourceOf(choice);
  if (occasion == Occasion::StartUp ? source.NeedsPort : source.IsMeter()) {
    ShowMeterWindow();
    OpenMeterPort(choice.Commport, source.Baud);
  }
  OpenTriggerPort();
}

void InputDevices::ClosePorts() {
  CloseMeterPort();
  CloseTriggerPort();
}

void InputDevices::OpenMeterPort(std::int16_t port, std::string_view baud) {
  CloseMeterPort();
  if (port == 0) return;
  const SCom::Outcome outcome = parts_.MSComm1.Open(port, baud);
  if (!outcome.Opened) Report(kMeterPortFailed, outcome);
}

void InputDevices::OpenTriggerPort() {
  const InputChoice& choice = parts_.Settings.Input;
  CloseTriggerPort();
  if (choice.Commtrigger == 0 || choice.GaugeBridgeTrigger || TriggerSharesMeterPort()) return;
  const SCom::Outcome outcome = parts_.MSCommTrigger.Open(choice.Commtrigger, SCom::kStoredBaud);
  if (!outcome.Opened) Report(kTriggerPortFailed, outcome);
}

/// A number left from another meter shares nothing: the external meter program needs no port, and start-up
/// opens none for it.
bool InputDevices::TriggerSharesMeterPort() const {
  const InputChoice& choice = parts_.Settings.Input;
  const LevelSource& source = SourceOf(choice);
  if (!source.IsMeter() || choice.Commtrigger != choice.Commport) return false;
  return source.NeedsPort || parts_.MSComm1.PortOpen();
}

void InputDevices::CloseIfOpen(SCom& port) {
  if (port.PortOpen()) port.Close();
}

void InputDevices::Report(const std::string& text, const SCom::Outcome& outcome) {
  const std::string& group = outcome.GroupToJoin;
  parts_.Messages.Show({text + (group.empty() ? ""
                                              : "\r\nYou lack the right to open it: join the group \"" +
                                                    group + "\" and log in again.")});
}

}  // namespace lobegraph
