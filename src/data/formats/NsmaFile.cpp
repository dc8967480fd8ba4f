#include "data/formats/NsmaFile.h"

#include <algorithm>
#include <iterator>

#include "data/base/Numbers.h"
#include "data/base/TextEncoding.h"

namespace lobegraph {
namespace {

/// Bytes of a text: the format's own limit of its names.
constexpr std::size_t kLongestModel = 42;

struct Record {
  std::string_view Key;
  std::string_view Value;  ///< without its "! comment"
};

/// "KEY:,value"; the colon is missing in files that are about.
Record RecordOf(std::string_view line) {
  const std::size_t comma = std::min(line.find(','), line.size());
  std::string_view key = Trimmed(line.substr(0, comma));
  if (key.ends_with(':')) key.remove_suffix(1);
  const std::string_view value = comma < line.size() ? line.substr(comma + 1) : std::string_view();
  return {key, Trimmed(value.substr(0, value.find('!')))};
}

constexpr std::string_view kDashes[] = {"\xE2\x88\x92", "\xE2\x80\x90", "\xE2\x80\x91", "\xE2\x80\x93"};

/// Typographic minus signs and hyphens stand for a plain one.
std::string WithPlainMinus(std::string_view text) {
  std::string plain;
  for (std::size_t at = text.find('\xE2'); at != std::string_view::npos; at = text.find('\xE2')) {
    const std::string_view character = text.substr(at, 3);
    plain += text.substr(0, at);
    const bool dash = std::find(std::begin(kDashes), std::end(kDashes), character) != std::end(kDashes);
    plain += dash ? "-" : character;
    text.remove_prefix(at + character.size());
  }
  return plain += text;
}

bool IsAzimuth(std::string_view cut) { return cut == "AZ" || cut == "H"; }

void TakeRecord(const Record& record, PatternTable& table) {
  if (record.Key == "MODNUM") table.Name = record.Value;
  if (record.Key == "ANTMAN") table.CollectedBy = record.Value;
  if (record.Key == "DTDATA") table.CollectedDate = record.Value;
  if (record.Key == "MDGAIN") table.GainDbi = NumberIn(record.Value);
  if (record.Key == "AZWIDT") table.BeamwidthDeg = NumberIn(record.Value);
  if (record.Key == "FRTOBA") table.FrontToBackDb = NumberIn(record.Value);
  if (record.Key == "PATFRE") table.FrequencyMHz = NumberIn(record.Value);
  if (record.Key == "POLARI") table.Horizontal = record.Value.starts_with('H');
}

std::string Field(std::string_view key, std::string_view value) {
  return std::string(key) + ":," + std::string(value) + "\r\n";
}

std::string Field(std::string_view key, const std::optional<double>& value) {
  return value ? Field(key, FixedText(*value, 2)) : "";
}

}  // namespace

PatternTable ReadNsma(TextLines& lines) {
  PatternTable table;
  std::string line;
  bool azimuth = false;
  while (const auto text = lines.Next()) {
    line = WithPlainMinus(*text);
    const auto values = WordsOf(line, ", \t");
    const auto angle = values.size() > 1 ? NumberIn(values[0]) : std::nullopt;
    const auto level = values.size() > 1 ? NumberIn(values[1]) : std::nullopt;
    if (angle && level) {
      if (azimuth) AddPoint(table.Points, {*angle, *level});
      continue;
    }
    const Record record = RecordOf(line);
    if (record.Key == "PATCUT") azimuth = table.Points.empty() && IsAzimuth(record.Value);
    TakeRecord(record, table);
  }
  RequirePoints(table);
  return table;
}

std::string NsmaText(std::string_view text) {
  std::string words = PrintableText(text);
  std::size_t end = std::min(words.size(), kLongestModel);
  while (end < words.size() && (static_cast<unsigned char>(words[end]) & 0xC0U) == 0x80U) --end;
  words.resize(end);
  for (char& c : words)
    if (c == ',' || c == '!') c = ' ';
  return words;
}

std::string WriteNsma(const PatternTable& table) {
  const bool horizontal = table.Horizontal.value_or(true);
  std::string text = Field("REVNUM", "NSMA WG16.99.050") + Field("REVDAT", "19990520");
  text += Field("COMNT1", "Measured azimuth cut") + Field("ANTMAN", NsmaText(table.CollectedBy));
  text += Field("MODNUM", NsmaText(table.Name));
  text += Field("DESCR1", NsmaText(table.CollectedDate)) + Field("GUNITS", "DBI/DBR");
  text += Field("MDGAIN", table.GainDbi) + Field("AZWIDT", table.BeamwidthDeg) +
          Field("FRTOBA", table.FrontToBackDb);
  text += Field("PATTYP", "Typical") + Field("NOFREQ", "1") + Field("PATFRE", table.FrequencyMHz);
  text += Field("NUMCUT", "1") + Field("PATCUT", "AZ") + Field("POLARI", horizontal ? "H/H" : "V/V");
  text += Field("NUPOIN", "361") + Field("FSTLST", "-180,180");
  const auto levels = WholeDegrees(table);
  for (int degrees = -180; degrees <= 180; ++degrees)
    text += FixedText(degrees, 3) + "," +
            FixedText(levels[static_cast<std::size_t>((degrees + 360) % 360)], 3) + ",\r\n";
  return text + Field("ENDFIL", "EOF");
}

}  // namespace lobegraph
