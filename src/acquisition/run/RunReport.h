#pragma once

#include <cstdint>
#include <string>

#include "acquisition/meters/MeterSilence.h"

namespace lobegraph {

/// Readings that ended more than one interval after their deadline: the program was not let run in time.
struct LateReadings {
  int Count = 0;
  int First = -1;  ///< index of the first, -1 for none
  int Last = -1;
};

/// Readings in which the computer was suspended: the antenna may have turned on meanwhile.
struct SuspendedReadings {
  int Count = 0;
  int First = -1;       ///< index of the first, -1 for none
  std::int64_t Ms = 0;  ///< in all of them
};

/// Why a collection took no further reading.
enum class TurnEnding { Whole, Halted, AutoStop, SourceLost };

/// What became of a collection.
struct RunReport {
  bool Ran = false;       ///< the reading loop was reached; false for a refused or abandoned start
  int ReadingsTaken = 0;  ///< last index + 1
  TurnEnding Ended = TurnEnding::Whole;
  bool NothingHeard = false;  ///< readings were taken from the sound card, and every one was silence
  LateReadings Late;
  SuspendedReadings Suspended;
  SilentReadings Silent;         ///< from a meter
  SilentReadings OneValue;       ///< repeated for seconds by a meter program whose life cannot be told
  std::string SourceFailure;     ///< why the sound card failed; empty when it did not
  bool TriggerPortGone = false;  ///< the port on which the trigger's pulses came
};

}  // namespace lobegraph
