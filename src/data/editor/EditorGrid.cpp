#include "data/editor/EditorGrid.h"

#include <algorithm>
#include <utility>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr const char* kEmptySlot = "0";

/// Takes what stands in front of the next separator off a text.
std::string_view TakeUpTo(std::string_view& text, char separator) {
  const auto end = std::min(text.find(separator), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

/// Within quotes a spreadsheet hands over fields that hold quotes, tabs or line ends; numbers never need
/// them.
std::string Unquoted(std::string_view field) {
  const bool quoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
  return std::string(quoted ? field.substr(1, field.size() - 2) : field);
}

}  // namespace

void EditorGrid::Reset() {
  rows_.fill(Row{});
  Renumber();
}

const std::string& EditorGrid::Text(int row, EditorColumn column) const {
  const Row& cells = At(row);
  switch (column) {
    case EditorColumn::No:
      return cells.No;
    case EditorColumn::Value:
      return cells.Value;
    default:
      return cells.Posn;
  }
}

std::string EditorGrid::Shown(int row, EditorColumn column) const {
  return column == EditorColumn::Value ? ShownValue(At(row).Value) : Text(row, column);
}

void EditorGrid::SetValue(int row, std::string text) {
  At(row).Value = std::move(text);
  ComputePositions();
}

int EditorGrid::Paste(int row, EditorColumn column, std::string_view text) {
  int set = 0;
  for (int target = std::max(row, 1); !text.empty() && target <= kRows; ++target) {
    std::string_view line = TakeUpTo(text, '\n');
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (PasteLine(target, static_cast<int>(column), line)) ++set;
  }
  ComputePositions();
  return set;
}

bool EditorGrid::PasteLine(int row, int column, std::string_view line) {
  constexpr int kValue = static_cast<int>(EditorColumn::Value);
  for (; column < kValue && line.find('\t') != std::string_view::npos; ++column) TakeUpTo(line, '\t');
  if (column != kValue) return false;
  At(row).Value = Unquoted(TakeUpTo(line, '\t'));
  return true;
}

std::string EditorGrid::Copy(int firstRow, int lastRow, EditorColumn firstColumn,
                             EditorColumn lastColumn) const {
  std::string text;
  for (int row = firstRow; row <= lastRow; ++row) {
    for (auto column = static_cast<int>(firstColumn); column <= static_cast<int>(lastColumn); ++column) {
      if (column != static_cast<int>(firstColumn)) text += '\t';
      text += Text(row, static_cast<EditorColumn>(column));
    }
    text += '\n';
  }
  return text;
}

void EditorGrid::ClearValues(int firstRow, int lastRow) {
  for (int row = firstRow; row <= lastRow; ++row) At(row).Value = kEmptySlot;
  ComputePositions();
}

void EditorGrid::GetFromPlot(const ReadingArray& readings) {
  for (int row = 1; row <= kRows; ++row) At(row).Value = SingleText(readings(row - 1));
  ComputePositions();
}

void EditorGrid::GetFromCsv(const CsvReadings& readings) {
  int row = 1;
  for (const float value : readings.Values) At(row++).Value = SingleText(value);
  ComputePositions();
}

void EditorGrid::Insert(int row) {
  const auto at = rows_.begin() + static_cast<std::ptrdiff_t>(Index(row));
  std::move_backward(at, rows_.end() - 1, rows_.end());
  *at = Row{};
  Renumber();
  ComputePositions();
}

void EditorGrid::Delete(int row) {
  const auto at = rows_.begin() + static_cast<std::ptrdiff_t>(Index(row));
  std::move(at + 1, rows_.end(), at);
  rows_.back() = Row{};
  Renumber();
  ComputePositions();
}

void EditorGrid::Renumber() {
  for (int row = 1; row <= kRows; ++row) At(row).No = std::to_string(row);
}

void EditorGrid::ComputePositions() {
  constexpr float kWholeTurn = 360.F;
  const auto last = std::find_if(rows_.rbegin(), rows_.rend(), [](const Row& row) {
    return !row.Value.empty() && row.Value != kEmptySlot;
  });
  if (last == rows_.rend()) return;
  const auto count = static_cast<int>(rows_.rend() - last);
  const float step = kWholeTurn / static_cast<float>(count);
  for (int row = 1; row <= count; ++row) At(row).Posn = FixedText(static_cast<float>(row - 1) * step, 2);
}

std::optional<int> EditorGrid::EmptyRow() const {
  const auto empty =
      std::find_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.Value.empty(); });
  if (empty == rows_.end()) return std::nullopt;
  return static_cast<int>(empty - rows_.begin()) + 1;
}

ReadingArray EditorGrid::Numbers(const ReadingArray& former, int& failedRow) const {
  ReadingArray readings = former;
  for (int row = 1; row <= kRows; ++row) {
    failedRow = row;
    readings(row - 1) = ToSingle(WholeNumberText(At(row).Value));
  }
  return readings;
}

std::string ShownValue(const std::string& value) {
  try {
    std::string text = FixedText(WholeNumberText(value), 2);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    if (text.substr(sign, 2) == "0.") text.erase(sign, 1);
    return text == "-0" ? kEmptySlot : text;
  } catch (const RunTimeError&) {
    return value;
  }
}

}  // namespace lobegraph
