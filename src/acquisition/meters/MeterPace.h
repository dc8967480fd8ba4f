#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace lobegraph {

/// How often a meter is heard: the median of its last intervals, so that a pause does not count. Values that
/// an adapter hands over together are heard once: between two such heaps nobody is silent.
class MeterPace {
 public:
  /// So many values came together. @param nowMs the clock
  void Received(int values, std::int32_t nowMs);

  /// Without a value for this long the meter has fallen silent: twice its usual interval, or a second while
  /// too few values are known.
  std::uint32_t SilentAfterMs() const;

 private:
  std::array<std::uint32_t, 15> intervalsMs_{};
  std::size_t count_ = 0;  ///< intervals noted; the last ones stand in the array
  std::int32_t lastMs_ = 0;
  bool heard_ = false;
};

/// What shows that the meter still speaks, and from when on its silence counts.
struct MeterLife {
  std::uint64_t Signs = 0;             ///< what could not have come from a meter that is dead
  std::uint32_t SilentAfterMs = 1000;  ///< without a sign
  /// For a program that tells no sign of life of its own: changes of what it publishes. A steady signal has
  /// none.
  std::uint64_t Changes = 0;
  bool ToldByChangesOnly = false;
};

}  // namespace lobegraph
