#include "acquisition/meters/InputDevices.h"

namespace lobegraph {

InputDevices::InputDevices(const Parts& parts) : parts_(parts) {
  parts_.MSComm1.OnComm = [this](int eventCode) {
    if (eventCode == SCom::kReceived) parts_.Meter.ParseChars(parts_.MSComm1.Input());
  };
  parts_.MSComm1.OnGone = [this] {
    ShowPort(StatusColour::Red, "The meter's port has gone. Plug it in and choose the input again.");
    const InputChoice& choice = parts_.Settings.Input;
    if (!choice.GaugeBridgeTrigger && choice.Commtrigger == parts_.MSComm1.PortNumber())
      parts_.Flags.TriggerPortGone = true;
  };
  parts_.MSCommTrigger.OnGone = [this] { parts_.Flags.TriggerPortGone = true; };
}

std::string InputDevices::Open(Occasion occasion) {
  const LevelSource& source = SourceOf(parts_.Settings.Input);
  parts_.State.Forget();
  parts_.Display.Clear();
  std::string hint;
  if (source.NeedsPort) {
    ShowMeterWindow();
    OpenMeterPort(parts_.Settings.Input.Commport, source.Baud);
  } else if (occasion == Occasion::Chosen) {
    hint = OpenBesideProgram(source);
  }
  OpenTriggerPort();
  return hint;
}

std::string InputDevices::OpenBesideProgram(const LevelSource& source) {
  const std::int16_t port = parts_.Settings.Input.Commport;
  if (!source.IsMeter()) {
    parts_.Display.HideWindow();
    return "";
  }
  ShowMeterWindow();
  CloseMeterPort();
  if (port == 0 || parts_.MSComm1.Open(port, source.Baud).Opened) return "";
  return "COM" + std::to_string(port) + " is not to be had; the meter program does not need it.";
}

void InputDevices::ShowPort(StatusColour shape, const std::string& status) {
  parts_.Display.PaintStatusShape(shape);
  parts_.Display.SetStatusText(status);
}

void InputDevices::ClosePorts() {
  CloseMeterPort();
  CloseTriggerPort();
}

void InputDevices::OpenMeterPort(std::int16_t port, std::string_view baud) {
  CloseMeterPort();
  if (port == 0) return;
  const SCom::Outcome outcome = parts_.MSComm1.Open(port, baud);
  const std::string name = "The meter's port COM" + std::to_string(port);
  if (outcome.Opened) return ShowPort(StatusColour::Green, name + " is open.");
  ShowPort(StatusColour::Red, name + " is not open.");
  Report(kMeterPortFailed, outcome);
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
