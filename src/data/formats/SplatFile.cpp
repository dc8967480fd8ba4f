#include "data/formats/SplatFile.h"

#include <cmath>

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr int kFieldDecimals = 6;

double DbOf(double field) { return field > 0.0 ? 20.0 * std::log10(field) : kFaintestDb; }

}  // namespace

PatternTable ReadSplat(TextLines& lines) {
  PatternTable table;
  double turnedDeg = 0.0;
  bool first = true;
  while (const auto line = lines.Next()) {
    const auto words = WordsOf(line->substr(0, line->find(';')));
    const auto angle = words.empty() ? std::nullopt : NumberIn(words[0]);
    if (!angle) continue;
    const auto field = words.size() > 1 ? NumberIn(words[1]) : std::nullopt;
    if (field) AddPoint(table.Points, {*angle + turnedDeg, DbOf(*field)});
    if (first && !field) turnedDeg = *angle;
    first = false;
  }
  RequirePoints(table);
  return table;
}

std::string WriteSplat(const PatternTable& table) {
  std::string text = "0.0\n";
  const auto levels = WholeDegrees(table);
  for (std::size_t degrees = 0; degrees < levels.size(); ++degrees)
    text += std::to_string(degrees) + "\t" +
            FixedText(std::pow(10.0, levels[degrees] / 20.0), kFieldDecimals) + "\n";
  return text;
}

}  // namespace lobegraph
