#pragma once

#include <string>

#include "settings/SettingsStore.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// Each reader throws RunTimeError 13 (Type mismatch) or 6 (Overflow) at the first value that is no boolean
/// or does not fit; its Detail() names file, section, key and value, so that standard error can say what to
/// mend.

/// The first value that start-up reads. One blank: nobody has given a call sign yet.
std::string ReadUsername(SettingsStore& store);
/// Every other value, in the table's order.
void ReadRemaining(SettingsStore& store, SettingsValues& values);
/// Every value, in the table's order.
SettingsValues ReadSettings(SettingsStore& store);

/// What Cancel of the settings dialog takes back: the colours, the detection values, peak and spike level and
/// the maximum rotation time.
void ReloadDialogSettings(SettingsStore& store, SettingsValues& values);
/// What Cancel of the input chooser takes back: its flags, not the port numbers.
void ReloadInputChoice(SettingsStore& store, InputChoice& choice);

}  // namespace lobegraph
