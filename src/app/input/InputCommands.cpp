#include "app/input/InputCommands.h"

#include "acquisition/meters/LevelSource.h"

namespace lobegraph {

void InputCommands::cmdChooseInput_Click() {
  Globals& shared = parts_.Shared;
  if (shared.Run.Running()) return;
  Enable(false);
  CloseInputs();
  showChooser_();
  if (shared.Run.CloseRequested) return;  // the program has closed them for good meanwhile
  const std::string hint = devices_.Open(InputDevices::Occasion::Chosen);
  if (!hint.empty()) parts_.View.SetText(Control::lblHint, hint);
  shared.Run.InputReady = true;
  Enable(true);
  parts_.View.SetText(Control::lblSource, SourceLabel(shared.Settings.Input, sound_.SoundSourceName()));
}

void InputCommands::Enable(bool enabled) {
  using enum Control;
  for (const Control control : {cmdCollectData, cmdHaltInput, chkCalibrate, cmdExit, cmdChooseInput, Slider1})
    parts_.View.SetEnabled(control, enabled);
}

void InputCommands::CloseInputs() {
  if (parts_.Shared.Sound.SoundCaptureActive) sound_.StopSoundCapture();
  parts_.Shared.Run.InputReady = false;
  devices_.ClosePorts();
  devices_.CloseUsbModule();  // one that was plugged in again is found when the next pulse is waited for
}

}  // namespace lobegraph
