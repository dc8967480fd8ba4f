#include "app/file/FileCommands.h"

#include <filesystem>

#include "data/formats/PatternFile.h"
#include "data/turns/TurnFiles.h"

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

bool SameFolder(const std::string& a, const std::string& b) {
  std::error_code none;
  return std::filesystem::equivalent(a, b, none);
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
  StartDialogsIn(FolderOf(path));
  parts_.View.SetText(Control::lblHint, LoadedHint(parts_.Pattern));
  KnowTurn(path);
}

/// The log beside the file, when it is this pattern's.
void FileCommands::KnowTurn(const std::string& path) {
  PatternSession& pattern = parts_.Pattern;
  if (!pattern.Drawable()) return;
  LogBeside beside = ReadLogBeside(parts_.Files, path, pattern.Record());
  if (beside.Log) pattern.KnowTurn(std::move(*beside.Log));
  if (!beside.Note.empty()) parts_.View.SetText(Control::lblHint, beside.Note);
}

/// A turn that was got back is saved where the user keeps his patterns: what lies in the folder of kept turns
/// is dropped one day.
void FileCommands::StartDialogsIn(const std::string& folder) {
  if (!SameFolder(folder, parts_.Shared.TurnsFolder)) parts_.Shared.WorkingFolder = folder;
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
  const std::string bytes = WritePatternText(parts_.Pattern.CapForFile(), shared.VersionText);
  const auto turn = parts_.Pattern.TurnToSave();
  const std::string trouble = SaveTurn(parts_.Files, path, bytes, turn);
  parts_.Pattern.SavedAs(path);
  StartDialogsIn(FolderOf(path));
  parts_.View.SetText(Control::txtFileName, parts_.Pattern.Record().FileName);
  parts_.View.SetText(Control::lblHint,
                      "Saved in " + FolderOf(path) + (trouble.empty() ? "" : ". " + trouble));
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
