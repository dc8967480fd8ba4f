#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/parts/AppParts.h"
#include "app/parts/EditorView.h"
#include "app/plot/PatternDisplay.h"
#include "data/editor/EditorGrid.h"

namespace lobegraph {

/// The readings editor: fills its grid from the plot, from a file or by hand, and gives it back to the plot.
class frmEditLbg {
 public:
  frmEditLbg(const AppParts& parts, PatternDisplay& display) : parts_(parts), display_(display) {}

  /// Ticked: shows the editor, its grid empty. Cleared: unloads it.
  void chkEditor_Click();
  /// The user closed the window.
  void Form_Unload();

  void cmdGetDataFromPlot_Click();
  /// Asks for a CSV file (a name without ".csv" gets it) and fills the grid from its top. Cancelled: nothing
  /// changes, nor with a file that cannot be opened. One that cannot be read to its end leaves what was read
  /// of it. The status line says why.
  void cmdGetDataFromFile_Click();
  void cmdInsert_Click();
  void cmdDelete_Click();
  /// The values become the readings, which are plotted. With an empty value nothing changes, and no box
  /// opens; a value that is no number is an error, its row is named and selected, and nothing changes either.
  void cmdUpdate_Click();
  /// Clears all values.
  void Command1_Click();

  /// The user's own work in the cells.
  void EditValue(int row, const std::string& text);
  void Paste(int row, EditorColumn column, std::string_view text);
  void ClearValues(int firstRow, int lastRow);

  const EditorGrid& Grid() const { return grid_; }

 private:
  /// Runs a handler of the form.
  void Run(const char* procedure, const std::function<void()>& handler);
  void Import(const std::string& path);
  void Update();
  std::string NoNumberAdvice(int row) const;
  std::string NegativeAdvice(const ReadingArray& readings) const;
  EditorView& View() const { return *parts_.frmEditLbg; }

  AppParts parts_;
  PatternDisplay& display_;
  EditorGrid grid_;
};

}  // namespace lobegraph
