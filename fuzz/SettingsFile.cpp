#include "data/base/RunTimeError.h"
#include "fuzz/Targets.h"
#include "fuzz/TextStore.h"
#include "settings/SettingsConversion.h"
#include "settings/SettingsReader.h"
#include "settings/SettingsText.h"

namespace lobegraph::fuzz {
namespace {

void PromiseReplacing(std::string_view text, std::string_view key, std::string_view value) {
  const auto other = FindValue(text, kSettingsSection, "RotateTime");
  const std::string replaced = ReplaceValue(text, kSettingsSection, key, value);
  const auto found = FindValue(replaced, kSettingsSection, key);
  Promise(found.has_value(), "a saved value is found again");
  Promise(found->size() <= value.size() && found->find_first_of("\r\n") == std::string::npos,
          "a value stands on one line");
  Promise(!IsWholeText(text) || ReplaceValue(replaced, kSettingsSection, key, value) == replaced,
          "saving again changes nothing");
  Promise(FindValue(replaced, kSettingsSection, "RotateTime") == other, "another value stays as it was");
}

}  // namespace

/// The first byte tells how many of the following are a value to be saved; the rest is the file.
void TrySettingsFile(std::string_view input) {
  if (input.empty()) return;
  const auto length = static_cast<std::size_t>(static_cast<unsigned char>(input.front()) % 32);
  const std::string_view value = input.substr(1, length);
  const std::string_view text = input.substr(std::min(input.size(), 1 + length));
  PromiseReplacing(text, "Scale", value);
  TextStore store(text);
  try {
    ReadSettings(store);
  } catch (const RunTimeError& refused) {
    Promise(!refused.Detail().empty(), "a refused value is named");
  }
  SettingsValues values;
  for (const SettingRow& row : kSettingsTable) {
    try {
      AssignSetting(row, value, values);
      const std::string stored = SettingText(row, values);
      AssignSetting(row, stored, values);
      Promise(SettingText(row, values) == stored, "a stored text gives the same value again");
    } catch (const RunTimeError&) {
      continue;
    }
  }
}

}  // namespace lobegraph::fuzz
