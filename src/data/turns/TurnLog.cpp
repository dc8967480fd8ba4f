#include "data/turns/TurnLog.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::size_t kLongestLine = 4096;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

}  // namespace

std::string OneLine(std::string_view text) {
  std::size_t length = std::min(text.size(), kLongestLine);
  while (length > 0 && length < text.size() && IsContinuation(text[length])) --length;
  std::string line(text.substr(0, length));
  for (char& byte : line)
    if (static_cast<unsigned char>(byte) < 0x20U || byte == 0x7F) byte = ' ';
  const auto last = line.find_last_not_of(' ');
  line.erase(last == std::string::npos ? 0 : last + 1);
  line.erase(0, line.find_first_not_of(' '));
  return line;
}

std::string TurnLog::Key(std::string_view name) const {
  std::string value;
  bool found = false;
  for (const auto& [key, line] : keys_) {
    if (key != name) continue;
    value += (found ? "\n" : "") + line;
    found = true;
  }
  return value;
}

void TurnLog::SetKey(std::string_view name, std::string_view value) {
  const auto isThis = [&](const auto& key) { return key.first == name; };
  auto at = std::find_if(keys_.begin(), keys_.end(), isThis) - keys_.begin();
  std::erase_if(keys_, isThis);
  while (!value.empty() && keys_.size() < kMostKeys) {
    const std::size_t end = value.find('\n');
    const std::string line = OneLine(value.substr(0, end));
    value.remove_prefix(end == std::string_view::npos ? value.size() : end + 1);
    keys_.emplace(keys_.begin() + at++, OneLine(name), line);
  }
}

void TurnLog::AddKey(std::string_view name, std::string_view value) {
  if (keys_.size() < kMostKeys) keys_.emplace_back(OneLine(name), OneLine(value));
}

std::optional<std::size_t> TurnLog::Find(std::string_view column) const {
  const auto found = std::find(columns_.begin(), columns_.end(), column);
  if (found == columns_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - columns_.begin());
}

std::size_t TurnLog::ColumnAt(std::string_view name) {
  if (const auto found = Find(name)) return *found;
  columns_.emplace_back(OneLine(name));
  for (Row& row : rows_) row.resize(columns_.size());
  return columns_.size() - 1;
}

std::string_view TurnLog::Cell(std::size_t row, std::string_view column) const {
  const auto at = Find(column);
  return at && row < rows_.size() ? std::string_view(rows_[row][*at]) : std::string_view();
}

std::optional<double> TurnLog::Number(std::size_t row, std::string_view column) const {
  try {
    return WholeNumberText(Cell(row, column));
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

void TurnLog::AddRow(Row row) {
  if (rows_.size() >= kMostRows) return;
  row.resize(columns_.size());
  rows_.push_back(std::move(row));
}

void TurnLog::SetCell(std::size_t row, std::string_view column, std::string text) {
  if (row < rows_.size()) rows_[row][ColumnAt(column)] = std::move(text);
}

}  // namespace lobegraph
