#include "data/formats/PlanetFile.h"

#include <array>
#include <cmath>

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr double kDbdOverDbi = 2.15;

/// Label and value of a line.
struct Entry {
  std::string_view Label;
  std::string_view Value;
};

Entry EntryOf(std::string_view line) {
  line = Trimmed(line);
  const std::size_t blank = std::min(line.find_first_of(" \t"), line.size());
  return {line.substr(0, blank), Trimmed(line.substr(blank))};
}

void TakeGain(std::string_view value, PatternTable& table) {
  const auto words = WordsOf(value);
  const auto gain = words.empty() ? std::nullopt : NumberIn(words[0]);
  if (!gain) return;
  const bool dbi = words.size() > 1 && (words[1] == "dBi" || words[1] == "DBI" || words[1] == "dbi");
  table.GainDbi = dbi ? *gain : *gain + kDbdOverDbi;
}

void TakeEntry(const Entry& entry, PatternTable& table) {
  if (entry.Label == "NAME") table.Name = entry.Value;
  if (entry.Label == "GAIN") TakeGain(entry.Value, table);
  if (entry.Label == "H_WIDTH") table.BeamwidthDeg = NumberIn(entry.Value);
  if (entry.Label == "FRONT_TO_BACK") table.FrontToBackDb = NumberIn(entry.Value);
  if (entry.Label == "POLARIZATION") table.Horizontal = entry.Value.starts_with('H');
  if (entry.Label == "FREQUENCY") {
    const auto words = WordsOf(entry.Value);
    if (!words.empty()) table.FrequencyMHz = NumberIn(words[0]);
    if (table.FrequencyMHz && words.size() > 1 && words[1] == "GHz") *table.FrequencyMHz *= 1000.0;
  }
}

std::string Line(std::string_view label, const std::optional<double>& value, int decimals,
                 std::string_view unit = "") {
  return value ? std::string(label) + " " + FixedText(*value, decimals) + std::string(unit) + "\r\n" : "";
}

}  // namespace

PatternTable ReadPlanet(TextLines& lines) {
  PatternTable table;
  bool horizontal = false;
  while (const auto line = lines.Next()) {
    const Entry entry = EntryOf(*line);
    const auto angle = NumberIn(entry.Label);
    const auto level = NumberIn(entry.Value);
    if (angle && level) {
      if (horizontal) AddPoint(table.Points, {*angle, -std::abs(*level)});
      continue;
    }
    if (entry.Label == "HORIZONTAL" || entry.Label == "VERTICAL") horizontal = entry.Label == "HORIZONTAL";
    TakeEntry(entry, table);
  }
  RequirePoints(table);
  return table;
}

std::string WritePlanet(const PatternTable& table) {
  std::string text = "NAME " + table.Name + "\r\nMAKE " + table.CollectedBy + "\r\n";
  text += "FREQUENCY " + FixedText(table.FrequencyMHz.value_or(0.0), 3) + "\r\n";
  text += Line("H_WIDTH", table.BeamwidthDeg, 2) + Line("FRONT_TO_BACK", table.FrontToBackDb, 2);
  text += Line("GAIN", table.GainDbi, 2, " dBi") + "TILT NONE\r\n";
  if (table.Horizontal)
    text += std::string("POLARIZATION ") + (*table.Horizontal ? "HORIZONTAL" : "VERTICAL") + "\r\n";
  text += "COMMENT Measured azimuth cut. The vertical cut is unknown (0 dB all round).\r\nHORIZONTAL 360\r\n";
  const auto levels = WholeDegrees(table);
  for (std::size_t degrees = 0; degrees < levels.size(); ++degrees)
    text += std::to_string(degrees) + " " + FixedText(0.0 - levels[degrees], 2) + "\r\n";
  text += "VERTICAL 360\r\n";
  for (std::size_t degrees = 0; degrees < levels.size(); ++degrees)
    text += std::to_string(degrees) + " 0.00\r\n";
  return text;
}

}  // namespace lobegraph
