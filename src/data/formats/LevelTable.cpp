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
char SeparatorOf(TextLines& lines) {
  bool tab = false;
  std::size_t byComma = 0;
  std::size_t byBlank = 0;
  while (const auto line = lines.Next()) {
    if (line->find(';') != std::string_view::npos) return ';';
    tab = tab || line->find('\t') != std::string_view::npos;
    if (tab || line->find(',') == std::string_view::npos) continue;
    byComma += NumbersIn(CellsOf(*line, ',')) > 1 ? 1 : 0;
    byBlank += NumbersIn(CellsOf(*line, ' ')) > 1 ? 1 : 0;
  }
  if (tab) return '\t';
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

double DbOf(double level) { return level > 0.0 ? 20.0 * std::log10(level) : kFaintestDb; }

/// Takes a table off its lines. What its numbers mean is only known at its end, and it may hold more than
/// fits into memory, so that it is read three times.
class Reader {
 public:
  explicit Reader(TextLines& lines) : lines_(lines), separator_(SeparatorOf(lines)) {}

  PatternTable Read() {
    std::size_t count = 0;
    bool negative = false;
    ForEachLevel([&](double, double level) {
      ++count;
      negative = negative || level < 0.0;
    });
    if (count == 0) throw RunTimeError(fault::kTypeMismatch, "no levels found");
    const bool db = negative || columns_->SaysDb;
    const double step = 360.0 / static_cast<double>(count);
    std::size_t index = 0;
    PatternTable table;
    ForEachLevel([&](double angle, double level) {
      AddPoint(table.Points,
               {columns_->Angle ? angle : static_cast<double>(index) * step, db ? level : DbOf(level)});
      ++index;
    });
    return table;
  }

 private:
  template <typename Take>
  void ForEachLevel(const Take& take) {
    lines_.Restart();
    Cells heading;
    while (const auto line = lines_.Next()) {
      const Cells cells = CellsOf(*line, separator_);
      if (NumbersIn(cells) == 0) {
        if (!columns_ && !Trimmed(*line).empty()) heading = cells;
        continue;
      }
      if (!columns_) columns_ = ColumnsOf(heading, cells);
      if (columns_->Level >= cells.size()) continue;
      const auto level = NumberIn(cells[columns_->Level]);
      const auto angle = columns_->Angle && *columns_->Angle < cells.size()
                             ? NumberIn(cells[*columns_->Angle])
                             : std::nullopt;
      if (level && (angle || !columns_->Angle)) take(angle.value_or(0.0), *level);
    }
  }

  TextLines& lines_;
  char separator_;
  std::optional<Columns> columns_;
};

}  // namespace

PatternTable ReadLevelTable(TextLines& lines) { return Reader(lines).Read(); }

std::string WriteLevelTable(const PatternTable& table) {
  std::string text = "index,angle,level,dB\r\n";
  for (const LevelRow& row : table.Rows)
    text += std::to_string(row.Index) + "," + FixedText(row.AngleDeg, 3) + "," + SingleText(row.Level) + "," +
            FixedText(row.Db, 3) + "\r\n";
  return text;
}

}  // namespace lobegraph
