#include "data/editor/EditorGrid.h"

#include <cmath>

#include "data/base/RunTimeError.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

void PromiseUpdate(const EditorGrid& grid) {
  ReadingsRecord record;
  int failedRow = 0;
  try {
    record.TakeUp(grid.Numbers(record.Readings, failedRow));
  } catch (const RunTimeError&) {
    Promise(failedRow >= 1 && failedRow <= EditorGrid::kRows, "a refused value names its row");
    Promise(record.ReadingCount == ReadingsRecord{}.ReadingCount, "a refused update changes nothing");
    return;
  }
  Promise(record.ReadingCount == record.NumReadings + 1, "what was updated can be saved");
  for (const float level : record.Readings) Promise(std::isfinite(level), "every reading is a number");
}

void PromiseCopy(const EditorGrid& grid) {
  EditorGrid other;
  const std::string column = grid.Copy(1, EditorGrid::kRows, EditorColumn::Value, EditorColumn::Value);
  Promise(other.Paste(1, EditorColumn::Value, column) == EditorGrid::kRows, "a copied column pastes whole");
}

void PromiseShift(EditorGrid& grid, int row) {
  const std::string before = grid.Text(row, EditorColumn::Value);
  grid.Insert(row);
  grid.Delete(row);
  Promise(grid.Text(row, EditorColumn::Value) == before, "an inserted row can be taken out again");
}

}  // namespace

/// What becomes of the pasted cells goes by the input's length: each of the three ways walks the whole grid.
void TryEditorCells(std::string_view input) {
  EditorGrid grid;
  const int taken = grid.Paste(1, EditorColumn::Value, input);
  Promise(taken >= 0 && taken <= EditorGrid::kRows, "a paste stays in the grid");
  for (int row = 1; row <= taken; ++row)
    Promise(grid.Shown(row, EditorColumn::Value).size() <= input.size() + 400,
            "a cell shows its value, rounded");
  const auto way = input.size() % 3;
  if (way == 0) PromiseUpdate(grid);
  if (way == 1) PromiseCopy(grid);
  if (way == 2) PromiseShift(grid, 1 + taken % (EditorGrid::kRows - 1));
}

}  // namespace lobegraph::fuzz
