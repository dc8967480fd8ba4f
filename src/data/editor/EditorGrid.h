#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "data/formats/CsvReadings.h"
#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// Columns of the editor's grid.
enum class EditorColumn { No, Value, Posn };

/// The readings editor without its window: 360 rows of text, row i for reading i - 1. A value is kept as it
/// was typed and becomes a number only when the plot is updated. Rows are counted from 1; a row outside 1 to
/// 360 is row 1, which is where commands act when nothing is selected.
class EditorGrid {
 public:
  static constexpr int kRows = 360;
  static constexpr int kColumns = 3;

  EditorGrid() { Reset(); }

  /// Numbers the rows; every value and position is "0".
  void Reset();

  /// The full text of a cell.
  const std::string& Text(int row, EditorColumn column) const;
  /// What the cell shows: a value that is a number with at most two decimals, anything else as it is.
  std::string Shown(int row, EditorColumn column) const;

  /// The user edited the row's value; positions follow.
  void SetValue(int row, std::string text);
  /// Lines of a spreadsheet's clipboard from a cell on, tabs between the fields of a line. Only values are
  /// taken; what lies outside the grid or in another column is dropped. @return rows whose value was set
  int Paste(int row, EditorColumn column, std::string_view text);
  /// A block of cells as a spreadsheet takes it: tabs between fields, a line end behind each row.
  std::string Copy(int firstRow, int lastRow, EditorColumn firstColumn, EditorColumn lastColumn) const;
  void ClearValues(int firstRow, int lastRow);

  void GetFromPlot(const ReadingArray& readings);
  /// The readings into the first rows; the others stay.
  void GetFromCsv(const CsvReadings& readings);
  /// An empty slot in front of the row; the last row falls off.
  void Insert(int row);
  /// The rows below move up; the last row is an empty slot.
  void Delete(int row);

  /// The first row with an empty value, which keeps the plot from being updated.
  std::optional<int> EmptyRow() const;
  /// All values as singles; reading 360 as it was. @throws RunTimeError 13 for a value that is no number, 6
  /// for one that does not fit; failedRow is then its row.
  ReadingArray Numbers(const ReadingArray& former, int& failedRow) const;

 private:
  struct Row {
    std::string No;
    std::string Value = "0";
    std::string Posn = "0";
  };

  Row& At(int row) { return rows_[Index(row)]; }
  const Row& At(int row) const { return rows_[Index(row)]; }
  static std::size_t Index(int row) { return static_cast<std::size_t>(row < 1 || row > kRows ? 0 : row - 1); }
  void Renumber();
  void ComputePositions();
  bool PasteLine(int row, int column, std::string_view line);

  std::array<Row, kRows> rows_;
};

/// "###.##": at most two decimals, no zero before the point, no point without decimals; "0" for nothing.
std::string ShownValue(const std::string& value);

}  // namespace lobegraph
