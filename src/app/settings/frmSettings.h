#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/parts/AppParts.h"
#include "app/plot/PatternDisplay.h"
#include "settings/SettingsDialog.h"

namespace lobegraph {

/// How the settings dialog is asked for.
enum class SettingsWay { Keyboard, Mouse };

/// The settings dialog's handlers, and what they do to the main window.
class frmSettings {
 public:
  frmSettings(const AppParts& parts, PatternDisplay& display, SettingsStore& store)
      : parts_(parts), display_(display), store_(store) {}

  /// Not while a run is on; and the mouse belongs to the analysis lines while they are shown on the
  /// rectangular drawing.
  bool MayOpen(SettingsWay way) const;
  /// The dialog opens: its boxes are filled from the values.
  void Form_Load();
  /// What the open dialog holds. Between Form_Load and Closed only.
  SettingsDialog& Dialog() { return *dialog_; }

  /// A box loses the focus. @return false after the message of a refusal: the focus is to stay
  bool Validate(SettingsBox box);
  /// A colour was chosen; none when the choice was cancelled. A new background is seen at once.
  void ChooseColour(const SettingsColourRow& row, std::optional<Colour> colour);
  void cmdDefault_Click();
  void cmdSetDefaultValues_Click(SettingsGroup group);
  /// Hides what is written on the plot, or shows it again. Nothing of it is saved.
  void cmdTextOnOff_Click();
  /// Saves, and puts the values in force.
  void cmdOK_Click();
  /// Takes everything back that is in the store.
  void cmdCancel_Click();
  /// The dialog has gone: the plot is drawn as the values now say.
  void Closed();

 private:
  void ApplyInputLevelsAndRotationTime();
  /// The drawing lies on the background: a new one is seen when it is drawn again.
  void DrawOnNewBackground();
  void ShowBackground();
  /// Runs a handler of the form.
  void Run(const std::string& procedure, const std::function<void()>& handler);

  AppParts parts_;
  PatternDisplay& display_;
  SettingsStore& store_;
  std::unique_ptr<SettingsDialog> dialog_;
};

}  // namespace lobegraph
