#include "app/input/frmChooseInput.h"

#include "acquisition/meters/LevelSource.h"
#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "settings/SettingsReader.h"
#include "settings/SettingsWriter.h"

namespace lobegraph {
namespace {

std::vector<std::string> Numbers(int first) {
  std::vector<std::string> entries;
  for (int number = first; number <= kHighestComNumber; ++number) entries.push_back(std::to_string(number));
  return entries;
}

}  // namespace

void frmChooseInput::Form_Load() {
  loading_ = true;
  view_.ShowMeterCom(false);
  TickPresentChoice();
  view_.FillComTrigger(Numbers(0));
  view_.FillCommPort(Numbers(1));
  TickPresentTrigger();
  view_.SelectCommPort(std::to_string(Choice().Commport));
  PortChosen();
  loading_ = false;
}

void frmChooseInput::TickPresentChoice() {
  const LevelSource& source = SourceToTick(Choice());
  view_.TickInput(static_cast<int>(&source - LevelSources().data()));
  if (source.NeedsPort) view_.ShowMeterCom(true);
}

void frmChooseInput::TickPresentTrigger() {
  const bool usb = Choice().GaugeBridgeTrigger;
  view_.TickTrigger(usb ? chooser::kUsb : chooser::kCts);
  view_.SelectComTrigger(usb ? "0" : std::to_string(Choice().Commtrigger));
  if (usb) view_.EnableComTrigger(false);
}

void frmChooseInput::optInput_Click(int index) {
  if (loading_ || index < 0 || index >= static_cast<int>(LevelSources().size())) return;
  const LevelSource& source = LevelSources()[static_cast<std::size_t>(index)];
  Choose(source, Choice());
  view_.ShowMeterCom(source.NeedsPort);
}

void frmChooseInput::optTrigger_Click(int index) {
  if (loading_) return;
  if (index == chooser::kUsb) view_.SelectComTrigger("0");
  view_.EnableComTrigger(index != chooser::kUsb);
  PortChosen();
}

void frmChooseInput::cmdOK_Click() {
  if (SerialMeterWithoutPort()) return parts_.Dialogs.ShowText(chooser::kNoPortMessage);
  InputChoice& choice = Choice();
  choice.GaugeBridgeTrigger = view_.TriggerTicked(chooser::kUsb);
  choice.Commport = ToInt16(LeadingNumber(view_.CommPortText()));
  choice.Commtrigger = ToInt16(LeadingNumber(view_.ComTriggerText()));
  SaveChoice();
  SetTriggerBox();
  view_.Close();
}

bool frmChooseInput::SerialMeterWithoutPort() const {
  return SourceOf(Choice()).NeedsPort && LeadingNumber(view_.CommPortText()) == 0;
}

void frmChooseInput::SaveChoice() {
  SaveInputChoice(store_, Choice());
  for (const auto& [number, path] : assigned_) ports_.Assign(number, path);
}

/// Without any trigger a ticked box would make every turn wait for ever.
void frmChooseInput::SetTriggerBox() {
  const bool triggered = Choice().Commtrigger != 0 || Choice().GaugeBridgeTrigger;
  if (!triggered) parts_.View.SetChecked(Control::chkTrigger, false);
  parts_.View.SetEnabled(Control::chkTrigger, triggered);
}

void frmChooseInput::cmdCancel_Click() {
  view_.Close();
  Guarded(parts_.Dialogs, "cmdCancel_Click", [this] { ReloadInputChoice(store_, Choice()); });
}

void frmChooseInput::PortChosen() {
  view_.ShowPortTitles(TitleOf(view_.CommPortText()), TitleOf(view_.ComTriggerText()));
}

void frmChooseInput::Assign(const std::string& numberText, const std::string& path) {
  const int number = ToInt16(LeadingNumber(numberText));
  if (number == 0) return;
  assigned_[number] = path;
  PortChosen();
}

std::string frmChooseInput::TitleOf(const std::string& numberText) const {
  const int number = ToInt16(LeadingNumber(numberText));
  if (number == 0) return "";
  const auto own = assigned_.find(number);
  return own == assigned_.end() ? ports_.TitleOf(number) : ports_.TitleOfPath(own->second);
}

}  // namespace lobegraph
