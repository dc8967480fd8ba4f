#pragma once

#include <string_view>

#include "settings/SettingsStore.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// Each writer saves its own keys only, in a fixed order and in one step. @return false when that failed

/// The main window at exit: sliders, check boxes, the two display flags.
bool SaveMainWindowSettings(SettingsStore& store, const SettingsValues& values);
/// OK of the settings dialog: colours, detection values, peak and spike level, maximum rotation time.
bool SaveDialogSettings(SettingsStore& store, const SettingsValues& values);
/// OK of the input chooser.
bool SaveInputChoice(SettingsStore& store, const InputChoice& choice);
/// The meter's calibration, raw meter units.
bool SaveCalibration(SettingsStore& store, float dBCalAdjust0dB);
/// The call sign given at the first start.
bool SaveUsername(SettingsStore& store, std::string_view username);

}  // namespace lobegraph
