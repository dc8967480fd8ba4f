#include "cli/ReadPattern.h"

#include <sstream>

#include "data/base/FileAccess.h"
#include "data/base/TextEncoding.h"
#include "data/formats/CsvReadings.h"
#include "data/formats/LevelTable.h"
#include "data/formats/ModelTable.h"
#include "data/formats/PlanningFiles.h"

namespace lobegraph {
namespace {

constexpr int kEditorRows = 360;
constexpr float kUsualScale = 35.F;

struct Ending {
  const char* Text;
  PatternFormat Format;
};
constexpr Ending kEndings[] = {
    {".csv", PatternFormat::Csv},   {".msi", PatternFormat::Planet},      {".pln", PatternFormat::Planet},
    {".az", PatternFormat::Splat},  {".ant", PatternFormat::RadioMobile}, {".adf", PatternFormat::Nsma},
    {".nsma", PatternFormat::Nsma}, {".nec", PatternFormat::Model},       {".out", PatternFormat::Model}};

bool LooksLikeModel(std::string_view bytes) {
  return bytes.find("RADIATION PATTERNS") != std::string_view::npos ||
         bytes.find("Tot dB") != std::string_view::npos;
}

/// What the editor does with a CSV file and its update button: the last level that is not 0 ends the set.
void TakeUpLevels(const std::string& text, ReadingsRecord& record) {
  std::istringstream file(text);
  const CsvReadings readings = ReadCsv(file);
  record.NumReadings = -1;
  for (int i = 0; i < static_cast<int>(readings.Values.size()) && i < kEditorRows; ++i) {
    record.Readings(i) = readings.Values[static_cast<std::size_t>(i)];
    if (record.Readings(i) != 0.F) record.NumReadings = static_cast<std::int16_t>(i);
  }
  if (record.NumReadings < 0) throw RunTimeError(fault::kTypeMismatch, "no levels found");
  record.ReadingCount = record.NumReadings;
}

PatternTable ReadTable(PatternFormat format, const std::string& text) {
  switch (format) {
    case PatternFormat::Planet:
      return ReadPlanet(text);
    case PatternFormat::Splat:
      return ReadSplat(text);
    case PatternFormat::RadioMobile:
      return ReadRadioMobile(text);
    case PatternFormat::Nsma:
      return ReadNsma(text);
    case PatternFormat::Model:
      return ReadModelTable(text);
    default:
      return ReadLevelTable(text);
  }
}

}  // namespace

PatternFormat FormatOf(const std::string& path, std::string_view bytes) {
  for (const Ending& ending : kEndings)
    if (WithEnding(path, ending.Text) == path) return ending.Format;
  const bool text = WithEnding(path, ".txt") == path;
  return text && LooksLikeModel(bytes) ? PatternFormat::Model : PatternFormat::Lbg;
}

LoadOutcome ReadPattern(const std::string& path, std::string_view bytes, const LoadRules& rules, bool table,
                        ReadingsRecord& record) {
  const PatternFormat format = FormatOf(path, bytes);
  if (format == PatternFormat::Lbg) return ReadPatternText(bytes, rules, record);
  LoadOutcome outcome;
  if (!rules.Overlay) record.ScaleSetting = kUsualScale;
  try {
    if (format == PatternFormat::Csv && !table)
      TakeUpLevels(DecodeText(bytes), record);
    else
      TakeUpTable(ReadTable(format, DecodeText(bytes)), record);
  } catch (const RunTimeError& error) {
    outcome.Error = error;
  }
  record.Description = QuotableText(record.Description);
  return outcome;
}

}  // namespace lobegraph
