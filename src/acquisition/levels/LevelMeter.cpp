#include "acquisition/levels/LevelMeter.h"

#include <utility>

namespace lobegraph {

LevelMeter::LevelMeter(const LevelChoice& choice, double samplesPerSecond, double readingSeconds)
    : meter_(choice, samplesPerSecond),
      monitor_(meter_, readingSeconds),
      clock_(samplesPerSecond),
      cutter_(LevelMonitor::HistoryFrames(samplesPerSecond)) {}

void LevelMeter::Hear(std::span<const std::int16_t> interleaved, std::int64_t nowMs) {
  cutter_.Hear(interleaved);
  clock_.Note(cutter_.Heard(), nowMs);
  Advance();
}

void LevelMeter::HearGap(std::int64_t frames, std::int64_t nowMs) {
  cutter_.HearGap(frames);
  clock_.Note(cutter_.Heard(), nowMs);
  Advance();
}

void LevelMeter::Close(std::int64_t timeMs) {
  cutter_.Close(clock_.CountAt(timeMs));
  Advance();
}

void LevelMeter::CloseLast(std::int64_t timeMs) {
  cutter_.CloseLast(clock_.CountAt(timeMs));
  Advance();
}

void LevelMeter::Advance() {
  while (const std::optional<SoundStretch> sound = cutter_.Next()) {
    measured_.push_back(meter_.Measure(*sound));
    monitor_.Reading(measured_.back());
  }
  if (!cutter_.IsOpen()) monitor_.Look(cutter_);
}

std::vector<MeasuredReading> LevelMeter::Take() { return std::exchange(measured_, {}); }

}  // namespace lobegraph
