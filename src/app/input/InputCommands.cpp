#include "app/input/InputCommands.h"

#include "acquisition/meters/LevelSource.h"

namespace lobegraph {

void InputCommands::cmdChooseInput_Click() {
  Globals& shared = parts_.Shared;
  if (shared.Run.Running()) return;
  Enable(false);
  CloseInputs();
  showChooser_();
  devices_.Open(InputDevices::Occasion::Chosen);
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
}

}  // namespace lobegraph
