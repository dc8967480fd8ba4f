#pragma once

#include "app/parts/AppParts.h"
#include "app/plot/PlotBoard.h"
#include "app/plot/PlotCommands.h"
#include "data/formats/PatternFile.h"

namespace lobegraph {

/// Loading, overlaying and saving patterns, and the description that goes with them.
class FileCommands {
 public:
  FileCommands(const AppParts& parts, PlotBoard& board, PlotCommands& plot)
      : parts_(parts), board_(board), plot_(plot) {}

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
  void Load(const std::string& path);
  void ReadInto(const std::string& path, const std::string& bytes);
  void ShowLoaded(const LoadOutcome& outcome);
  void Save(const std::string& path);
  bool MayReplace(const std::string& path);

  AppParts parts_;
  PlotBoard& board_;
  PlotCommands& plot_;
};

}  // namespace lobegraph
