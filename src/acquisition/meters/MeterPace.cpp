#include "acquisition/meters/MeterPace.h"

#include <algorithm>
#include <utility>

#include "acquisition/core/Clock.h"

namespace lobegraph {
namespace {

constexpr std::size_t kFewestIntervals = 3;
constexpr std::uint32_t kUnknownMs = 1000;

}  // namespace

void MeterPace::Received(int values, std::int32_t nowMs) {
  if (values < 1) return;
  const std::uint32_t sinceMs = MsBetween(std::exchange(lastMs_, nowMs), nowMs);
  if (!std::exchange(heard_, true)) return;
  intervalsMs_[count_++ % intervalsMs_.size()] = sinceMs;
}

std::uint32_t MeterPace::SilentAfterMs() const {
  if (count_ < kFewestIntervals) return kUnknownMs;
  auto known = intervalsMs_;
  const auto end = known.begin() + static_cast<std::ptrdiff_t>(std::min(count_, known.size()));
  const auto middle = known.begin() + (end - known.begin()) / 2;
  std::nth_element(known.begin(), middle, end);
  return 2 * std::max(*middle, 1U);
}

}  // namespace lobegraph
