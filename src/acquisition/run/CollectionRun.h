#pragma once

#include <cstdint>
#include <exception>
#include <limits>

#include "acquisition/meters/MeterSilence.h"
#include "acquisition/run/CollectionParts.h"
#include "acquisition/run/LiveReading.h"
#include "acquisition/run/RunReport.h"

namespace lobegraph {

/// One turn of the antenna, from the lock to the unlock. Made for each turn.
class CollectionRun {
 public:
  explicit CollectionRun(const CollectionParts& parts) : parts_(parts), before_(parts.Record) {}

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
  bool SampleAtTrigger(SampleMean& mean);
  void SampleUntilDeadline(SampleMean& mean);
  void NoteLateness();
  void NoteFreshness(int index);
  void StoreReading(int index, float level);
  void PlotReading(int index, float level);
  void WatchForEnd(float level);

  void StopSource();
  void Close(bool faulty);
  void Abandon();
  int LastIndex(bool faulty);
  void FinishPattern(bool faulty);
  void CountSilence();
  void Unlock();

  bool Halted() const { return parts_.Flags.HaltRequested == 1; }

  const CollectionParts& parts_;
  const ReadingsRecord before_;  ///< put back when the start is abandoned
  RunReport report_;
  int plotScale_ = 0;
  float angularStep_ = 0.0F;
  std::int32_t intervalMs_ = 0;
  std::int32_t nextDeadlineMs_ = 0;
  float counter_ = 0.0F;
  int stored_ = 0;
  bool pacedByTrigger_ = false;  ///< the reading before this one waited for the trigger
  bool sourceStarted_ = false;
  bool heard_ = false;
  MeterSilence silence_;
  std::int16_t lowRun_ = 0;
  float bestDownDb_ = std::numeric_limits<float>::max();
  std::int16_t bestIndex_ = 0;
};

}  // namespace lobegraph
