#include "data/formats/PatternFormats.h"

#include <algorithm>

#include "data/base/TextEncoding.h"
#include "data/formats/LevelList.h"
#include "data/formats/LevelTable.h"
#include "data/formats/ModelTable.h"
#include "data/formats/NsmaFile.h"
#include "data/formats/PatternFile.h"
#include "data/formats/PlanetFile.h"
#include "data/formats/RadioMobileFile.h"
#include "data/formats/SplatFile.h"
#include "data/record/ScaleSetting.h"

namespace lobegraph {
namespace {

constexpr std::string_view kAllButReadings =
    "description, operator, date, elements, polarization, trims and rotation";
constexpr std::string_view kAllButDirections =
    "description, operator, date, elements, polarization and absolute level";

std::string WriteCapped(const ReadingsRecord& record, std::string_view versionText) {
  ReadingsRecord capped = record;
  CapForFile(capped);
  return WritePatternText(capped, versionText);
}

constexpr PatternFormat kFormats[] = {
    {.Id = "PatternFile",
     .Name = "Lobegraph Files",
     .Endings = ".lbg",
     .ReadRecord = ReadPatternText,
     .WriteRecord = WriteCapped},
    {.Id = "LevelList",
     .Name = "Levels, one a line",
     .Endings = ".csv",
     .Columns = false,
     .ReadRecord = ReadLevels,
     .WriteRecord = WriteLevels,
     .Lost = kAllButReadings},
    {.Id = "LevelTable",
     .Name = "Columns of angle and level",
     .Endings = ".csv",
     .Columns = true,
     .ReadTable = ReadLevelTable,
     .WriteTable = WriteLevelTable,
     .Lost = kAllButReadings},
    {.Id = "Planet",
     .Name = "Planet / MSI",
     .Endings = ".msi .pln",
     .ReadTable = ReadPlanet,
     .WriteTable = WritePlanet,
     .Lost = "date, elements and absolute level",
     .Invented = "the vertical cut is unknown and written as 0 dB all round, the frequency as 0",
     .AtWholeDegrees = true},
    {.Id = "Splat",
     .Name = "SPLAT! azimuth pattern",
     .Endings = ".az",
     .ReadTable = ReadSplat,
     .WriteTable = WriteSplat,
     .Lost = kAllButDirections,
     .AtWholeDegrees = true},
    {.Id = "RadioMobile",
     .Name = "Radio Mobile",
     .Endings = ".ant",
     .ReadTable = ReadRadioMobile,
     .WriteTable = WriteRadioMobile,
     .Lost = kAllButDirections,
     .AtWholeDegrees = true},
    {.Id = "Nsma",
     .Name = "NSMA WG16.99.050",
     .Endings = ".adf .nsma",
     .ReadTable = ReadNsma,
     .WriteTable = WriteNsma,
     .Lost = "elements and absolute level",
     .AtWholeDegrees = true},
    {.Id = "ModelTable",
     .Name = "Tables of antenna models",
     .Endings = ".nec .out",
     .EndingsOfAnyText = ".txt",
     .Recognises = LooksLikeModelTable,
     .ReadTable = ReadModelTable}};

bool HasOneOf(std::string_view path, std::string_view endings) {
  for (const std::string_view ending : WordsOf(endings))
    if (HasEnding(path, ending)) return true;
  return false;
}

bool Suits(const PatternFormat& format, std::string_view path, bool columns) {
  return format.Columns.value_or(columns) == columns && HasOneOf(path, format.Endings);
}

LoadOutcome ReadTableOf(const PatternFormat& format, std::string_view bytes, ReadingsRecord& record) {
  LoadOutcome outcome;
  try {
    TakeUpTable(format.ReadTable(DecodeText(bytes)), record);
  } catch (const RunTimeError& error) {
    outcome.Error = error;
  }
  return outcome;
}

void AddNew(std::vector<std::string_view>& list, std::string_view ending) {
  if (std::find(list.begin(), list.end(), ending) == list.end()) list.push_back(ending);
}

}  // namespace

std::span<const PatternFormat> PatternFormats() { return kFormats; }

const PatternFormat& FormatToRead(std::string_view path, std::string_view bytes, bool columns) {
  for (const PatternFormat& format : kFormats) {
    if (Suits(format, path, columns)) return format;
    if (HasOneOf(path, format.EndingsOfAnyText) && format.Recognises(bytes)) return format;
  }
  return kFormats[0];
}

const PatternFormat* FormatToWrite(std::string_view path, bool columns) {
  for (const PatternFormat& format : kFormats)
    if (format.Writes() && Suits(format, path, columns)) return &format;
  return nullptr;
}

std::vector<std::string_view> EndingsRead() {
  std::vector<std::string_view> list;
  for (const PatternFormat& format : kFormats)
    for (const std::string_view endings : {format.Endings, format.EndingsOfAnyText})
      for (const std::string_view ending : WordsOf(endings)) AddNew(list, ending);
  return list;
}

std::vector<std::string_view> EndingsWritten() {
  std::vector<std::string_view> list;
  for (const PatternFormat& format : kFormats)
    if (format.Writes()) AddNew(list, WordsOf(format.Endings).front());
  return list;
}

LoadOutcome ReadPattern(FileAccess& files, const std::string& path, const LoadRules& rules,
                        ReadingsRecord& record) {
  const std::string bytes = files.Read(path);
  const PatternFormat& format = FormatToRead(path, bytes, rules.Columns);
  if (&format == kFormats) return format.ReadRecord(bytes, rules, record);
  if (!rules.Overlay) record.ScaleSetting = scale_setting::kUsual;
  const LoadOutcome outcome = format.ReadRecord != nullptr ? format.ReadRecord(bytes, rules, record)
                                                           : ReadTableOf(format, bytes, record);
  record.Description = QuotableText(record.Description);
  return outcome;
}

}  // namespace lobegraph
