#pragma once

#include "app/parts/AppParts.h"
#include "app/plot/PatternDisplay.h"

namespace lobegraph {

/// Loading, overlaying and saving patterns, and the description that goes with them.
class FileCommands {
 public:
  FileCommands(const AppParts& parts, PatternDisplay& display) : parts_(parts), display_(display) {}

  /// Asks for a file and loads it. Without one, or with one that cannot be read at all, everything stays as
  /// it is; a damaged one leaves the fields read before the damage, undrawn.
  void cmdGetData_Click();
  /// The same over the plot that is shown, in the current scale.
  void cmdOverlay_Click();
  /// Loads a file that was dropped on the window, in place of the pattern that is shown. Nothing while a run
  /// is on.
  void LoadDropped(const std::string& path);
  /// Saves the record under a name that is asked for; the old file stays whole until the new one is.
  void cmdSaveData_Click();

  /// The box's text is the record's description at every key; quotes and line breaks never get in.
  void txtDescription_Change();
  /// Enter, or the focus leaving: the caption on the plot follows.
  void txtDescription_Accept();

 private:
  using LoadCommand = Outcome (PatternSession::*)(const std::string& path, const PatternReader& read);
  void Ask(LoadCommand command);
  void Load(const std::string& path, LoadCommand command);
  void Save(const std::string& path);
  void KnowTurn(const std::string& path);
  void StartDialogsIn(const std::string& folder);
  bool MayReplace(const std::string& path);

  AppParts parts_;
  PatternDisplay& display_;
};

}  // namespace lobegraph
