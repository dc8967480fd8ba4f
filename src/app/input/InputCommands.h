#pragma once

#include <functional>

#include "acquisition/meters/InputDevices.h"
#include "acquisition/sound/SoundCapture.h"
#include "app/parts/AppParts.h"

namespace lobegraph {

/// Choosing the input: the running inputs are closed, the chooser is shown, and what was chosen is opened.
class InputCommands {
 public:
  /// @param showChooser shows the chooser until it is closed
  InputCommands(const AppParts& parts, InputDevices& devices, SoundCapture& sound,
                std::function<void()> showChooser)
      : parts_(parts), devices_(devices), sound_(sound), showChooser_(std::move(showChooser)) {}

  /// Nothing while a run is on.
  void cmdChooseInput_Click();

 private:
  void Enable(bool enabled);
  void CloseInputs();

  AppParts parts_;
  InputDevices& devices_;
  SoundCapture& sound_;
  std::function<void()> showChooser_;
};

}  // namespace lobegraph
