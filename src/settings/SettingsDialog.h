#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "settings/SettingsStore.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// The text boxes of the settings dialog, in tab order.
enum class SettingsBox {
  txtDetectStartLevel,
  txtStartupDelay,
  txtDetectStopLevel,
  txtDetectStopNumberOfReadings,
  txtPeakInputLevel,
  txtMaxRotationTime,
  txtSpikeDetectLevel,
  kCount,
};

/// The frames around the boxes; each has a button that sets its default values.
enum class SettingsGroup { AutoStartStop, SoundCard, Other };

struct SettingsBoxRow {
  SettingsBox Id;
  std::string_view Name;
  SettingsGroup Group;
  std::string_view Label;
  std::string_view Default;  ///< what the group's button puts into the box
  int Lowest;                ///< both limits are accepted
  int Highest;
  bool WholePart;  ///< the limits hold for the whole part (rounded down); else for the value itself
  std::string_view Message;
};

struct SettingsColourRow {
  std::string_view Name;
  std::int32_t SettingsValues::*Member;
  std::int32_t Default;    ///< what "Set default colours" gives
  std::string_view Label;  ///< of its line
  bool Overlay;            ///< stands in the column of the overlay
};

std::span<const SettingsBoxRow> SettingsBoxes();
const SettingsBoxRow& RowOf(SettingsBox box);
/// Row by row as on the dialog.
std::span<const SettingsColourRow> SettingsColours();

/// What the settings dialog does, without its looks: it edits the shared values in place, OK persists them,
/// Cancel takes them back from the store.
class SettingsDialog {
 public:
  /// Fills the boxes from the values. Both outlive the dialog.
  SettingsDialog(SettingsValues& values, SettingsStore& store);

  const std::string& Text(SettingsBox box) const { return texts_.at(static_cast<std::size_t>(box)); }
  /// What the user typed.
  void SetText(SettingsBox box, std::string text) {
    texts_.at(static_cast<std::size_t>(box)) = std::move(text);
  }

  /// A box loses the focus: its text is accepted, or the message says which range it must lie in and the
  /// focus stays. Accepted values of peak level, spike level and rotation time are in force at once, the
  /// others at OK.
  std::optional<std::string> Validate(SettingsBox box);
  /// Fills the group's boxes as if the values had been typed and accepted.
  void SetDefaultValues(SettingsGroup group);
  /// Deliberate: these are brighter than the colours of an empty store.
  void SetDefaultColours();
  /// @param colour red + 256 green + 65536 blue
  void SetColour(const SettingsColourRow& row, std::int32_t colour) { values_.*row.Member = colour; }
  std::int32_t ColourOf(const SettingsColourRow& row) const { return values_.*row.Member; }

  /// Takes every box into the values and saves all of the dialog's keys.
  /// @throws RunTimeError 6 for a number that does not fit, which no accepted box holds
  void Accept();
  /// Takes every value of the dialog from the store again; writes nothing, validates nothing.
  /// @throws RunTimeError 6 for a stored value that does not fit
  void Cancel();

 private:
  void TakeAtOnce(SettingsBox box);

  SettingsValues& values_;
  SettingsStore& store_;
  std::array<std::string, static_cast<std::size_t>(SettingsBox::kCount)> texts_;
};

}  // namespace lobegraph
