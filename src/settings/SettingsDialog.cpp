#include "settings/SettingsDialog.h"

#include <cmath>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"
#include "settings/SettingsReader.h"
#include "settings/SettingsWriter.h"

namespace lobegraph {
namespace {

using enum SettingsBox;
using enum SettingsGroup;

constexpr auto kBoxes = std::to_array<SettingsBoxRow>({
    {txtDetectStartLevel, "txtDetectStartLevel", AutoStartStop,
     "Input Level to trigger Auto Start, range 1-40", "7", 1, 40, true,
     "LBG024 Detect Start Level must be in the range 1 to 40"},
    {txtStartupDelay, "txtStartupDelay", AutoStartStop,
     "Seconds of delay after Auto Start triggered before collection started, range 0.00-1.00", "0.25", 0, 1,
     false, "LBG023 Startup delay must be in the range 0.00 to 1.00"},
    {txtDetectStopLevel, "txtDetectStopLevel", AutoStartStop,
     "Input Level to trigger Auto Stop detection, range 1-40", "7", 1, 40, true,
     "LBG025 Detect Stop Level must be in the range 1 to 40"},
    {txtDetectStopNumberOfReadings, "txtDetectStopNumberOfReadings", AutoStartStop,
     "No. of consecutive readings below Auto Stop level to stop collecting, range 1-20", "5", 1, 20, true,
     "LBG026 Detect Stop Number of Readings must be in the range 1 to 20"},
    {txtPeakInputLevel, "txtPeakInputLevel", SoundCard, "Peak input level from sound card, range 90-1000",
     "1000", 90, 1000, true, "LBG027 Peak input level must be in the range 90 to 1000"},
    {txtMaxRotationTime, "txtMaxRotationTime", Other, "Maximum rotation time in minutes, range 2-20", "2", 2,
     20, true, "LBG027 Maximum rotation time must be in the range 2 to 20"},
    {txtSpikeDetectLevel, "txtSpikeDetectLevel", Other,
     "Audio spike detection trigger level, range 10 to 100", "50", 10, 100, true,
     "LBG027 Audio spike detection level must be in the range 10 to 100"},
});
static_assert(kBoxes.size() == static_cast<std::size_t>(SettingsBox::kCount));

constexpr auto kColours = std::to_array<SettingsColourRow>({
    {"cmdPlotUserColour", &SettingsValues::PlotUserColour, 16711680, "Colour to use for -3dB.", false},
    {"cmdPlotUserOverlayColour", &SettingsValues::PlotUserOverlayColour, 65535, "Colour to use for -3dB.",
     true},
    {"cmdPlotLineColour", &SettingsValues::PlotLineColour, 255, "Colour to use for plotting.", false},
    {"cmdPlotLineOverlayColour", &SettingsValues::PlotLineOverlayColour, 32768, "Colour to use for plotting.",
     true},
    {"cmdPlotGridColour", &SettingsValues::PlotGridColour, 0, "Colour to use for grid.", false},
    {"cmdPlotBackground", &SettingsValues::PlotBackground, 14737632, "Colour of background.", false},
});

/// @throws RunTimeError 6 as LeadingNumber
double Typed(const std::string& text) { return LeadingNumber(WithDecimalPoint(text)); }

bool InRange(const SettingsBoxRow& row, const std::string& text) {
  try {
    const double value =
        row.WholePart ? std::floor(Typed(text)) : Currency::FromText(WithDecimalPoint(text)).ToDouble();
    return value >= row.Lowest && value <= row.Highest;
  } catch (const RunTimeError&) {
    return false;  // too large for any number is out of every range
  }
}

}  // namespace

std::span<const SettingsBoxRow> SettingsBoxes() { return kBoxes; }
const SettingsBoxRow& RowOf(SettingsBox box) { return kBoxes.at(static_cast<std::size_t>(box)); }
std::span<const SettingsColourRow> SettingsColours() { return kColours; }

SettingsDialog::SettingsDialog(SettingsValues& values, SettingsStore& store)
    : values_(values), store_(store) {
  SetText(txtDetectStartLevel, StoreText(values.DetectStartLevel));
  SetText(txtStartupDelay, values.StartupDelay.ToText());
  SetText(txtDetectStopLevel, StoreText(values.DetectStopLevel));
  SetText(txtDetectStopNumberOfReadings, std::to_string(values.DetectStopNumberOfReadings));
  SetText(txtPeakInputLevel, StoreText(values.PeakInputLevel));
  SetText(txtMaxRotationTime, values.MaxRotationTime);
  SetText(txtSpikeDetectLevel, std::to_string(values.SpikeDetectLevel));
}

std::optional<std::string> SettingsDialog::Validate(SettingsBox box) {
  const SettingsBoxRow& row = RowOf(box);
  if (!InRange(row, Text(box))) return std::string(row.Message);
  TakeAtOnce(box);
  return std::nullopt;
}

void SettingsDialog::TakeAtOnce(SettingsBox box) {
  const double wholePart = std::floor(Typed(Text(box)));
  if (box == txtPeakInputLevel) values_.PeakInputLevel = ToSingle(wholePart);
  if (box == txtSpikeDetectLevel) values_.SpikeDetectLevel = ToInt16(wholePart);
  if (box == txtMaxRotationTime) values_.MaxRotationTime = std::to_string(ToInt32(wholePart));
}

void SettingsDialog::SetDefaultValues(SettingsGroup group) {
  for (const SettingsBoxRow& row : kBoxes) {
    if (row.Group != group) continue;
    SetText(row.Id, std::string(row.Default));
    TakeAtOnce(row.Id);
  }
}

void SettingsDialog::SetDefaultColours() {
  for (const SettingsColourRow& row : kColours) SetColour(row, row.Default);
}

void SettingsDialog::Accept() {
  values_.DetectStopNumberOfReadings = ToInt16(Typed(Text(txtDetectStopNumberOfReadings)));
  values_.DetectStopLevel = ToSingle(Typed(Text(txtDetectStopLevel)));
  values_.DetectStartLevel = ToSingle(Typed(Text(txtDetectStartLevel)));
  values_.StartupDelay = Currency::FromText(WithDecimalPoint(Text(txtStartupDelay)));
  SaveDialogSettings(store_, values_);
}

void SettingsDialog::Cancel() { ReloadDialogSettings(store_, values_); }

}  // namespace lobegraph
