#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lobegraph {

/// Names of the keys that a turn's log begins with. Later ones come at the end; unknown ones are kept.
namespace turnkey {
inline constexpr std::string_view kFormat = "turn log";
inline constexpr std::string_view kProgram = "program";
inline constexpr std::string_view kOperator = "operator";
inline constexpr std::string_view kStarted = "started";
inline constexpr std::string_view kSource = "source";
inline constexpr std::string_view kPlanned = "planned readings";
inline constexpr std::string_view kTaken = "taken readings";
inline constexpr std::string_view kRotationTime = "rotation time";
inline constexpr std::string_view kEnded = "ended";
inline constexpr std::string_view kRemark = "remark";
inline constexpr std::string_view kCollected = "collected";
inline constexpr std::string_view kSaved = "saved";
}  // namespace turnkey

/// Names of the columns, in their order.
namespace turncolumn {
inline constexpr std::string_view kReading = "reading";
inline constexpr std::string_view kTime = "time";
inline constexpr std::string_view kLevel = "level";
inline constexpr std::string_view kSamples = "samples";
inline constexpr std::string_view kFlags = "flags";
}  // namespace turncolumn

/// What a turn knows besides its pattern: keys with their values, and a table of one row a reading. Kept as
/// text, so that what a later program wrote survives being read and written by this one.
class TurnLog {
 public:
  using Row = std::vector<std::string>;
  static constexpr std::size_t kMostRows = 100'000;  ///< far above any turn
  static constexpr std::size_t kMostKeys = 1'000;

  /// Value of a key, lines joined by line feeds; empty when the log does not have it.
  std::string Key(std::string_view name) const;
  /// Replaces every line of the key in place, or adds it at the end. A value of several lines becomes several
  /// lines of the key; other control characters become blanks, and an empty value takes the key away.
  void SetKey(std::string_view name, std::string_view value);
  /// One more line of a key, at the end. Nothing beyond kMostKeys.
  void AddKey(std::string_view name, std::string_view value);
  const std::vector<std::pair<std::string, std::string>>& Keys() const { return keys_; }

  const std::vector<std::string>& Columns() const { return columns_; }
  const std::vector<Row>& Rows() const { return rows_; }
  /// The columns of a log that is read. Only before its first row.
  void SetColumns(std::vector<std::string> columns) { columns_ = std::move(columns); }
  /// Place of a column, added at the end when it is new; the rows before have nothing in it.
  std::size_t ColumnAt(std::string_view name);
  /// Text of a cell; empty when there is no such column or row.
  std::string_view Cell(std::size_t row, std::string_view column) const;
  /// Number in a cell; none when it is empty or no number from end to end.
  std::optional<double> Number(std::size_t row, std::string_view column) const;
  /// The row grows or shrinks to the width of the table.
  void AddRow(Row row);
  /// Only the first ones stay.
  void KeepRows(std::size_t count) { rows_.resize(std::min(count, rows_.size())); }
  void SetCell(std::size_t row, std::string_view column, std::string text);

  bool operator==(const TurnLog&) const = default;

 private:
  std::optional<std::size_t> Find(std::string_view column) const;

  std::vector<std::pair<std::string, std::string>> keys_;
  std::vector<std::string> columns_{std::string(turncolumn::kReading), std::string(turncolumn::kTime),
                                    std::string(turncolumn::kLevel), std::string(turncolumn::kSamples),
                                    std::string(turncolumn::kFlags)};
  std::vector<Row> rows_;
};

/// One line that keeps its meaning when a key or a name is written into a file of lines: control characters,
/// line ends of any kind among them, become blanks; at most 4,096 bytes, never in the middle of a character.
std::string OneLine(std::string_view text);

}  // namespace lobegraph
