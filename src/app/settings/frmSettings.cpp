#include "app/settings/frmSettings.h"

namespace lobegraph {
namespace {

constexpr const char* kDialogNotice = "Settings are kept for each user.";

}  // namespace

void frmSettings::Run(const std::string& procedure, const std::function<void()>& handler) {
  Guarded(parts_.Dialogs, procedure, "frmSettings", handler);
}

bool frmSettings::MayOpen(SettingsWay way) const {
  const Globals& shared = parts_.Shared;
  if (shared.Run.Running() || shared.Loading || dialog_) return false;
  return way == SettingsWay::Keyboard || !(shared.AnalysisShown && parts_.Pattern.Style().Rectangular);
}

void frmSettings::Form_Load() {
  parts_.Shared.NoticeText = kDialogNotice;
  dialog_ = std::make_unique<SettingsDialog>(parts_.Shared.Settings, store_);
  display_.DialogOpens();
}

bool frmSettings::Validate(SettingsBox box) {
  bool accepted = false;
  Run(std::string(RowOf(box).Name) + "_Validate", [&] {
    const auto refusal = Dialog().Validate(box);
    if (refusal) parts_.Dialogs.ShowText(*refusal);
    accepted = !refusal;
  });
  return accepted;
}

void frmSettings::ChooseColour(const SettingsColourRow& row, std::optional<Colour> colour) {
  if (!colour) return;
  Run(std::string(row.Name) + "_Click", [&] {
    Dialog().SetColour(row, colour->Stored());
    if (row.Member == &SettingsValues::PlotBackground) DrawOnNewBackground();
  });
}

void frmSettings::cmdDefault_Click() {
  Run("cmdDefault_Click", [&] {
    Dialog().SetDefaultColours();
    DrawOnNewBackground();
  });
}

void frmSettings::cmdSetDefaultValues_Click(SettingsGroup group) {
  Run("cmdSetDefaultValues_Click", [&] { Dialog().SetDefaultValues(group); });
}

void frmSettings::cmdTextOnOff_Click() {
  Run("cmdTextOnOff_Click", [&] {
    bool& shown = parts_.Shared.PlotTextShown;
    shown = !shown;
    for (const Control control : TextOnPlot()) parts_.View.SetVisible(control, shown);
  });
}

void frmSettings::cmdOK_Click() {
  Run("cmdOK_Click", [&] {
    Dialog().Accept();
    ApplyInputLevelsAndRotationTime();
  });
}

void frmSettings::cmdCancel_Click() {
  Run("cmdCancel_Click", [&] {
    Dialog().Cancel();
    ApplyInputLevelsAndRotationTime();
  });
  ShowBackground();
}

void frmSettings::Closed() {
  dialog_.reset();
  display_.DialogCloses();
}

void frmSettings::ApplyInputLevelsAndRotationTime() {
  const SettingsValues& settings = parts_.Shared.Settings;
  parts_.Shared.Thresholds = SoundThresholds::FromPeak(settings.PeakInputLevel);
  parts_.View.SetMaximum(Control::Slider2, settings.Slider2Maximum());
  // A shorter maximum may have moved the slider.
  parts_.View.SetText(Control::lblRotationTime, std::to_string(parts_.View.Value(Control::Slider2)));
}

void frmSettings::DrawOnNewBackground() {
  ShowBackground();
  display_.RedrawBeneathDialog();
}

void frmSettings::ShowBackground() {
  parts_.View.SetWindowBackground(Colour::FromStored(parts_.Shared.Settings.PlotBackground));
}

}  // namespace lobegraph
