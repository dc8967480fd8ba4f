#include "acquisition/run/CollectionRun.h"

#include "data/base/Rounding.h"
#include "processing/PlotRange.h"

namespace lobegraph {

using namespace run_event;

namespace {

constexpr float kLastCounter = 359.0F;
constexpr int kReadingsPerTurn = 360;
constexpr int kSamplesPerTrigger = 5;
constexpr float kSilence = 1.0F;

/// Both in milliseconds of the clock. @throws RunTimeError 6 when the difference leaves 32 bits
std::int32_t Elapsed(std::int32_t now, std::int32_t start) {
  return ToInt32(static_cast<double>(now) - static_cast<double>(start));
}

}  // namespace

RunReport CollectionRun::Take() {
  std::exception_ptr fault;
  try {
    Begin();
    Collect();
  } catch (...) {
    fault = std::current_exception();
  }
  Close(fault != nullptr);
  if (fault) std::rethrow_exception(fault);
  return report_;
}

void CollectionRun::Begin() {
  RunFlags& flags = parts_.Flags;
  flags.CollectRequested = false;
  flags.ManualTriggerPressed = false;
  flags.HaltRequested = 0;  // before halt is enabled: a press while capture starts counts
  parts_.Window.Tell(TurnBegins{});
  flags.IsCollecting = true;
  plotScale_ = parts_.Window.Controls().PlotScale;
}

void CollectionRun::Collect() {
  if (!StartSource()) return;
  const RunControls controls = parts_.Window.Controls();
  parts_.Window.Tell(ManualTrigger{controls.Triggered});
  intervalMs_ = ToInt32(static_cast<double>(controls.RotationSeconds) / kReadingsPerTurn * 1000.0);
  angularStep_ = DegreesBetween(kReadingsPerTurn, parts_.Record.Plot180);
  parts_.Window.Tell(SourceRuns{});
  if (controls.AutoStart) AwaitSignal();
  AwaitStartupDelay();
  if (!parts_.Flags.CloseRequested) TakeReadings();
}

bool CollectionRun::StartSource() {
  if (!parts_.FromSoundCard()) return true;
  parts_.Flags.InputReady = parts_.Sound.StartSoundCapture();
  sourceStarted_ = parts_.Flags.InputReady;
  if (sourceStarted_) {
    parts_.Pump.Begin();
    parts_.Window.Tell(SoundOpened{});
  } else {
    report_.SourceFailure = parts_.Sound.SoundFailure();
  }
  return sourceStarted_;
}

void CollectionRun::AwaitSignal() {
  do {
    if (parts_.ReadInputLevel() > parts_.Settings.DetectStartLevel) return;
    parts_.Pump.ProcessPendingEvents();
  } while (!Halted());
}

void CollectionRun::AwaitStartupDelay() {
  const std::int32_t start = parts_.Time.timeGetTime();
  // Elapsed milliseconds x 10 are ten-thousandths of a second, as the delay is.
  std::int64_t elapsed = 0;
  do {
    parts_.ReadInputLevel();
    elapsed = Elapsed(parts_.Time.timeGetTime(), start);
    parts_.Pump.ProcessPendingEvents();
  } while (elapsed * 10 < parts_.Settings.StartupDelay.TenThousandths() && !parts_.Flags.CloseRequested);
}

void CollectionRun::TakeReadings() {
  report_.Ran = true;
  for (int index = 0; index < kReadingsPerTurn; ++index) parts_.Record.Readings(index) = 0.0F;
  nextDeadlineMs_ = parts_.Time.timeGetTime();
  silence_.Begin(parts_.Meter.ValuesReceived, nextDeadlineMs_);
  for (counter_ = 0.0F; counter_ <= kLastCounter; counter_ += 1.0F) {
    parts_.Pump.ProcessPendingEvents();
    if (Halted() || !TakeReading()) return;
  }
}

/// False when the turn ended before the reading was complete.
bool CollectionRun::TakeReading() {
  SampleMean mean;
  if (parts_.Window.Controls().Triggered) {
    if (!SampleAtTrigger(mean)) return false;
  } else {
    SampleUntilDeadline(mean);
  }
  if (parts_.Flags.CloseRequested) return false;
  const float level = StoredLevel(mean.Mean(), parts_.Settings.PeakInputLevel);
  const int index = ToInt16(counter_);
  StoreReading(index, level);
  if (!parts_.FromSoundCard()) NoteFreshness(index);
  PlotReading(index, level);
  if (parts_.Window.Controls().AutoStop) WatchForEnd(level);
  return true;
}

bool CollectionRun::SampleAtTrigger(SampleMean& mean) {
  pacedByTrigger_ = true;
  bool fired = false;
  do {
    fired = parts_.WaitForTrigger();
    parts_.Pump.ProcessPendingEvents();
  } while (!fired && !Halted());
  if (Halted()) return false;
  for (int sample = 0; sample < kSamplesPerTrigger; ++sample) mean.Add(parts_.ReadInputLevel());
  return true;
}

void CollectionRun::SampleUntilDeadline(SampleMean& mean) {
  // After triggered readings the deadline counts on from now: the stale schedule would take the rest in one
  // burst.
  if (pacedByTrigger_) nextDeadlineMs_ = parts_.Time.timeGetTime();
  pacedByTrigger_ = false;
  nextDeadlineMs_ = ToInt32(static_cast<double>(nextDeadlineMs_) + intervalMs_);
  std::int32_t now = 0;
  do {
    mean.Add(parts_.ReadInputLevel());
    now = parts_.Time.timeGetTime();
  } while (now < nextDeadlineMs_ && !parts_.Flags.CloseRequested);
  if (static_cast<std::int64_t>(now) - nextDeadlineMs_ > intervalMs_) NoteLateness();
}

void CollectionRun::NoteLateness() {
  LateReadings& late = report_.Late;
  late.Last = ToInt16(counter_);
  if (late.Count++ == 0) late.First = late.Last;
}

void CollectionRun::NoteFreshness(int index) {
  silence_.Reading(index, parts_.Meter.ValuesReceived, parts_.Time.timeGetTime());
}

void CollectionRun::StoreReading(int index, float level) {
  parts_.Record.Readings(index) = level;
  stored_ = index + 1;
  heard_ = heard_ || level > kSilence;
  parts_.Window.Tell(ReadingStored{index, level});
}

void CollectionRun::PlotReading(int index, float level) {
  const float downDb = LiveDownDb(parts_, level);
  if (downDb < bestDownDb_) {
    bestDownDb_ = downDb;
    bestIndex_ = ToInt16(index);
  }
  const float radius = LiveRadius(parts_, level, downDb, plotScale_);
  parts_.Window.Tell(ReadingPlotted{index, angularStep_ * counter_, radius});
}

void CollectionRun::WatchForEnd(float level) {
  if (level > parts_.Settings.DetectStopLevel) {
    lowRun_ = 0;
    return;
  }
  lowRun_ = ToInt16(lowRun_ + 1);
  if (lowRun_ == parts_.Settings.DetectStopNumberOfReadings) parts_.Flags.HaltRequested = 1;
}

}  // namespace lobegraph
