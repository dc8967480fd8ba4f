#pragma once

#include <cstdint>
#include <vector>

namespace lobegraph {

/// Readings for which the source had nothing new to say.
struct SilentReadings {
  int Count = 0;
  int First = -1;  ///< index of the first, -1 for none
  int Last = -1;
  /// Each stretch of them, from the first index to the last.
  struct Stretch {
    int First;
    int Last;
  };
  std::vector<Stretch> Stretches = {};
};

/// Watches whether the meter still speaks. A meter slower than the readings is not silent: only a stretch
/// without any sign of it that lasts long enough counts, and then from its first reading on. Time in which
/// the program itself stood still is nobody's silence: what came meanwhile has not been heard yet.
class MeterSilence {
 public:
  /// A turn begins. @param signs count of the signs of life so far
  void Begin(std::uint64_t signs, std::int32_t nowMs);
  /// At every yield. @param silentAfterMs from when on a stretch counts
  void Look(std::uint64_t signs, std::uint32_t silentAfterMs, std::int32_t nowMs);
  /// A reading was taken. @return whether it counts as silent already
  bool Reading(int index);
  /// The turn has ended. @param gone the meter is not there any more: a short stretch at the end counts as
  /// well
  SilentReadings End(bool gone);

 private:
  void Count();

  SilentReadings silent_;
  int stretch_ = 0;  ///< readings since the last sign
  int stretchFirst_ = -1;
  int stretchLast_ = -1;
  bool heard_ = false;  ///< in the reading that is under way
  bool due_ = false;    ///< the stretch is long enough
  std::uint64_t signs_ = 0;
  std::uint64_t quietMs_ = 0;  ///< since the last sign, as far as the program was awake
  std::int32_t lookedMs_ = 0;
};

}  // namespace lobegraph
