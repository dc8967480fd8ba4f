#include "acquisition/meters/MeterSilence.h"

#include <utility>

namespace lobegraph {
namespace {

constexpr std::int64_t kSilenceMs = 1000;

bool LongAgo(std::int32_t sinceMs, std::int32_t nowMs) {
  return static_cast<std::int64_t>(nowMs) - sinceMs >= kSilenceMs;
}

}  // namespace

void MeterSilence::Begin(std::uint64_t values, std::int32_t nowMs) {
  *this = {};
  values_ = values;
  lastValueMs_ = nowMs;
}

void MeterSilence::Reading(int index, std::uint64_t values, std::int32_t nowMs) {
  if (values != std::exchange(values_, values)) {
    if (LongAgo(lastValueMs_, nowMs)) Count();
    stretch_ = 0;
    lastValueMs_ = nowMs;
    return;
  }
  if (stretch_++ == 0) stretchFirst_ = index;
}

SilentReadings MeterSilence::End(std::int32_t nowMs, bool gone) {
  if (gone || LongAgo(lastValueMs_, nowMs)) Count();
  return silent_;
}

void MeterSilence::Count() {
  if (stretch_ > 0 && silent_.Count == 0) silent_.First = stretchFirst_;
  silent_.Count += std::exchange(stretch_, 0);
}

std::string SilenceText(const SilentReadings& silent) {
  return "The meter had no fresh value for " + std::to_string(silent.Count) +
         (silent.Count == 1 ? " reading" : " readings") + ", the first is No. " +
         std::to_string(silent.First + 1) + ". Check the meter and its cable; then choose the input again.";
}

}  // namespace lobegraph
