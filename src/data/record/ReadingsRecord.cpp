#include "data/record/ReadingsRecord.h"

namespace lobegraph {

bool IsDescription(std::string_view text) {
  // A load begins with the second one, which a damaged file leaves.
  return !text.empty() && text != kNoDescription && text != "no description";
}

int LastLevel(const ReadingArray& readings) {
  int last = ReadingArray::kLast - 1;
  while (last >= 0 && readings(last) == 0.F) --last;
  return last;
}

void ReadingsRecord::TakeUp(const ReadingArray& readings) {
  const int last = LastLevel(readings);
  Readings = readings;
  NumReadings = static_cast<std::int16_t>(last);
  ReadingCount = last + 1;
  if (!HasSavedReadings) SaveReadings();
}

void ReadingsRecord::SaveReadings() {
  SavedReadings = Readings;
  SavedNumReadings = NumReadings;
  HasSavedReadings = true;
}

void ReadingsRecord::RestoreReadings() { Readings = SavedReadings; }

}  // namespace lobegraph
