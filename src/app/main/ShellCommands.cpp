#include "app/main/ShellCommands.h"

#include "acquisition/meters/LevelSource.h"
#include "app/run/RunCommands.h"
#include "settings/SettingsReader.h"
#include "settings/SettingsWriter.h"

namespace lobegraph {
namespace {

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string DefaultOffer(const BadSetting& bad) {
  const SettingRow& row = bad.Row();
  return bad.Place() + "\r\nsays " + std::string(row.Key) + "=" + bad.Text() +
         ", which cannot be used.\r\n\r\nUse the default, " + std::string(row.Default) + ", instead?";
}

}  // namespace

void ShellCommands::Form_Load() {
  parts_.Shared.Loading = true;
  const bool loaded = Guarded(parts_.Dialogs, "Form_Load", [&] {
    SetIdentity();
    AskCallSign();
    if (!LoadSettings()) return;
    OpenInputDevice();
    parts_.Shared.Run.InputReady = true;
    parts_.Shared.Loading = false;
  });
  if (!loaded || parts_.Shared.Loading) parts_.End.EndAtOnce();
}

/// A value that cannot be used would keep the user out for ever, so its key's default is offered.
bool ShellCommands::LoadSettings() {
  while (true) {
    try {
      ReadAndApplySettings();
      return true;
    } catch (const BadSetting& bad) {
      ReportFault(parts_.Dialogs, bad, "Form_Load");
      if (!parts_.Dialogs.AskYesNo(DefaultOffer(bad)) || !TakeDefault(bad)) return false;
    }
  }
}

bool ShellCommands::TakeDefault(const BadSetting& bad) {
  const SettingRow& row = bad.Row();
  store_.Save(kLobegraphApplication, kSettingsSection, row.Key, row.Default);
  return store_.Get(kLobegraphApplication, kSettingsSection, row.Key, row.Default) == row.Default;
}

void ShellCommands::SetIdentity() { parts_.Shared.NoticeText = "No warranty. Figures are estimates."; }

void ShellCommands::AskCallSign() {
  Globals& shared = parts_.Shared;
  shared.UserName = ReadUsername(store_);
  if (shared.UserName == " ") {
    shared.UserName = parts_.Dialogs.InputBox("Enter your call sign:", " ").value_or("");
    SaveUsername(store_, shared.UserName);
  }
  shared.Settings.Username = shared.UserName;
  parts_.View.SetText(Control::lblNotice, shared.NoticeText);
  parts_.View.SetText(Control::lblHint, kFirstHint);
  parts_.View.SetText(Control::lblOperator, " " + shared.UserName);
  parts_.View.SetCaption("Lobegraph " + shared.VersionText + "     User = " + shared.UserName);
}

void ShellCommands::ReadAndApplySettings() {
  ControlView& view = parts_.View;
  SettingsValues& settings = parts_.Shared.Settings;
  ReadRemaining(store_, settings);
  view.SetValue(Control::Slider1, settings.Scale);
  view.SetValue(Control::Slider2, settings.RotateTime);
  view.SetChecked(Control::chkAutoStart, settings.AutoStart != 0);
  view.SetChecked(Control::chkAutoStop, settings.AutoStop != 0);
  view.SetChecked(Control::chkTrigger, settings.Trigger != 0);
  view.SetBackground(Control::txtChan1, status_colour::kYellow);
  view.SetBackground(Control::chkCalibrate, status_colour::kLightYellow);
  view.SetWindowBackground(Colour::FromStored(settings.PlotBackground));
  parts_.Shared.Thresholds = SoundThresholds::FromPeak(settings.PeakInputLevel);
  view.SetMaximum(Control::Slider2, settings.Slider2Maximum());
  parts_.Pattern.SetStyle({.Rectangular = settings.LinearMode,
                           .Scale = ScaleOf(true, settings.ShowLogScale),
                           .ScaleSetting = view.Value(Control::Slider1)});
  view.SetEnabled(Control::cmdCollectData, true);
  Slider2_Change();
}

void ShellCommands::OpenInputDevice() {
  devices_.Open(InputDevices::Occasion::StartUp);
  parts_.View.SetText(Control::lblSource,
                      SourceLabel(parts_.Shared.Settings.Input, sound_.SoundSourceName()));
}

void ShellCommands::Form_QueryUnload() {
  if (!SourceOf(parts_.Shared.Settings.Input).IsMeter()) capture_.UninitializeSound();
}

bool ShellCommands::Form_Unload() {
  parts_.Shared.Run.CloseRequested = true;
  if (!devices_.CloseUsbModule()) return false;
  SaveOwnSettings();
  devices_.ClosePorts();
  if (parts_.Shared.Sound.SoundCaptureActive) sound_.StopSoundCapture();
  parts_.End.EndProgram();
  return true;
}

void ShellCommands::SaveOwnSettings() {
  const ControlView& view = parts_.View;
  SettingsValues& settings = parts_.Shared.Settings;
  settings.Scale = view.Value(Control::Slider1);
  settings.RotateTime = view.Value(Control::Slider2);
  settings.AutoStart = view.Checked(Control::chkAutoStart) ? 1 : 0;
  settings.AutoStop = view.Checked(Control::chkAutoStop) ? 1 : 0;
  settings.Trigger = view.Checked(Control::chkTrigger) ? 1 : 0;
  settings.LinearMode = parts_.Pattern.Style().Rectangular;
  settings.ShowLogScale = parts_.Pattern.Style().Logarithmic();
  SaveMainWindowSettings(store_, settings);
}

void ShellCommands::cmdExit_Click() {
  Form_QueryUnload();
  if (!Form_Unload()) parts_.End.EndProgram();
}

void ShellCommands::Form_Activate() {
  const Globals& shared = parts_.Shared;
  if (!shared.Loading && !shared.Run.Running() && !display_.Showing()) display_.Redraw();
}

void ShellCommands::cmdGrow_Click() {
  if (parts_.View.State() != WindowState::Normal) return;
  parts_.View.SetWidth(kGrownWidth);
  parts_.View.SetVisible(Control::cmdGrow, false);
}

void ShellCommands::cmdShrink_Click() {
  if (parts_.View.State() != WindowState::Normal)
    return parts_.Dialogs.ShowText("The screen cannot be shrunk when it is maximised");
  parts_.View.SetVisible(Control::cmdGrow, true);
  parts_.View.SetWidth(kShrunkWidth);
}

void ShellCommands::lblOperator_DblClick() {
  if (parts_.Shared.Run.IsCollecting) return;
  const std::optional<TickedAnswer> answer = parts_.Dialogs.InputBoxWithTick(
      "Please enter the Operator's name", "", "Also my &call sign at the next start");
  const std::string caption = " " + (answer ? answer->Text : "");
  parts_.View.SetText(Control::lblOperator, caption);
  const std::string name = Trimmed(caption);
  if (!name.empty()) parts_.Shared.UserName = name;
  if (answer && answer->Ticked) SaveUsername(store_, name);
}

void ShellCommands::Slider2_Change() {
  parts_.View.SetText(Control::lblRotationTime, std::to_string(parts_.View.Value(Control::Slider2)));
}

}  // namespace lobegraph
