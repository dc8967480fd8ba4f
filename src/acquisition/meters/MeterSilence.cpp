#include "acquisition/meters/MeterSilence.h"

#include <algorithm>
#include <utility>

#include "acquisition/core/Clock.h"

namespace lobegraph {
namespace {

/// Between two yields of a program that is awake; a meter's sample lasts 5 ms.
constexpr std::uint32_t kLongestLookMs = 50;

}  // namespace

void MeterSilence::Begin(std::uint64_t signs, std::int32_t nowMs) {
  *this = {};
  signs_ = signs;
  lookedMs_ = nowMs;
}

void MeterSilence::Look(std::uint64_t signs, std::uint32_t silentAfterMs, std::int32_t nowMs) {
  const std::uint32_t sinceMs = MsBetween(std::exchange(lookedMs_, nowMs), nowMs);
  if (signs == signs_) {
    quietMs_ += std::min(sinceMs, kLongestLookMs);
    due_ = due_ || quietMs_ >= silentAfterMs;
    return;
  }
  if (due_) Count();
  signs_ = signs;
  stretch_ = 0;
  quietMs_ = 0;
  due_ = false;
  heard_ = true;
}

bool MeterSilence::Reading(int index) {
  if (std::exchange(heard_, false)) return false;
  if (stretch_++ == 0) stretchFirst_ = index;
  stretchLast_ = index;
  return due_;
}

SilentReadings MeterSilence::End(bool gone) {
  if (gone || due_) Count();
  return silent_;
}

void MeterSilence::Count() {
  if (stretch_ == 0) return;
  if (silent_.Count == 0) silent_.First = stretchFirst_;
  silent_.Last = stretchLast_;
  silent_.Stretches.push_back({stretchFirst_, stretchLast_});
  silent_.Count += std::exchange(stretch_, 0);
}

}  // namespace lobegraph
