#include "acquisition/run/SourceWatch.h"

namespace lobegraph {
namespace {

constexpr std::uint32_t kOneValueMs = 5000;

}  // namespace

void SourceWatch::BeginMeter() {
  const std::int32_t nowMs = time_.timeGetTime();
  silence_.Begin(meter_.Life.Signs, nowMs);
  sameness_.Begin(meter_.Life.Changes, nowMs);
}

bool SourceWatch::MeterReading(int index) {
  sameness_.Reading(index);
  return silence_.Reading(index);
}

void SourceWatch::ProcessPendingEvents() {
  pump_.ProcessPendingEvents();
  const std::int32_t nowMs = time_.timeGetTime();
  silence_.Look(meter_.Life.Signs, meter_.Life.SilentAfterMs, nowMs);
  sameness_.Look(meter_.Life.Changes, kOneValueMs, nowMs);
  if (!watching_ || Lost()) return;
  failure_ = sound_.SoundFailure();
  if (Lost()) flags_.HaltRequested = 1;
}

}  // namespace lobegraph
