#include "acquisition/run/CollectionRun.h"

#include <utility>

#include "acquisition/run/SourceCheck.h"
#include "data/base/Rounding.h"
#include "processing/PlotRange.h"

namespace lobegraph {

using namespace run_event;

namespace {

constexpr float kLastCounter = 359.0F;
constexpr int kReadingsPerTurn = 360;
constexpr int kSamplesPerTrigger = 5;
constexpr float kSilence = 1.0F;

/// The window is served at least so often.
constexpr std::int64_t kLongestUnservedMs = 50;
/// But not so shortly before a deadline that a picture could make the reading late.
constexpr std::int64_t kRoomToServeMs = 20;
/// The clocks of which the difference is a suspend are not read at the same moment.
constexpr std::int64_t kShortestSuspendMs = 100;

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
  flags.TriggerPortGone = false;
  flags.HaltRequested = 0;  // before halt is enabled: a press while capture starts counts
  parts_.Window.Tell(TurnBegins{});
  flags.IsCollecting = true;
  plotScale_ = parts_.Window.Controls().PlotScale;
}

void CollectionRun::Collect() {
  if (!StartSource()) return;
  const RunControls controls = parts_.Window.Controls();
  manualOffered_ = controls.Triggered;
  parts_.Window.Tell(ManualTrigger{manualOffered_});
  intervalMs_ = ToInt32(static_cast<double>(controls.RotationSeconds) / kReadingsPerTurn * 1000.0);
  angularStep_ = DegreesBetween(kReadingsPerTurn, parts_.Record.Plot180);
  parts_.Window.Tell(SourceRuns{});
  if (!parts_.FromSoundCard()) AwaitMeter(parts_, [this] { return !Halted(); });
  if (controls.AutoStart) AwaitSignal();
  AwaitStartupDelay();
  if (!parts_.Flags.CloseRequested) TakeReadings();
}

bool CollectionRun::StartSource() {
  if (!parts_.FromSoundCard()) return true;
  parts_.Flags.InputReady = parts_.Sound.StartSoundCapture(SourceMoves::AreFailures);
  sourceStarted_ = parts_.Flags.InputReady;
  if (sourceStarted_) {
    parts_.Pump.Begin();
    parts_.Window.Tell(SourceNamed{parts_.Sound.SoundSourceName()});
  } else {
    report_.SourceFailure = parts_.Sound.SoundFailure();
  }
  return sourceStarted_;
}

/// A level that a meter left behind before it fell silent starts nothing.
void CollectionRun::AwaitSignal() {
  const std::uint64_t valuesBefore = parts_.Meter.ValuesReceived;
  do {
    const float level = parts_.ReadInputLevel();
    const bool fresh = parts_.FromSoundCard() || parts_.Meter.ValuesReceived != valuesBefore;
    if (fresh && level > parts_.Settings.DetectStartLevel) return;
    parts_.Pump.ProcessPendingEvents();
  } while (!Halted());
}

void CollectionRun::AwaitStartupDelay() {
  const std::int64_t startMs = time_.NowMs();
  // Elapsed milliseconds x 10 are ten-thousandths of a second, as the delay is.
  std::int64_t elapsed = 0;
  do {
    parts_.ReadInputLevel();
    elapsed = time_.NowMs() - startMs;
    parts_.Pump.ProcessPendingEvents();
  } while (elapsed * 10 < parts_.Settings.StartupDelay.TenThousandths() && !Halted());
}

void CollectionRun::TakeReadings() {
  report_.Ran = true;
  for (int index = 0; index < kReadingsPerTurn; ++index) parts_.Record.Readings(index) = 0.0F;
  nextDeadlineMs_ = time_.NowMs();
  suspendedMs_ = parts_.Time.SuspendedMs();
  parts_.Pump.BeginMeter();
  for (counter_ = 0.0F; counter_ <= kLastCounter; counter_ += 1.0F) {
    parts_.Pump.ProcessPendingEvents();
    if (Halted() || !TakeReading()) return;
  }
}

/// False when the turn ended before the reading was complete.
bool CollectionRun::TakeReading() {
  reading_ = {};
  SampleMean mean;
  bool fired = false;
  if (!Triggered()) {
    OfferManualTrigger(false);
  } else if (!AwaitTrigger(fired)) {
    return false;
  }
  if (fired) {
    for (int sample = 0; sample < kSamplesPerTrigger; ++sample) mean.Add(parts_.ReadInputLevel());
  } else {
    SampleUntilDeadline(mean);
  }
  if (parts_.Flags.CloseRequested) return false;
  const float level = StoredLevel(mean.Mean(), parts_.Settings.PeakInputLevel);
  const int index = ToInt16(counter_);
  NoteSuspend(index);
  NoteDetails(index, mean);
  StoreReading(index, level);
  PlotReading(index, level);
  if (parts_.Window.Controls().AutoStop) WatchForEnd(level);
  return true;
}

/// Until the pulse, or until the box asks for none any more. @return false when the turn ended first
bool CollectionRun::AwaitTrigger(bool& fired) {
  pacedByTrigger_ = true;
  OfferManualTrigger(true);
  do {
    fired = parts_.WaitForTrigger();
    parts_.Pump.ProcessPendingEvents();
  } while (!fired && !Halted() && Triggered());
  return !Halted();
}

void CollectionRun::OfferManualTrigger(bool offered) {
  if (std::exchange(manualOffered_, offered) != offered) parts_.Window.Tell(ManualTrigger{offered});
}

void CollectionRun::SampleUntilDeadline(SampleMean& mean) {
  // After a wait for the trigger the deadline counts on from now: the stale schedule would take the rest in
  // one burst.
  if (pacedByTrigger_) nextDeadlineMs_ = time_.NowMs();
  pacedByTrigger_ = false;
  nextDeadlineMs_ += intervalMs_;
  std::int64_t nowMs = time_.NowMs();
  std::int64_t servedMs = nowMs;
  do {
    mean.Add(parts_.ReadInputLevel());
    nowMs = time_.NowMs();
    if (nowMs - servedMs < kLongestUnservedMs || nextDeadlineMs_ - nowMs < kRoomToServeMs) continue;
    parts_.Pump.ServeWindow();
    nowMs = servedMs = time_.NowMs();
  } while (nowMs < nextDeadlineMs_ && !parts_.Flags.CloseRequested);
  if (nowMs - nextDeadlineMs_ > intervalMs_) NoteLateness();
}

/// The antenna may have turned on while the clock of the turn stood still.
void CollectionRun::NoteSuspend(int index) {
  const std::int64_t sleptMs = parts_.Time.SuspendedMs() - suspendedMs_;
  if (sleptMs < kShortestSuspendMs) return;
  suspendedMs_ += sleptMs;
  SuspendedReadings& suspended = report_.Suspended;
  if (suspended.Count++ == 0) suspended.First = index;
  suspended.Ms += sleptMs;
  reading_.Suspended = true;
}

void CollectionRun::NoteLateness() {
  reading_.Late = true;
  LateReadings& late = report_.Late;
  late.Last = ToInt16(counter_);
  if (late.Count++ == 0) late.First = late.Last;
}

/// Of the sound card all samples of a reading see one level, so they are one.
void CollectionRun::NoteDetails(int index, const SampleMean& mean) {
  reading_.Samples = 1;
  if (parts_.FromSoundCard()) return;
  reading_.Samples = mean.Count();
  reading_.Spread = mean.Spread();
  reading_.Silent = parts_.Pump.MeterReading(index);
}

void CollectionRun::StoreReading(int index, float level) {
  parts_.Record.Readings(index) = level;
  stored_ = index + 1;
  heard_ = heard_ || level > kSilence;
  reading_.Index = index;
  reading_.Level = level;
  parts_.Window.Tell(reading_);
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
  if (lowRun_ != parts_.Settings.DetectStopNumberOfReadings) return;
  parts_.Flags.HaltRequested = 1;
  report_.Ended = TurnEnding::AutoStop;
}

}  // namespace lobegraph
