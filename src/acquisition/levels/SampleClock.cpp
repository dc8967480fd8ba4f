#include "acquisition/levels/SampleClock.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

constexpr std::int64_t kRememberedMs = 3000;

}  // namespace

void SampleClock::Note(std::int64_t end, std::int64_t nowMs) {
  const Block block{nowMs, static_cast<double>(nowMs) - static_cast<double>(end) / perMs_};
  while (!blocks_.empty() && blocks_.back().StartMs >= block.StartMs) blocks_.pop_back();
  blocks_.push_back(block);
  while (blocks_.front().TimeMs < nowMs - kRememberedMs) blocks_.pop_front();
}

std::int64_t SampleClock::CountAt(std::int64_t timeMs) const {
  if (blocks_.empty()) return 0;
  const double sinceStartMs = static_cast<double>(timeMs) - blocks_.front().StartMs;
  return std::max<std::int64_t>(0, std::llround(sinceStartMs * perMs_));
}

}  // namespace lobegraph
