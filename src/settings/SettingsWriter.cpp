#include "settings/SettingsWriter.h"

#include <span>
#include <vector>

#include "settings/SettingsConversion.h"

namespace lobegraph {
namespace {

bool SaveRows(SettingsStore& store, std::span<const SettingRow> rows, const SettingsValues& values) {
  std::vector<SettingToSave> texts;
  for (const SettingRow& row : rows) texts.push_back({std::string(row.Key), SettingText(row, values)});
  return store.SaveAll(kLobegraphApplication, kSettingsSection, texts, Keeping::Durable);
}

constexpr SettingRow kMainWindowRows[] = {RowOf("Scale"),       RowOf("RotateTime"), RowOf("AutoStart"),
                                          RowOf("AutoStop"),    RowOf("Trigger"),    RowOf("LinearMode"),
                                          RowOf("ShowLogScale")};

constexpr SettingRow kDialogRows[] = {RowOf("PlotUserColour"),
                                      RowOf("PlotUserOverlayColour"),
                                      RowOf("PlotLineColour"),
                                      RowOf("PlotLineOverlayColour"),
                                      RowOf("PlotGridColour"),
                                      RowOf("PlotBackground"),
                                      RowOf("DetectStopNumberOfReadings"),
                                      RowOf("DetectStopLevel"),
                                      RowOf("DetectStartLevel"),
                                      RowOf("StartupDelay"),
                                      RowOf("PeakInputLevel"),
                                      RowOf("SpikeDetectLevel"),
                                      RowOf("MaxRotationTime")};

}  // namespace

bool SaveMainWindowSettings(SettingsStore& store, const SettingsValues& values) {
  return SaveRows(store, kMainWindowRows, values);
}

bool SaveDialogSettings(SettingsStore& store, const SettingsValues& values) {
  return SaveRows(store, kDialogRows, values);
}

bool SaveInputChoice(SettingsStore& store, const InputChoice& choice) {
  SettingsValues values;
  values.Input = choice;
  return SaveRows(store, InputRows(), values);
}

bool SaveCalibration(SettingsStore& store, float dBCalAdjust0dB) {
  SettingsValues values;
  values.dBCalAdjust0dB = dBCalAdjust0dB;
  return SaveRows(store, std::span(&RowOf("dBCalAdjust0dB"), 1), values);
}

bool SaveUsername(SettingsStore& store, std::string_view username) {
  SettingsValues values;
  values.Username = username;
  return SaveRows(store, std::span(&kSettingsTable.front(), 1), values);
}

}  // namespace lobegraph
