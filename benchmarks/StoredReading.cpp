// What a reading costs on disk while a turn runs: pattern and log, beside the pattern alone and beside the
// bytes alone.
#include <benchmark/benchmark.h>

#include <string>

#include "data/formats/PatternFile.h"
#include "data/turns/HeldFile.h"
#include "data/turns/TurnKeeper.h"
#include "support/TemporaryFolder.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

constexpr int kReadings = 360;
constexpr const char* kVersion = "V1.0.0";

/// The turns of a whole program run; a reading's cost is that of the middle of a turn, on average.
void StoredReading(benchmark::State& state) {
  const TemporaryFolder folder;
  const ReadingsRecord record = BeamRecord();
  TurnKeeper keeper(folder.File("turns"), kVersion);
  int index = 0;
  for (auto _ : state) {
    if (index == 0) {
      state.PauseTiming();
      keeper.Begin({.MoreColumns = {"spread"}});
      state.ResumeTiming();
    }
    keeper.Store(record, {.Index = index, .Samples = 34, .More = {"12.5"}});
    if (++index < kReadings) continue;
    state.PauseTiming();
    keeper.Finish(record, turnend::kWhole);
    index = 0;
    state.ResumeTiming();
  }
  if (!keeper.Failure().empty() || !keeper.LogFailure().empty()) state.SkipWithError("not written");
}

ReadingsRecord HalfATurn() {
  ReadingsRecord record = BeamRecord();
  record.NumReadings = kReadings / 2 - 1;
  return record;
}

/// The copy of the pattern alone.
void PatternAlone(benchmark::State& state) {
  const TemporaryFolder folder;
  const ReadingsRecord record = HalfATurn();
  const HeldFile file(folder.File("turn.lbg"), HeldFile::Open::New);
  for (auto _ : state) file.Rewrite(WritePatternText(record, kVersion));
}

/// The floor: the same bytes into the same file.
void BytesAlone(benchmark::State& state) {
  const TemporaryFolder folder;
  const std::string bytes = WritePatternText(HalfATurn(), kVersion);
  const HeldFile file(folder.File("turn.lbg"), HeldFile::Open::New);
  for (auto _ : state) file.Rewrite(bytes);
}

void Repeated(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();
}

BENCHMARK(BytesAlone)->Apply(Repeated);
BENCHMARK(PatternAlone)->Apply(Repeated);
BENCHMARK(StoredReading)->Iterations(10 * kReadings)->Apply(Repeated);

}  // namespace
}  // namespace lobegraph
