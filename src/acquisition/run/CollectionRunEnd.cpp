// How a run ends: what is kept, what is put back, and the window unlocked in every case.
#include <algorithm>
#include <string>

#include "acquisition/run/CollectionRun.h"
#include "data/base/Rounding.h"

namespace lobegraph {

using namespace run_event;

namespace {

constexpr float kLastCounter = 359.0F;
constexpr float kEndCounter = 360.0F;
constexpr float kWeakestPeakDb = 60.0F;

}  // namespace

void CollectionRun::StopSource() {
  const std::string failure = parts_.Pump.End();
  if (!failure.empty()) report_.SourceFailure = failure;
  if (sourceStarted_) parts_.Sound.StopSoundCapture();
}

void CollectionRun::Close(bool faulty) {
  StopSource();
  if (parts_.Flags.CloseRequested) {
    parts_.Flags.IsCollecting = false;
    return;
  }
  const bool started = sourceStarted_ || !parts_.FromSoundCard();
  if (started) parts_.Window.Tell(SourceRests{});
  if (report_.Ran) {
    FinishPattern(faulty);
    Unlock();
  } else {
    Abandon();
  }
  if (!report_.SourceFailure.empty()) parts_.Messages.Show({report_.SourceFailure, kSoundErrorTitle, true});
  parts_.Waiting.ShowWaiting();
}

/// Nothing was measured: the pattern held before is there again, to be saved.
void CollectionRun::Abandon() {
  parts_.Record = before_;
  Unlock();
  parts_.Window.Tell(TurnAbandoned{});
}

/// The first reason counts: a source that breaks off halts the turn as well.
TurnEnding CollectionRun::HowEnded() const {
  if (!report_.SourceFailure.empty() && counter_ != kEndCounter) return TurnEnding::SourceLost;
  if (report_.Ended == TurnEnding::AutoStop) return TurnEnding::AutoStop;
  return parts_.Flags.HaltRequested != 0 ? TurnEnding::Halted : TurnEnding::Whole;
}

/// Deliberate: the halt flag counts against the counter, so a halt that takes effect on the last reading
/// drops it.
int CollectionRun::LastIndex(bool faulty) {
  if (faulty) return stored_ - 1;
  if (counter_ == kEndCounter) counter_ = kLastCounter;
  return ToInt16(counter_ - static_cast<float>(parts_.Flags.HaltRequested));
}

void CollectionRun::FinishPattern(bool faulty) {
  ReadingsRecord& record = parts_.Record;
  CountSilence();
  report_.Ended = HowEnded();
  report_.TriggerPortGone = parts_.Flags.TriggerPortGone && pacedByTrigger_;
  record.NumReadings = ToInt16(LastIndex(faulty));
  record.TrimEnd = lowRun_;
  report_.ReadingsTaken = record.NumReadings + 1;
  record.ReadingCount = report_.ReadingsTaken;
  record.ReadingsPlotted = ToInt16(report_.ReadingsTaken);
  if (stored_ > 0) {
    record.PeakLevelDb = std::min(bestDownDb_, kWeakestPeakDb);
    record.PeakIndex = bestIndex_;
    report_.NothingHeard = parts_.FromSoundCard() && !heard_;
  }
  parts_.Window.Tell(TurnEnds{report_.ReadingsTaken, lowRun_});
  record.SaveReadings();
}

void CollectionRun::CountSilence() {
  if (parts_.FromSoundCard()) return;
  const bool gone = parts_.Source().NeedsPort && !parts_.MSComm1.PortOpen();
  report_.Silent = parts_.Pump.EndMeter(gone);
  report_.OneValue = parts_.Pump.OneValue();
}

void CollectionRun::Unlock() {
  parts_.Window.Tell(TurnUnlocked{});
  parts_.Window.Tell(ManualTrigger{false});
  parts_.Flags.IsCollecting = false;
}

}  // namespace lobegraph
