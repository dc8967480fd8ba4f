#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <variant>

#include "data/record/ScaleSetting.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

inline constexpr std::string_view kLobegraphApplication = "Lobegraph";
/// The area in which a meter program publishes its reading.
inline constexpr std::string_view kGaugeBridgeApplication = "GaugeBridge";
inline constexpr std::string_view kSettingsSection = "Settings";

/// Where a key lives in memory; its type is the key's type.
using SettingMember =
    std::variant<std::string SettingsValues::*, std::int16_t SettingsValues::*,
                 std::int32_t SettingsValues::*, float SettingsValues::*, bool SettingsValues::*,
                 Currency SettingsValues::*, bool InputChoice::*, std::int16_t InputChoice::*>;

struct SettingRow {
  std::string_view Key;
  SettingMember Member;
  std::string_view Default;  ///< parsed like a stored text
};

/// Every key, type and default, in the order in which start-up reads them. Ranges are the settings dialog's
/// business: the store checks nothing.
inline constexpr auto kSettingsTable = std::to_array<SettingRow>({
    {"Username", &SettingsValues::Username, " "},
    {"Scale", &SettingsValues::Scale, scale_setting::kUsualText},
    {"RotateTime", &SettingsValues::RotateTime, "60"},
    {"AutoStart", &SettingsValues::AutoStart, "0"},
    {"AutoStop", &SettingsValues::AutoStop, "0"},
    {"StartupDelay", &SettingsValues::StartupDelay, "0.25"},
    {"DetectStartLevel", &SettingsValues::DetectStartLevel, "7"},
    {"DetectStopLevel", &SettingsValues::DetectStopLevel, "7"},
    {"DetectStopNumberOfReadings", &SettingsValues::DetectStopNumberOfReadings, "5"},
    {"Trigger", &SettingsValues::Trigger, "0"},
    {"dBCalAdjust0dB", &SettingsValues::dBCalAdjust0dB, "0"},
    {"LinearMode", &SettingsValues::LinearMode, "False"},
    {"ShowLogScale", &SettingsValues::ShowLogScale, "True"},
    {"PlotUserColour", &SettingsValues::PlotUserColour, "8388608"},
    {"PlotUserOverlayColour", &SettingsValues::PlotUserOverlayColour, "65535"},
    {"PlotGridColour", &SettingsValues::PlotGridColour, "0"},
    {"PlotLineColour", &SettingsValues::PlotLineColour, "128"},
    {"PlotLineOverlayColour", &SettingsValues::PlotLineOverlayColour, "32768"},
    {"PlotBackground", &SettingsValues::PlotBackground, "14737632"},
    {"PeakInputLevel", &SettingsValues::PeakInputLevel, "1000"},
    {"SpikeDetectLevel", &SettingsValues::SpikeDetectLevel, "50"},
    {"MaxRotationTime", &SettingsValues::MaxRotationTime, "2"},
    {"InputDeviceIsLineIn", &InputChoice::InputDeviceIsLineIn, "True"},
    {"InputDeviceIsdBMeter", &InputChoice::InputDeviceIsdBMeter, "False"},
    {"ROSKAmeter", &InputChoice::ROSKAmeter, "False"},
    {"GaugeBridge", &InputChoice::GaugeBridge, "False"},
    {"GaugeBridgeTrigger", &InputChoice::GaugeBridgeTrigger, "False"},
    {"Commport", &InputChoice::Commport, "0"},
    {"Commtrigger", &InputChoice::Commtrigger, "0"},
});

/// The last rows of the table: what the input chooser owns.
constexpr std::span<const SettingRow> InputRows() {
  const auto first = std::find_if(kSettingsTable.begin(), kSettingsTable.end(), [](const SettingRow& row) {
    return std::holds_alternative<bool InputChoice::*>(row.Member) ||
           std::holds_alternative<std::int16_t InputChoice::*>(row.Member);
  });
  return {first, kSettingsTable.end()};
}

/// What the meter program publishes; only ever read here.
struct PublishedKey {
  std::string_view Key;
  std::string_view Default;
};
inline constexpr PublishedKey kPublishedActive{"Active", "N"};    ///< "Y" while it runs and publishes
inline constexpr PublishedKey kPublishedReading{"Reading", "1"};  ///< dBm, a number as text
inline constexpr PublishedKey kPublishedBeat{"Beat",
                                             ""};  ///< changes once a second while it lives; may be missing

inline constexpr PublishedKey kPublishedCalibrated{"Calibrated",
                                                   "N"};  ///< "Y": a calibration was applied to it

/// The row of a key; a key that is not in the table does not compile.
consteval const SettingRow& RowOf(std::string_view key) {
  for (const SettingRow& row : kSettingsTable)
    if (row.Key == key) return row;
  throw "no such key";
}

}  // namespace lobegraph
