#include "app/file/FileCommands.h"

namespace lobegraph {
namespace {

constexpr const char* kEnding = ".lbg";

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.size() - FileNameOf(path).size());
}

}  // namespace

void FileCommands::cmdGetData_Click() {
  const auto chosen = parts_.Dialogs.OpenFile(parts_.Shared.WorkingFolder);
  if (chosen && !chosen->empty())
    Guarded(parts_.Dialogs, "cmdGetData_Click", [&] { Load(WithEnding(*chosen, kEnding)); });
  parts_.Shared.Overlay = false;
}

void FileCommands::LoadDropped(const std::string& path) {
  if (parts_.Shared.Run.Running()) return;
  parts_.Shared.Overlay = false;
  Guarded(parts_.Dialogs, "cmdGetData_Click", [&] { Load(path); });
}

void FileCommands::cmdOverlay_Click() {
  parts_.Shared.Overlay = true;
  cmdGetData_Click();
}

void FileCommands::Load(const std::string& path) {
  const std::string bytes = parts_.Files.Read(path);
  Globals& shared = parts_.Shared;
  if (!shared.Overlay)
    shared.Beneath.reset();
  else if (shared.Record.Held() && !shared.HalfLoaded)
    shared.Beneath = shared.Record;
  shared.Loading = true;
  ReadInto(path, bytes);
  shared.Loading = false;
  shared.WorkingFolder = FolderOf(path);
  parts_.View.SetText(Control::lblHint, "Circ / Rect and Lin / Log show it in another way.");
}

void FileCommands::ReadInto(const std::string& path, const std::string& bytes) {
  Globals& shared = parts_.Shared;
  parts_.View.SetChecked(Control::chk180, false);
  shared.Record.Plot180 = false;
  if (!shared.Overlay) board_.DrawCircularGrid();
  plot_.ClearPlotFields();
  shared.Record.FilePath = path;
  shared.Record.FileName = FileNameOf(path);
  const LoadOutcome outcome = ReadPatternText(
      bytes, {.Overlay = shared.Overlay, .PeakInputLevel = shared.Settings.PeakInputLevel}, shared.Record);
  shared.DescriptionLoaded = outcome.DescriptionRead;
  shared.HalfLoaded = outcome.Error.has_value();
  ShowLoaded(outcome);
}

void FileCommands::ShowLoaded(const LoadOutcome& outcome) {
  for (const std::string& message : outcome.Messages) parts_.Dialogs.ShowText(message);
  plot_.ShowRecord();
  if (outcome.Error)
    ReportFault(parts_.Dialogs, *outcome.Error, "cmdGetData_Click");
  else
    plot_.ReDraw();
  parts_.Shared.Record.SaveReadings();
}

void FileCommands::cmdSaveData_Click() {
  Globals& shared = parts_.Shared;
  if (!shared.Record.Held()) return parts_.Dialogs.ShowText("LBG003 No data to save");
  const std::string typed = parts_.View.Text(Control::txtDescription);
  shared.Record.Description = typed.empty() ? "No description" : typed;
  parts_.View.SetText(Control::lblFileDescription, shared.Record.Description);
  const auto chosen = parts_.Dialogs.SaveFile(shared.WorkingFolder);
  if (!chosen || chosen->empty()) return;
  Guarded(parts_.Dialogs, "cmdSaveData_Click", [&] { Save(WithEnding(*chosen, kEnding)); });
}

void FileCommands::Save(const std::string& path) {
  if (!MayReplace(path)) return;
  Globals& shared = parts_.Shared;
  CapForFile(shared.Record);
  parts_.Files.Replace(path, WritePatternText(shared.Record, shared.VersionText));
  shared.Record.FilePath = path;
  shared.Record.FileName = FileNameOf(path);
  shared.WorkingFolder = FolderOf(path);
  parts_.View.SetText(Control::txtFileName, shared.Record.FileName);
  parts_.View.SetText(Control::lblHint, "Saved in " + shared.WorkingFolder);
}

bool FileCommands::MayReplace(const std::string& path) {
  if (!parts_.Files.Exists(path)) return true;
  return parts_.Dialogs.AskYesNo("LBG004 Filename " + parts_.System.UpperCase(FileNameOf(path)) +
                                 " already exists\r\nDo you wish to replace it?");
}

void FileCommands::txtDescription_Change() {
  const std::string typed = parts_.View.Text(Control::txtDescription);
  const std::string kept = QuotableText(typed);
  if (kept != typed) parts_.View.SetText(Control::txtDescription, kept);
  parts_.Shared.Record.Description = kept;
}

void FileCommands::txtDescription_Accept() {
  parts_.View.SetText(Control::lblFileDescription, parts_.View.Text(Control::txtDescription));
}

}  // namespace lobegraph
