#include "data/formats/PatternFormats.h"

#include <algorithm>

#include "data/base/TextEncoding.h"
#include "data/formats/GraspCut.h"
#include "data/formats/LevelList.h"
#include "data/formats/LevelTable.h"
#include "data/formats/ModelTable.h"
#include "data/formats/NsmaFile.h"
#include "data/formats/PatternFile.h"
#include "data/formats/PlanetFile.h"
#include "data/formats/RadioMobileFile.h"
#include "data/formats/SplatFile.h"
#include "data/formats/WinPropFile.h"
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

constexpr const char* kDeckAdvice = "This is an input deck of NEC: run it through nec2c first.";

constexpr PatternFormat kFormats[] = {
    {.Id = "PatternFile",
     .Name = "Lobegraph Files",
     .Endings = ".lbg",
     .ReadRecord = ReadPatternText,
     .WriteRecord = WriteCapped,
     .MostReadings = 360,
     .TextAs = QuotableText},
    {.Id = "LevelList",
     .Name = "Levels, one a line",
     .Endings = ".csv",
     .Columns = false,
     .ReadRecord = ReadLevels,
     .WriteRecord = WriteLevels,
     .Lost = kAllButReadings,
     .LosesHalfTurn = true,
     .MostReadings = 360},
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
     .TextAs = PrintableText,
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
     .TextAs = NsmaText,
     .AtWholeDegrees = true},
    {.Id = "ModelTable",
     .Name = "Tables of antenna models",
     .Endings = ".nec .out",
     .EndingsOfAnyText = ".txt",
     .Recognises = LooksLikeModelTable,
     .ReadTable = ReadModelTable},
    {.Id = "GraspCut", .Name = "TICRA GRASP cuts", .Endings = ".cut", .ReadTable = ReadGraspCut},
    {.Id = "WinProp", .Name = "WinProp ASCII patterns", .Endings = ".aha .ava", .ReadTable = ReadWinProp}};

bool HasOneOf(std::string_view path, std::string_view endings) {
  for (const std::string_view ending : WordsOf(endings))
    if (HasEnding(path, ending)) return true;
  return false;
}

bool Suits(const PatternFormat& format, std::string_view path, bool columns) {
  return format.Columns.value_or(columns) == columns && HasOneOf(path, format.Endings);
}

bool IsRecognised(bool (*recognises)(TextLines& lines), FileAccess& files, const std::string& path) {
  const auto file = files.Open(path, FileAccess::kAnySize);
  TextLines lines(*file);
  try {
    return recognises(lines);
  } catch (const RunTimeError&) {
    return false;  // no text
  }
}

LoadOutcome ReadTableOf(const PatternFormat& format, std::istream& file, ReadingsRecord& record) {
  LoadOutcome outcome;
  try {
    TextLines lines(file);
    TakeUpTable(format.ReadTable(lines), record);
  } catch (const RunTimeError& error) {
    outcome.Error = error;
  }
  return outcome;
}

LoadOutcome ReadForeign(const PatternFormat& format, FileAccess& files, const std::string& path,
                        const LoadRules& rules, ReadingsRecord& record) {
  const float scale = rules.Overlay ? record.ScaleSetting : scale_setting::kUsual;
  const LoadOutcome outcome = format.ReadRecord != nullptr
                                  ? format.ReadRecord(files.Read(path), rules, record)
                                  : ReadTableOf(format, *files.Open(path, FileAccess::kAnySize), record);
  record.ScaleSetting = scale;
  record.Description = QuotableText(record.Description);
  return outcome;
}

void AddNew(std::vector<std::string_view>& list, std::string_view ending) {
  if (std::find(list.begin(), list.end(), ending) == list.end()) list.push_back(ending);
}

}  // namespace

std::span<const PatternFormat> PatternFormats() { return kFormats; }

const PatternFormat& FormatToRead(FileAccess& files, const std::string& path, bool columns) {
  for (const PatternFormat& format : kFormats) {
    if (Suits(format, path, columns)) return format;
    if (HasOneOf(path, format.EndingsOfAnyText) && IsRecognised(format.Recognises, files, path))
      return format;
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
  const PatternFormat& format = FormatToRead(files, path, rules.Columns);
  LoadOutcome outcome = &format == kFormats ? format.ReadRecord(files.Read(path), rules, record)
                                            : ReadForeign(format, files, path, rules, record);
  if (outcome.Error && IsRecognised(LooksLikeModelDeck, files, path))
    outcome.Error = RunTimeError(fault::kTypeMismatch, Advice{kDeckAdvice});
  return outcome;
}

}  // namespace lobegraph
