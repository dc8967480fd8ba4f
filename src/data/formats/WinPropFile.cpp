#include "data/formats/WinPropFile.h"

#include <algorithm>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

/// The words of the next line that has any; none behind the last one.
std::vector<std::string_view> NextWords(TextLines& lines) {
  while (const auto line = lines.Next()) {
    auto words = WordsOf(line->substr(0, line->find_first_of("*#")));
    if (!words.empty()) return words;
  }
  return {};
}

double NumberOf(std::string_view word) {
  const auto number = NumberIn(word);
  if (!number) throw RunTimeError(fault::kTypeMismatch, "no number: " + std::string(word));
  return *number;
}

}  // namespace

PatternTable ReadWinProp(TextLines& lines) {
  PatternTable table;
  auto words = NextWords(lines);
  if (words.size() != 1) throw RunTimeError(fault::kTypeMismatch, "no number of pairs");
  const double count = NumberOf(words[0]);
  double pairs = 0;
  for (words = NextWords(lines); !words.empty(); words = NextWords(lines)) {
    if (words.size() != 2) throw RunTimeError(fault::kTypeMismatch, "no pair of angle and gain");
    const double gainDbi = NumberOf(words[1]);
    AddPoint(table.Points, {NumberOf(words[0]), gainDbi});
    table.GainDbi = std::max(table.GainDbi.value_or(gainDbi), gainDbi);
    ++pairs;
  }
  if (pairs < count) throw RunTimeError(fault::kInputPastEnd, "fewer pairs than counted");
  if (pairs > count) throw RunTimeError(fault::kTypeMismatch, "more pairs than counted");
  RequirePoints(table);
  return table;
}

}  // namespace lobegraph
