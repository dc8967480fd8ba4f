#include "data/formats/LevelTable.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

using Cells = std::vector<std::string>;

constexpr std::string_view kAngleWords[] = {"angle",       "azim",   "deg", "position",
                                            "drehscheibe", "winkel", "phi"};
constexpr std::string_view kLevelWords[] = {"db",       "v+h",      "tot",   "gain",      "level",
                                            "strength", "messwert", "value", "amplitude", "reading"};

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

/// Cells between separators; blanks in a row count as one.
Cells CellsOf(std::string_view line, char separator) {
  Cells cells;
  if (separator == ' ') {
    for (const std::string_view word : WordsOf(line)) cells.emplace_back(word);
    return cells;
  }
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t end = std::min(line.find(separator, begin), line.size());
    std::string_view cell = Trimmed(line.substr(begin, end - begin));
    if (cell.size() > 1 && cell.front() == '"' && cell.back() == '"') cell = cell.substr(1, cell.size() - 2);
    cells.emplace_back(cell);
    begin = end + 1;
  }
  return cells;
}

std::size_t NumbersIn(const Cells& cells) {
  return static_cast<std::size_t>(std::count_if(
      cells.begin(), cells.end(), [](const std::string& cell) { return NumberIn(cell).has_value(); }));
}

/// A semicolon or a tab separates whenever there is one; a comma does unless blanks do better, because then
/// it is a decimal comma.
char SeparatorOf(const std::vector<std::string_view>& lines) {
  for (const char sure : {';', '\t'})
    for (const std::string_view line : lines)
      if (line.find(sure) != std::string_view::npos) return sure;
  std::size_t byComma = 0;
  std::size_t byBlank = 0;
  for (const std::string_view line : lines) {
    if (line.find(',') == std::string_view::npos) continue;
    byComma += NumbersIn(CellsOf(line, ',')) > 1 ? 1 : 0;
    byBlank += NumbersIn(CellsOf(line, ' ')) > 1 ? 1 : 0;
  }
  return byComma > byBlank ? ',' : ' ';
}

template <typename Words>
std::optional<std::size_t> ColumnNamed(const Cells& heading, const Words& words,
                                       std::optional<std::size_t> besides) {
  for (const std::string_view word : words)
    for (std::size_t column = 0; column < heading.size(); ++column)
      if (column != besides && Lower(heading[column]).find(word) != std::string::npos) return column;
  return std::nullopt;
}

struct Columns {
  std::optional<std::size_t> Angle;
  std::size_t Level = 0;
  bool SaysDb = false;
};

Columns ColumnsOf(const Cells& heading, const Cells& first) {
  Columns columns;
  columns.Angle = ColumnNamed(heading, kAngleWords, std::nullopt);
  const auto level = ColumnNamed(heading, kLevelWords, columns.Angle);
  if (level) {
    columns.Level = *level;
    columns.SaysDb =
        std::any_of(heading.begin(), heading.end(),
                    [](const std::string& name) { return Lower(name).find("db") != std::string::npos; }) &&
        Lower(heading[*level]).find("level") == std::string::npos;
    return columns;
  }
  if (first.size() > 1 && !columns.Angle) columns.Angle = 0;
  columns.Level = columns.Angle == std::optional<std::size_t>(0) && first.size() > 1 ? 1 : 0;
  return columns;
}

/// Linear levels become dB.
void ToDb(std::vector<TablePoint>& points) {
  for (TablePoint& point : points)
    point.LevelDb = point.LevelDb > 0.0 ? 20.0 * std::log10(point.LevelDb) : kFaintestDb;
}

}  // namespace

PatternTable ReadLevelTable(std::string_view text) {
  PatternTable table;
  const auto lines = LinesOf(text);
  const char separator = SeparatorOf(lines);
  Cells heading;
  std::optional<Columns> columns;
  for (const std::string_view line : lines) {
    const Cells cells = CellsOf(line, separator);
    if (NumbersIn(cells) == 0) {
      if (!columns && !Trimmed(line).empty()) heading = cells;
      continue;
    }
    if (!columns) columns = ColumnsOf(heading, cells);
    if (columns->Level >= cells.size()) continue;
    const auto level = NumberIn(cells[columns->Level]);
    const auto angle =
        columns->Angle && *columns->Angle < cells.size() ? NumberIn(cells[*columns->Angle]) : std::nullopt;
    if (level && (angle || !columns->Angle)) table.Points.push_back({angle.value_or(0.0), *level});
  }
  if (table.Points.empty()) throw RunTimeError(fault::kTypeMismatch, "no levels found");
  const double step = 360.0 / static_cast<double>(table.Points.size());
  if (!columns->Angle)
    for (std::size_t i = 0; i < table.Points.size(); ++i)
      table.Points[i].AngleDeg = static_cast<double>(i) * step;
  const bool negative = std::any_of(table.Points.begin(), table.Points.end(),
                                    [](const TablePoint& point) { return point.LevelDb < 0.0; });
  if (!negative && !columns->SaysDb) ToDb(table.Points);
  return table;
}

std::string WriteLevelTable(const PatternTable& table) {
  std::string text = "index,angle,level,dB\r\n";
  for (const LevelRow& row : table.Rows)
    text += std::to_string(row.Index) + "," + FixedText(row.AngleDeg, 3) + "," + SingleText(row.Level) + "," +
            FixedText(row.Db, 3) + "\r\n";
  return text;
}

}  // namespace lobegraph
