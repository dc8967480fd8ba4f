#pragma once

#include <cstdint>
#include <exception>
#include <limits>

#include "acquisition/run/CollectionParts.h"
#include "acquisition/run/LiveReading.h"
#include "acquisition/run/RunReport.h"

namespace lobegraph {

/// One turn of the antenna, from the lock to the unlock. Made for each turn.
class CollectionRun {
 public:
  explicit CollectionRun(const CollectionParts& parts)
      : parts_(parts), before_(parts.Record), time_(parts.Time) {}

  /// The source was checked. Whatever happens on the way, the window is unlocked and the readings taken are
  /// kept; an arithmetic fault is thrown on after that. When the window is closed meanwhile nothing more is
  /// written or unlocked.
  RunReport Take();

 private:
  void Begin();
  void Collect();
  bool StartSource();
  void AwaitSignal();
  void AwaitStartupDelay();
  void TakeReadings();
  bool TakeReading();
  bool AwaitTrigger(bool& fired);
  void OfferManualTrigger(bool offered);
  void SampleUntilDeadline(SampleMean& mean);
  void NoteLateness();
  void NoteSuspend(int index);
  void StoreReading(int index, float level);
  void NoteDetails(int index, const SampleMean& mean);
  void PlotReading(int index, float level);
  void WatchForEnd(float level);

  void StopSource();
  void Close(bool faulty);
  void Abandon();
  TurnEnding HowEnded() const;
  int LastIndex(bool faulty);
  void FinishPattern(bool faulty);
  void CountSilence();
  void Unlock();

  bool Halted() const { return parts_.Flags.HaltRequested == 1; }
  bool Triggered() const { return parts_.Window.Controls().Triggered; }

  const CollectionParts& parts_;
  const ReadingsRecord before_;  ///< put back when the start is abandoned
  RunReport report_;
  int plotScale_ = 0;
  float angularStep_ = 0.0F;
  std::int32_t intervalMs_ = 0;
  LongTime time_;
  std::int64_t nextDeadlineMs_ = 0;
  std::int64_t suspendedMs_ = 0;  ///< before the reading that is under way
  float counter_ = 0.0F;
  int stored_ = 0;
  bool pacedByTrigger_ = false;  ///< the reading before this one waited for the trigger
  bool manualOffered_ = false;
  bool sourceStarted_ = false;
  bool heard_ = false;
  run_event::ReadingStored reading_;  ///< the one in hand
  std::int16_t lowRun_ = 0;
  float bestDownDb_ = std::numeric_limits<float>::max();
  std::int16_t bestIndex_ = 0;
};

}  // namespace lobegraph
