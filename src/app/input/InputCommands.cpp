#include "app/input/InputCommands.h"

#include "acquisition/serial/MeterPort.h"
#include "app/parts/SourceText.h"

namespace lobegraph {

void InputCommands::cmdChooseInput_Click() {
  Globals& shared = parts_.Shared;
  if (shared.Run.Running()) return;
  Enable(false);
  CloseInputs();
  showChooser_();
  OpenInputs();
  shared.Run.InputReady = true;
  Enable(true);
  parts_.View.SetText(Control::lblSource, SourceText(shared.Settings.Input, sound_.SoundSourceName()));
}

void InputCommands::Enable(bool enabled) {
  using enum Control;
  for (const Control control : {cmdCollectData, cmdHaltInput, chkCalibrate, cmdExit, cmdChooseInput, Slider1})
    parts_.View.SetEnabled(control, enabled);
}

void InputCommands::CloseInputs() {
  if (parts_.Shared.Sound.SoundCaptureActive) sound_.StopSoundCapture();
  parts_.Shared.Run.InputReady = false;
  devices_.CloseMeterPort();
  devices_.CloseTriggerPort();
}

void InputCommands::OpenInputs() {
  const InputChoice& choice = parts_.Shared.Settings.Input;
  if (choice.InputDeviceIsdBMeter) {
    devices_.ShowMeterWindow();
    devices_.OpenMeterPort(choice.Commport, choice.ROSKAmeter ? kRoskaBaud : kTarvenBaud);
  }
  devices_.OpenTriggerPort();
}

}  // namespace lobegraph
