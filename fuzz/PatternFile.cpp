#include "data/formats/PatternFile.h"

#include <cmath>

#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

/// Seven digits are written.
bool Same(float a, float b) { return std::abs(a - b) <= 1e-6F * std::abs(a) || std::abs(a - b) <= 1e-36F; }

/// Quotes and line breaks have no place in a pattern file.
bool SameWords(const ReadingsRecord& loaded, const ReadingsRecord& again) {
  return QuotableText(loaded.Description) == again.Description &&
         QuotableText(loaded.CollectedBy) == again.CollectedBy &&
         QuotableText(loaded.CollectedDate) == again.CollectedDate &&
         QuotableText(loaded.Elements) == again.Elements &&
         loaded.PolarizationHorizontal == again.PolarizationHorizontal && loaded.Plot180 == again.Plot180;
}

}  // namespace

void TryPatternFile(std::string_view input) {
  ReadingsRecord record, again;
  if (ReadPatternText(input, {}, record).Error) return;
  CapForFile(record);
  const LoadOutcome outcome = ReadPatternText(WritePatternText(record, "V1.0.0"), {}, again);
  Promise(!outcome.Error, "what is saved can be loaded");
  Promise(again.NumReadings == record.NumReadings, "every reading is saved");
  for (int i = 0; i <= record.NumReadings; ++i)
    Promise(Same(record.Readings(i), again.Readings(i)), "a reading is saved as it is");
  Promise(SameWords(record, again), "the words are saved as they are");
}

}  // namespace lobegraph::fuzz
