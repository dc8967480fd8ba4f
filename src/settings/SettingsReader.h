#pragma once

#include <string>

#include "data/base/RunTimeError.h"
#include "settings/SettingsStore.h"
#include "settings/SettingsTable.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// A stored text that its key cannot hold. Its Detail() names file, section, key and text, so that standard
/// error can say what to mend.
class BadSetting : public RunTimeError {
 public:
  BadSetting(const RunTimeError& fault, std::string place, const SettingRow& row, std::string text);

  const SettingRow& Row() const { return *row_; }
  const std::string& Place() const { return place_; }  ///< the store's file
  const std::string& Text() const { return text_; }

 private:
  const SettingRow* row_;
  std::string place_;
  std::string text_;
};

/// Each reader throws BadSetting, 13 (Type mismatch) or 6 (Overflow), at the first value that is no boolean
/// or does not fit.

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
