#include "app/input/frmChooseInput.h"

#include <algorithm>

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

/// The entry of a number; empty when there is none.
std::string Among(const std::vector<std::string>& entries, int number) {
  const auto entry = std::find(entries.begin(), entries.end(), std::to_string(number));
  return entry == entries.end() ? "" : *entry;
}

}  // namespace

void frmChooseInput::Form_Load() {
  loading_ = true;
  const LevelSource& source = SourceToTick(Choice());
  const bool usb = Choice().GaugeBridgeTrigger;
  shown_ = {.Input = static_cast<int>(&source - LevelSources().data()),
            .Trigger = usb ? chooser::kUsb : chooser::kCts,
            .MeterComShown = source.NeedsPort,
            .CommPorts = Numbers(1),
            .ComTriggers = Numbers(0),
            .ComTriggerEnabled = !usb};
  shown_.CommPort = Among(shown_.CommPorts, Choice().Commport);
  shown_.ComTrigger = Among(shown_.ComTriggers, usb ? 0 : Choice().Commtrigger);
  ShowAll();
  loading_ = false;
}

void frmChooseInput::ShowAll() {
  shown_.CommPortTitle = TitleOf(shown_.CommPort);
  shown_.ComTriggerTitle = TitleOf(shown_.ComTrigger);
  view_.Show(shown_);
}

void frmChooseInput::optInput_Click(int index) {
  if (loading_ || index < 0 || index >= static_cast<int>(LevelSources().size())) return;
  const LevelSource& source = LevelSources()[static_cast<std::size_t>(index)];
  Choose(source, Choice());
  shown_.Input = index;
  shown_.MeterComShown = source.NeedsPort;
  ShowAll();
}

void frmChooseInput::optTrigger_Click(int index) {
  if (loading_) return;
  const bool usb = index == chooser::kUsb;
  shown_.Trigger = index;
  if (usb) shown_.ComTrigger = "0";
  shown_.ComTriggerEnabled = !usb;
  ShowAll();
}

void frmChooseInput::CommPort_Change(const std::string& number) {
  shown_.CommPort = number;
  ShowAll();
}

void frmChooseInput::ComTrigger_Change(const std::string& number) {
  shown_.ComTrigger = number;
  ShowAll();
}

void frmChooseInput::cmdOK_Click() {
  if (SerialMeterWithoutPort()) return parts_.Dialogs.ShowText(chooser::kNoPortMessage);
  InputChoice& choice = Choice();
  choice.GaugeBridgeTrigger = shown_.Trigger == chooser::kUsb;
  choice.Commport = ToInt16(LeadingNumber(shown_.CommPort));
  choice.Commtrigger = ToInt16(LeadingNumber(shown_.ComTrigger));
  SaveChoice();
  SetTriggerBox();
  view_.Close();
}

bool frmChooseInput::SerialMeterWithoutPort() const {
  return SourceOf(Choice()).NeedsPort && LeadingNumber(shown_.CommPort) == 0;
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

void frmChooseInput::Assign(const std::string& numberText, const std::string& path) {
  const int number = ToInt16(LeadingNumber(numberText));
  if (number == 0) return;
  assigned_[number] = path;
  ShowAll();
}

std::string frmChooseInput::TitleOf(const std::string& numberText) const {
  const int number = ToInt16(LeadingNumber(numberText));
  if (number == 0) return "";
  const auto own = assigned_.find(number);
  return own == assigned_.end() ? ports_.TitleOf(number) : ports_.TitleOfPath(own->second);
}

}  // namespace lobegraph
