#include "cli/ReadPattern.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

constexpr float kPeakLevel = 1000.F;

void PromiseRecord(const ReadingsRecord& record) {
  Promise(record.NumReadings >= 0 && record.NumReadings < 360, "a record holds up to 360 readings");
  for (int i = 0; i <= record.NumReadings; ++i)
    Promise(record.Readings(i) >= 0 && record.Readings(i) <= kPeakLevel * 1.00001F,
            "levels lie below the strongest");
  Promise(record.Description.find_first_of("\"\r\n") == std::string::npos,
          "a description stands on one line");
}

/// The way of the companion, which goes by a file's name.
void TryNamed(const char* name, std::string_view bytes) {
  ReadingsRecord record;
  const LoadOutcome outcome = ReadPattern(name, bytes, {}, true, record);
  if (!outcome.Error) return PromiseRecord(record);
  const int number = outcome.Error->Number();
  Promise(number == fault::kTypeMismatch || number == fault::kInputPastEnd,
          "a text without a pattern is refused as one");
}

}  // namespace

void TryModelTable(std::string_view input) { TryNamed("x.out", input); }

void TryLevelTable(std::string_view input) { TryNamed("x.csv", input); }

/// The first byte chooses the format.
void TryPlanningFiles(std::string_view input) {
  constexpr const char* kNames[] = {"x.msi", "x.adf", "x.az", "x.ant"};
  if (!input.empty()) TryNamed(kNames[static_cast<unsigned char>(input.front()) % 4], input.substr(1));
}

}  // namespace lobegraph::fuzz
