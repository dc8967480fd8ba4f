#include "data/formats/LevelList.h"

#include <sstream>

#include "data/base/Numbers.h"
#include "data/base/TextEncoding.h"
#include "data/formats/CsvReadings.h"

namespace lobegraph {

LoadOutcome ReadLevels(std::string_view bytes, const LoadRules&, ReadingsRecord& record) {
  std::istringstream file(DecodeText(bytes));
  const CsvReadings readings = ReadCsv(file);
  record.NumReadings = -1;
  for (int i = 0; i < static_cast<int>(readings.Values.size()); ++i) {
    record.Readings(i) = readings.Values[static_cast<std::size_t>(i)];
    if (record.Readings(i) != 0.F) record.NumReadings = static_cast<std::int16_t>(i);
  }
  LoadOutcome outcome;
  if (record.NumReadings < 0)
    outcome.Error = RunTimeError(fault::kTypeMismatch, "no levels found");
  else
    record.ReadingCount = record.NumReadings;
  return outcome;
}

std::string WriteLevels(const ReadingsRecord& record, std::string_view) {
  std::string text;
  for (int i = 0; i <= record.NumReadings; ++i) text += SingleText(record.Readings(i)) + "\r\n";
  return text;
}

}  // namespace lobegraph
