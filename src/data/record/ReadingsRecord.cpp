#include "data/record/ReadingsRecord.h"

namespace lobegraph {

void ReadingsRecord::TakeUp(const ReadingArray& readings) {
  int last = ReadingArray::kLast - 1;
  while (last >= 0 && readings(last) == 0.F) --last;
  Readings = readings;
  NumReadings = static_cast<std::int16_t>(last);
  ReadingCount = last + 1;
}

void ReadingsRecord::SaveReadings() {
  SavedReadings = Readings;
  SavedNumReadings = NumReadings;
}

void ReadingsRecord::RestoreReadings() { Readings = SavedReadings; }

}  // namespace lobegraph
