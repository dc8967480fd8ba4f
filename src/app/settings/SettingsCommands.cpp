#include "app/settings/SettingsCommands.h"

namespace lobegraph {
namespace {

constexpr const char* kDialogNotice = "Settings are kept for each user.";

}  // namespace

template <typename Action>
void SettingsCommands::Guard(std::string_view procedure, Action&& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    ReportFault(parts_.Dialogs, error, procedure, "frmSettings");
  }
}

bool SettingsCommands::MayOpen(SettingsWay way) const {
  const Globals& shared = parts_.Shared;
  if (shared.Run.Running() || shared.Loading || dialog_) return false;
  return way == SettingsWay::Keyboard || !(shared.AnalysisShown && parts_.Pattern.Style().Rectangular);
}

void SettingsCommands::Form_Load() {
  parts_.Shared.NoticeText = kDialogNotice;
  dialog_ = std::make_unique<SettingsDialog>(parts_.Shared.Settings, store_);
}

bool SettingsCommands::Validate(SettingsBox box) {
  const auto refusal = Dialog().Validate(box);
  if (refusal) parts_.Dialogs.ShowText(*refusal);
  return !refusal;
}

void SettingsCommands::ChooseColour(const SettingsColourRow& row, std::optional<Colour> colour) {
  if (!colour) return;
  Dialog().SetColour(row, colour->Stored());
  if (row.Member == &SettingsValues::PlotBackground) DrawOnNewBackground();
}

void SettingsCommands::cmdDefault_Click() {
  Dialog().SetDefaultColours();
  DrawOnNewBackground();
}

void SettingsCommands::cmdTextOnOff_Click() {
  bool& shown = parts_.Shared.PlotTextShown;
  shown = !shown;
  for (const Control control : TextOnPlot()) parts_.View.SetVisible(control, shown);
}

void SettingsCommands::cmdOK_Click() {
  Guard("cmdOK_Click", [&] {
    Dialog().Accept();
    ApplyInputLevelsAndRotationTime();
  });
}

void SettingsCommands::cmdCancel_Click() {
  Guard("cmdCancel_Click", [&] {
    Dialog().Cancel();
    ApplyInputLevelsAndRotationTime();
  });
  ShowBackground();
}

void SettingsCommands::Closed() {
  dialog_.reset();
  display_.Redraw();
}

void SettingsCommands::ApplyInputLevelsAndRotationTime() {
  const SettingsValues& settings = parts_.Shared.Settings;
  parts_.Shared.Thresholds = SoundThresholds::FromPeak(settings.PeakInputLevel);
  parts_.View.SetMaximum(Control::Slider2, settings.Slider2Maximum());
  // A shorter maximum may have moved the slider.
  parts_.View.SetText(Control::lblRotationTime, std::to_string(parts_.View.Value(Control::Slider2)));
}

void SettingsCommands::DrawOnNewBackground() {
  ShowBackground();
  display_.Redraw();
}

void SettingsCommands::ShowBackground() {
  parts_.View.SetWindowBackground(Colour::FromStored(parts_.Shared.Settings.PlotBackground));
}

}  // namespace lobegraph
