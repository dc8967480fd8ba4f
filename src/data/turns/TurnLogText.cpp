#include "data/turns/TurnLogText.h"

#include <csv.h>

#include <algorithm>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kMostColumns = 200;

std::string Field(const std::string& text) {
  if (text.find_first_of(",\"#\r\n") == std::string::npos) return text;
  std::string quoted(csv_write(nullptr, 0, text.data(), text.size()), '\0');
  csv_write(quoted.data(), quoted.size(), text.data(), text.size());
  return quoted;
}

/// A line of the file without its end; what is left of the file goes on behind it.
std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// "# key: value"; a remark without a colon is a value without a key.
void TakeKey(std::string_view line, TurnLog& log) {
  line.remove_prefix(line.starts_with("# ") ? 2 : 1);
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return log.AddKey("", line);
  log.AddKey(line.substr(0, colon), line.substr(colon + 1));
}

/// The cells of one line.
class LineReader {
 public:
  LineReader() {
    if (csv_init(&parser_, 0) != 0) throw RunTimeError(fault::kTypeMismatch);
  }
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader() { csv_free(&parser_); }

  TurnLog::Row Read(std::string_view line) {
    row_.clear();
    csv_parse(&parser_, line.data(), line.size(), &Keep, nullptr, this);
    csv_fini(&parser_, &Keep, nullptr, this);
    return std::move(row_);
  }

 private:
  static void Keep(void* text, std::size_t length, void* self) {
    auto& row = static_cast<LineReader*>(self)->row_;
    if (row.size() < kMostColumns) row.push_back(OneLine({static_cast<const char*>(text), length}));
  }

  csv_parser parser_{};
  TurnLog::Row row_;
};

void TakeHeading(const TurnLog::Row& heading, TurnLog& log) {
  const auto has = [&](std::string_view name) {
    return std::find(heading.begin(), heading.end(), name) != heading.end();
  };
  if (!has(turncolumn::kReading) || !has(turncolumn::kLevel))
    throw RunTimeError(fault::kTypeMismatch, "no heading with the columns reading and level");
  log.SetColumns(heading);
}

void TakeRow(TurnLog::Row row, TurnLog& log) {
  if (log.Rows().size() == TurnLog::kMostRows)
    throw RunTimeError(fault::kTypeMismatch, "more readings than any turn has");
  log.AddRow(std::move(row));
}

}  // namespace

std::string TurnRowText(const TurnLog::Row& row) {
  std::string line;
  for (const std::string& cell : row) line += (line.empty() && &cell == row.data() ? "" : ",") + Field(cell);
  return line.append(kLineEnd);
}

std::string TurnLogHead(const TurnLog& log) {
  std::string text;
  for (const auto& [key, value] : log.Keys()) {
    const bool remark = key.empty() && value.find(':') == std::string::npos;
    text.append("# ").append(key).append(remark ? "" : ": ").append(value).append(kLineEnd);
  }
  return text + TurnRowText(log.Columns());
}

std::string TurnLogText(const TurnLog& log) {
  std::string text = TurnLogHead(log);
  for (const TurnLog::Row& row : log.Rows()) text += TurnRowText(row);
  return text;
}

TurnLog ReadTurnLog(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  bytes = bytes.substr(0, bytes.rfind('\n') + 1);  // npos + 1 is 0: not one whole line
  TurnLog log;
  LineReader lines;
  bool headed = false;
  while (!bytes.empty()) {
    const std::string_view line = TakeLine(bytes);
    if (line.empty()) continue;
    if (line.starts_with('#')) {
      TakeKey(line, log);
    } else if (!std::exchange(headed, true)) {
      TakeHeading(lines.Read(line), log);
    } else {
      TakeRow(lines.Read(line), log);
    }
  }
  if (!headed) throw RunTimeError(fault::kTypeMismatch, "no heading with the columns reading and level");
  return log;
}

}  // namespace lobegraph
