#include <cmath>

#include "data/formats/PatternFile.h"
#include "fuzz/Targets.h"
#include "tests/support/OneFile.h"

namespace lobegraph::fuzz {
namespace {

constexpr float kPeakLevel = 1000.F;

void PromiseLevels(const ReadingsRecord& record) {
  for (int i = 0; i <= record.NumReadings; ++i)
    Promise(record.Readings(i) >= 0 && record.Readings(i) <= kPeakLevel * 1.00001F,
            "levels lie below the strongest");
}

void PromiseRecord(const ReadingsRecord& record) {
  Promise(record.NumReadings >= 0 && record.NumReadings < 360, "a record holds up to 360 readings");
  for (int i = 0; i <= record.NumReadings; ++i)
    Promise(std::isfinite(record.Readings(i)), "every level is a number");
  Promise(record.Description.find_first_of("\"\r\n") == std::string::npos,
          "a description stands on one line");
}

void PromiseRefusal(const RunTimeError& error) {
  Promise(error.Number() == fault::kTypeMismatch || error.Number() == fault::kInputPastEnd,
          "a text without a pattern is refused as one");
}

}  // namespace

/// The way of every program, which goes by a file's name.
void TryFormat(const PatternFormat& format, std::string_view input) {
  OneFile file{std::string(input)};
  const std::string name = "x" + std::string(format.Endings.substr(0, format.Endings.find(' ')));
  ReadingsRecord record;
  const LoadOutcome outcome = ReadPattern(file, name, {.Columns = format.Columns.value_or(false)}, record);
  if (outcome.Error) return PromiseRefusal(*outcome.Error);
  PromiseRecord(record);
  if (format.ReadTable != nullptr) PromiseLevels(record);
}

}  // namespace lobegraph::fuzz
