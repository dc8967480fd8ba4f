#pragma once

#include "acquisition/meters/InputDevices.h"
#include "acquisition/sound/SoundCapture.h"
#include "acquisition/sound/frmDX_Record.h"
#include "app/parts/AppParts.h"
#include "app/plot/PatternDisplay.h"
#include "settings/SettingsReader.h"

namespace lobegraph {

/// Start-up, shutdown and the window's own handlers.
class ShellCommands {
 public:
  ShellCommands(const AppParts& parts, PatternDisplay& display, SettingsStore& store, InputDevices& devices,
                frmDX_Record& capture, SoundCapture& sound)
      : parts_(parts),
        display_(display),
        store_(store),
        devices_(devices),
        capture_(capture),
        sound_(sound) {}

  /// Brings the window into a working state: identity, call sign, settings, colours, input device. A fault is
  /// shown once and ends the program.
  void Form_Load();
  /// Releases the sound input; never cancels.
  void Form_QueryUnload();
  /// Saves the window's settings, closes the devices and ends the program. When the USB module does not
  /// close, nothing is saved and the program goes on. @return false then
  bool Form_Unload();
  void cmdExit_Click();

  /// The window became active, other than by closing one of its own boxes.
  void Form_Activate();
  void cmdGrow_Click();
  void cmdShrink_Click();
  void lblOperator_DblClick();
  void Slider2_Change();

 private:
  void SetIdentity();
  void AskCallSign();
  bool LoadSettings();
  bool TakeDefault(const BadSetting& bad);
  void ReadAndApplySettings();
  void OpenInputDevice();
  void SaveOwnSettings();

  AppParts parts_;
  PatternDisplay& display_;
  SettingsStore& store_;
  InputDevices& devices_;
  frmDX_Record& capture_;
  SoundCapture& sound_;
};

/// Widths of the window's inside, in twips: 15 to a unit of the surface.
inline constexpr int kGrownWidth = 11370;
inline constexpr int kShrunkWidth = 7515;

}  // namespace lobegraph
