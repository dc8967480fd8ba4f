#pragma once

#include <string>

#include "acquisition/meters/MeterSilence.h"

namespace lobegraph {

/// Readings that ended more than one interval after their deadline: the program was not let run in time.
struct LateReadings {
  int Count = 0;
  int First = -1;  ///< index of the first, -1 for none
  int Last = -1;
};

/// What became of a collection.
struct RunReport {
  bool Ran = false;           ///< the reading loop was reached; false for a refused or abandoned start
  int ReadingsTaken = 0;      ///< last index + 1
  bool NothingHeard = false;  ///< readings were taken from the sound card, and every one was silence
  LateReadings Late;
  SilentReadings Silent;      ///< from a meter
  std::string SourceFailure;  ///< why the sound card failed; empty when it did not
};

}  // namespace lobegraph
