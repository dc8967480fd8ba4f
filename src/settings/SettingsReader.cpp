#include "settings/SettingsReader.h"

#include <span>
#include <utility>

#include "settings/SettingsConversion.h"

namespace lobegraph {
namespace {

void ReadRow(SettingsStore& store, const SettingRow& row, SettingsValues& values) {
  const std::string text = store.Get(kLobegraphApplication, kSettingsSection, row.Key, row.Default);
  try {
    AssignSetting(row, text, values);
    // The slider takes these minutes in seconds: a number that does not fit it is a value that does not fit.
    if (row.Key == "MaxRotationTime") static_cast<void>(values.Slider2Maximum());
  } catch (const RunTimeError& error) {
    throw BadSetting(error, store.Place(kLobegraphApplication), row, text);
  }
}

void ReadRows(SettingsStore& store, std::span<const SettingRow> rows, SettingsValues& values) {
  for (const SettingRow& row : rows) ReadRow(store, row, values);
}

constexpr SettingRow kDialogRows[] = {RowOf("PlotUserColour"),  RowOf("PlotUserOverlayColour"),
                                      RowOf("PlotLineColour"),  RowOf("PlotLineOverlayColour"),
                                      RowOf("PlotGridColour"),  RowOf("PlotBackground"),
                                      RowOf("StartupDelay"),    RowOf("DetectStartLevel"),
                                      RowOf("DetectStopLevel"), RowOf("DetectStopNumberOfReadings"),
                                      RowOf("PeakInputLevel"),  RowOf("SpikeDetectLevel"),
                                      RowOf("MaxRotationTime")};

}  // namespace

BadSetting::BadSetting(const RunTimeError& fault, std::string place, const SettingRow& row, std::string text)
    : RunTimeError(fault.Number(),
                   place + ": [" + std::string(kSettingsSection) + "] " + std::string(row.Key) + "=" + text),
      row_(&row),
      place_(std::move(place)),
      text_(std::move(text)) {}

std::string ReadUsername(SettingsStore& store) {
  SettingsValues values;
  ReadRow(store, kSettingsTable.front(), values);
  return values.Username;
}

void ReadRemaining(SettingsStore& store, SettingsValues& values) {
  ReadRows(store, std::span(kSettingsTable).subspan<1>(), values);
}

SettingsValues ReadSettings(SettingsStore& store) {
  SettingsValues values;
  ReadRows(store, kSettingsTable, values);
  return values;
}

void ReloadDialogSettings(SettingsStore& store, SettingsValues& values) {
  ReadRows(store, kDialogRows, values);
}

void ReloadInputChoice(SettingsStore& store, InputChoice& choice) {
  SettingsValues values;
  values.Input = choice;
  for (const SettingRow& row : InputRows())
    if (std::holds_alternative<bool InputChoice::*>(row.Member)) ReadRow(store, row, values);
  choice = values.Input;
}

}  // namespace lobegraph
