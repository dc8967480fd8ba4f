#include "app/editor/frmEditLbg.h"

#include "data/formats/CsvReadings.h"

namespace lobegraph {
namespace {

constexpr const char* kForm = "frmEditLbg";

std::string ErrorLine(const RunTimeError& error, const std::string& path) {
  const std::string advice = error.AdviceText().empty() ? "" : " " + error.AdviceText();
  return "Error " + std::to_string(error.Number()) + " (" + error.Description() + "): " + FileNameOf(path) +
         advice;
}

}  // namespace

void frmEditLbg::chkEditor_Click() {
  Run("chkEditor_Click", [&] {
    if (parts_.frmEditLbg == nullptr) return;
    if (!parts_.View.Checked(Control::chkEditor)) return View().Unload();
    grid_.Reset();
    View().ShowCells();
    View().ShowStatus("");
    View().AllowUpdate(!parts_.Shared.Run.Running());
    View().Open();
  });
}

void frmEditLbg::Form_Unload() { parts_.View.SetChecked(Control::chkEditor, false); }

void frmEditLbg::cmdGetDataFromPlot_Click() {
  Run("cmdGetDataFromPlot_Click", [&] {
    grid_.GetFromPlot(parts_.Pattern.Record().Readings);
    View().ShowCells();
    View().ShowStatus("");
  });
}

void frmEditLbg::cmdGetDataFromFile_Click() {
  Run("cmdGetDataFromFile_Click", [&] {
    if (parts_.Shared.Run.Running()) return;
    const auto chosen = View().AskCsvFile(parts_.Shared.WorkingFolder);
    if (chosen && !chosen->empty()) Import(WithEnding(*chosen, ".csv"));
  });
}

void frmEditLbg::Run(const char* procedure, const std::function<void()>& handler) {
  Guarded(parts_.Dialogs, procedure, kForm, handler);
}

/// The grid is emptied for what was read, never before: a mistyped name leaves the rows alone.
void frmEditLbg::Import(const std::string& path) {
  try {
    const CsvReadings readings = ReadCsv(*parts_.Files.Open(path, FileAccess::kLargestFile));
    grid_.Reset();
    grid_.GetFromCsv(readings);
    View().ShowStatus(CsvSummary(readings));
    if (readings.ReadError) throw RunTimeError(fault::kDeviceIo, path);
  } catch (const RunTimeError& error) {
    View().ShowStatus(ErrorLine(error, path));
  }
  View().ShowCells();
}

void frmEditLbg::cmdInsert_Click() {
  Run("cmdInsert_Click", [&] {
    grid_.Insert(View().CurrentRow());
    View().ShowCells();
  });
}

void frmEditLbg::cmdDelete_Click() {
  Run("cmdDelete_Click", [&] {
    grid_.Delete(View().CurrentRow());
    View().ShowCells();
  });
}

void frmEditLbg::cmdUpdate_Click() {
  Run("cmdUpdate_Click", [&] {
    if (parts_.Shared.Run.Running()) return;
    if (const auto empty = grid_.EmptyRow())
      return View().ShowStatus("Row " + std::to_string(*empty) + " is empty: the plot stays as it is");
    View().ShowStatus("");
    Update();
  });
}

void frmEditLbg::Update() {
  int row = 0;
  ReadingArray readings = parts_.Pattern.Record().Readings;
  try {
    readings = grid_.Numbers(readings, row);
  } catch (const RunTimeError& error) {
    View().SelectRow(row);
    View().ShowStatus("Row " + std::to_string(row) + " is no number: the plot stays as it is");
    return ReportFault(parts_.Dialogs, error, "cmdUpdate_Click", kForm, NoNumberAdvice(row));
  }
  if (LastLevel(readings) < 0) return View().ShowStatus("No row has a level: the plot stays as it is");
  display_.Run([&](PatternSession& pattern) { return pattern.Update(readings); }, NegativeAdvice(readings));
}

std::string frmEditLbg::NoNumberAdvice(int row) const {
  return "Row " + std::to_string(row) + " reads \"" + grid_.Text(row, EditorColumn::Value) +
         "\", which is no number. Type a level with digits and a point, or 0 for an empty place.";
}

/// A level below 0 has no place on a plot; which row holds it is said where the drawing fails.
std::string frmEditLbg::NegativeAdvice(const ReadingArray& readings) const {
  for (int row = 1; row <= EditorGrid::kRows; ++row)
    if (readings(row - 1) < 0.F)
      return "Row " + std::to_string(row) + " reads \"" + grid_.Text(row, EditorColumn::Value) +
             "\", which is below 0. Levels begin at 0: type another one and update again.";
  return "";
}

void frmEditLbg::Command1_Click() {
  Run("Command1_Click", [&] {
    grid_.Reset();
    View().ShowCells();
    View().ShowStatus("");
  });
}

void frmEditLbg::EditValue(int row, const std::string& text) {
  Run("grdReadings_AfterEdit", [&] {
    grid_.SetValue(row, text);
    View().ShowCells();
  });
}

void frmEditLbg::Paste(int row, EditorColumn column, std::string_view text) {
  Run("grdReadings_KeyDown", [&] {
    const int set = grid_.Paste(row, column, text);
    View().ShowCells();
    View().ShowStatus(std::to_string(set) + " values pasted");
  });
}

void frmEditLbg::ClearValues(int firstRow, int lastRow) {
  Run("grdReadings_KeyDown", [&] {
    grid_.ClearValues(firstRow, lastRow);
    View().ShowCells();
  });
}

}  // namespace lobegraph
