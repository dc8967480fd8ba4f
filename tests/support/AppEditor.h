#pragma once

#include <optional>
#include <string>

#include "app/parts/EditorView.h"

namespace lobegraph {

/// The editor's window in memory; what a user does there is written to it.
class FakeEditor final : public EditorView {
 public:
  int Row = 0;  ///< the row that the user is in
  std::optional<std::string> CsvFile;
  std::string Folder;  ///< where the file dialog started

  bool IsOpen = false;
  int TimesShown = 0;
  int SelectedRow = 0;
  std::string Status;
  bool UpdateAllowed = true;

  void Open() override { IsOpen = true; }
  void Unload() override { IsOpen = false; }
  void ShowCells() override { ++TimesShown; }
  int CurrentRow() const override { return Row; }
  void SelectRow(int row) override { SelectedRow = row; }
  void ShowStatus(const std::string& text) override { Status = text; }
  void AllowUpdate(bool allowed) override { UpdateAllowed = allowed; }
  std::optional<std::string> AskCsvFile(const std::string& folder) override {
    Folder = folder;
    return CsvFile;
  }
};

}  // namespace lobegraph
