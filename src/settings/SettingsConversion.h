#pragma once

#include <string>
#include <string_view>

#include "settings/SettingsTable.h"

namespace lobegraph {

/// The text under which a value is stored: "35", "0.25", "True", whatever the system's locale.
std::string SettingText(const SettingRow& row, const SettingsValues& values);

/// Puts a stored text into its member: the leading number of the text (0 when there is none), whole numbers
/// rounded with halves to the even neighbour, "True"/"False" in any letter case or a number for a boolean.
/// @throws RunTimeError 13 (Type mismatch) for a text that is no boolean, 6 (Overflow) for a number that does
/// not fit the member's type; the member is then unchanged.
void AssignSetting(const SettingRow& row, std::string_view text, SettingsValues& values);

}  // namespace lobegraph
