#pragma once

#include <optional>
#include <string>

namespace lobegraph {

/// The window of the readings editor (frmEditLbg) as its commands see it. It shows the cells of an
/// EditorGrid.
class EditorView {
 public:
  virtual ~EditorView() = default;

  /// Shows the window, not modally.
  virtual void Open() = 0;
  virtual void Unload() = 0;
  /// The grid changed: all cells at once.
  virtual void ShowCells() = 0;
  /// The row that the user is in, from 1; 0 when nothing is selected.
  virtual int CurrentRow() const = 0;
  virtual void SelectRow(int row) = 0;
  /// One line beneath the grid.
  virtual void ShowStatus(const std::string& text) = 0;
  /// Whether the plot may be updated and a file asked for: not during a run.
  virtual void AllowUpdate(bool allowed) = 0;
  /// Asks for a CSV file; a name that does not exist can be chosen. None when the dialog was cancelled.
  virtual std::optional<std::string> AskCsvFile(const std::string& folder) = 0;
};

/// The filter of the CSV dialog, entry by entry.
inline constexpr const char* kCsvFilter = "CSV Files (*.csv)|*.csv|All Files (*.*)|*.*";

}  // namespace lobegraph
