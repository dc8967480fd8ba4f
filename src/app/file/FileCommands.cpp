#include "app/file/FileCommands.h"

#include "data/formats/PatternFile.h"

namespace lobegraph {
namespace {

constexpr const char* kEnding = ".lbg";

const char* LoadedHint(const PatternSession& pattern) {
  return pattern.Drawable() ? "Circ / Rect and Lin / Log show it in another way."
                            : "Damaged: the editor can show what was read.";
}

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.size() - FileNameOf(path).size());
}

}  // namespace

void FileCommands::cmdGetData_Click() { Ask(&PatternSession::Load); }

void FileCommands::cmdOverlay_Click() { Ask(&PatternSession::Overlay); }

void FileCommands::Ask(LoadCommand command) {
  const auto chosen = parts_.Dialogs.OpenFile(parts_.Shared.WorkingFolder);
  if (chosen && !chosen->empty()) Load(WithEnding(*chosen, kEnding), command);
}

void FileCommands::LoadDropped(const std::string& path) {
  if (!parts_.Shared.Run.Running()) Load(path, &PatternSession::Load);
}

void FileCommands::Load(const std::string& path, LoadCommand command) {
  bool read = false;
  const PatternReader reader = [&](const LoadRules& rules, ReadingsRecord& record) {
    const std::string bytes = parts_.Files.Read(path);
    read = true;
    return ReadPatternText(bytes, rules, record);
  };
  display_.Run([&](PatternSession& pattern) { return (pattern.*command)(path, reader); });
  if (!read) return;
  parts_.Shared.WorkingFolder = FolderOf(path);
  parts_.View.SetText(Control::lblHint, LoadedHint(parts_.Pattern));
}

void FileCommands::cmdSaveData_Click() {
  PatternSession& pattern = parts_.Pattern;
  if (!pattern.Record().HasReadings()) return parts_.Dialogs.ShowText("LBG003 No data to save");
  const std::string typed = parts_.View.Text(Control::txtDescription);
  pattern.Describe(typed.empty() ? kNoDescription : typed);
  parts_.View.SetText(Control::lblFileDescription, pattern.Record().Description);
  const auto chosen = parts_.Dialogs.SaveFile(parts_.Shared.WorkingFolder);
  if (!chosen || chosen->empty()) return;
  Guarded(parts_.Dialogs, "cmdSaveData_Click", [&] { Save(WithEnding(*chosen, kEnding)); });
}

void FileCommands::Save(const std::string& path) {
  if (!MayReplace(path)) return;
  Globals& shared = parts_.Shared;
  parts_.Files.Replace(path, WritePatternText(parts_.Pattern.CapForFile(), shared.VersionText));
  parts_.Pattern.SavedAs(path);
  shared.WorkingFolder = FolderOf(path);
  parts_.View.SetText(Control::txtFileName, parts_.Pattern.Record().FileName);
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
  parts_.Pattern.Describe(kept);
}

void FileCommands::txtDescription_Accept() {
  parts_.View.SetText(Control::lblFileDescription, parts_.View.Text(Control::txtDescription));
}

}  // namespace lobegraph
