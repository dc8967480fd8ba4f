// A turn of some readings, kept as the program keeps it, in the folder that is named: for tests that kill it
// on the way. The reading that is in hand is named on the standard output before anything of it is written.
#include <cstdio>
#include <cstdlib>

#include "data/turns/TurnKeeper.h"
#include "support/TestRecord.h"

int main(int count, char** arguments) {
  using namespace lobegraph;
  if (count != 3) return 2;
  const int readings = std::atoi(arguments[2]);
  ReadingsRecord record = BeamRecord(readings);
  TurnKeeper keeper(arguments[1], "V1.0.0");
  keeper.Begin({.Operator = "N0CALL", .Source = "A test", .RotationSeconds = 60.0});
  for (int index = 0; index < readings; ++index) {
    std::printf("%d\n", index + 1);
    std::fflush(stdout);
    keeper.Store(record, {.Index = index, .Samples = 5});
  }
  keeper.Finish(record, turnend::kWhole);
  const bool kept = keeper.Failure().empty() && keeper.LogFailure().empty();
  return kept ? 0 : 1;
}
