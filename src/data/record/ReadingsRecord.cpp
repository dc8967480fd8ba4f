#include "data/record/ReadingsRecord.h"

namespace lobegraph {

void ReadingsRecord::SaveReadings() {
  SavedReadings = Readings;
  SavedNumReadings = NumReadings;
}

void ReadingsRecord::RestoreReadings() { Readings = SavedReadings; }

}  // namespace lobegraph
