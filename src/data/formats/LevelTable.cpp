#include "data/formats/LevelTable.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

using Cells = std::vector<std::string>;

constexpr std::string_view kAngleWords[] = {"angle",  "azim", "deg",  "position", "drehscheibe",
                                            "winkel", "phi",  "elev", "theta"};
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

/// "dB" as a unit of its own ("Level (dB)", "gain_db", "dBm"), not letters of another word ("feedback").
bool SaysDb(std::string_view name) {
  const std::string lower = Lower(name);
  for (std::size_t at = lower.find("db"); at != std::string::npos; at = lower.find("db", at + 1)) {
    const bool word = at == 0 || lower[at - 1] < 'a' || lower[at - 1] > 'z';
    if (word || name.substr(at, 2) == "dB") return true;
  }
  return false;
}

/// What the heading next above the numbers says, and where it says nothing what their number suggests.
struct Columns {
  std::optional<std::size_t> Angle;
  std::size_t Level = 0;
  bool Named = false;  ///< both, by a heading
  bool Db = false;
};

Columns ColumnsOf(const Cells& heading, std::size_t count) {
  Columns columns;
  columns.Angle = ColumnNamed(heading, kAngleWords, std::nullopt);
  const auto level = ColumnNamed(heading, kLevelWords, columns.Angle);
  columns.Named = columns.Angle && level;
  if (level) {
    columns.Level = *level;
    columns.Db = SaysDb(heading[*level]);
    return columns;
  }
  if (count > 1 && !columns.Angle) columns.Angle = 0;
  columns.Level = columns.Angle == std::optional<std::size_t>(0) && count > 1 ? 1 : 0;
  return columns;
}

/// None: the line is no row of these columns.
std::optional<TablePoint> PointIn(const Cells& cells, const Columns& columns) {
  if (columns.Level >= cells.size()) return std::nullopt;
  const auto level = NumberIn(cells[columns.Level]);
  if (!level || !columns.Angle) return level ? std::optional(TablePoint{0.0, *level}) : std::nullopt;
  const auto angle = *columns.Angle < cells.size() ? NumberIn(cells[*columns.Angle]) : std::nullopt;
  return angle ? std::optional(TablePoint{*angle, *level}) : std::nullopt;
}

double DbOf(double level) { return level > 0.0 ? 20.0 * std::log10(level) : kFaintestDb; }

/// The rows below one heading.
struct Block {
  Columns Is;
  Cells Heading;
  std::size_t FirstLine = 0;
  std::size_t Count = 0;
  bool Negative = false;
};

/// Takes a table off its lines. What its numbers mean is only known at its end, and it may hold more than
/// fits into memory, so that it is read three times.
class Reader {
 public:
  explicit Reader(TextLines& lines) : lines_(lines), separator_(SeparatorOf(lines)) {}

  PatternTable Read() {
    FindBlock();
    if (block_.Count == 0) throw RunTimeError(fault::kTypeMismatch, "no levels found");
    const bool db = block_.Negative || block_.Is.Db;
    const double step = 360.0 / static_cast<double>(block_.Count);
    PatternTable table;
    lines_.Restart();
    for (std::size_t line = 1; line < block_.FirstLine; ++line) lines_.Next();
    for (std::size_t index = 0; index < block_.Count;) {
      const auto point = PointIn(CellsOf(*lines_.Next(), separator_), block_.Is);
      if (!point) continue;
      const double angle = block_.Is.Angle ? point->AngleDeg : static_cast<double>(index) * step;
      AddPoint(table.Points, {angle, db ? point->LevelDb : DbOf(point->LevelDb)});
      ++index;
    }
    return table;
  }

 private:
  /// The first block whose heading names its columns; without one all rows.
  void FindBlock() {
    lines_.Restart();
    Cells heading;
    bool fresh = true;
    std::size_t line = 0;
    while (const auto text = lines_.Next()) {
      ++line;
      const Cells cells = CellsOf(*text, separator_);
      if (NumbersIn(cells) == 0) {
        if (Trimmed(*text).empty()) continue;
        heading = cells;
        fresh = fresh || ColumnsOf(heading, heading.size()).Named;
        continue;
      }
      if (fresh) {
        const Columns columns = ColumnsOf(heading, cells.size());
        if (!PointIn(cells, columns)) continue;  // a remark with a number in it
        if (!Begin({columns, heading, line})) return;
        fresh = false;
      }
      Count(PointIn(cells, block_.Is));
    }
  }

  /// @return false: it belongs to another table
  bool Begin(Block block) {
    if (block_.Count > 0 && block_.Is.Named) return !block.Is.Named || block.Heading == block_.Heading;
    if (block_.Count == 0 || block.Is.Named) block_ = std::move(block);
    return true;
  }

  void Count(const std::optional<TablePoint>& point) {
    if (!point) return;
    ++block_.Count;
    block_.Negative = block_.Negative || point->LevelDb < 0.0;
  }

  TextLines& lines_;
  char separator_;
  Block block_;
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
