#pragma once

#include <cstdint>
#include <string>

namespace lobegraph {

/// Readings for which the meter had nothing new to say.
struct SilentReadings {
  int Count = 0;
  int First = -1;  ///< index of the first, -1 for none
};

/// Watches, reading by reading, whether the meter still talks. A meter slower than the readings is not
/// silent: only a stretch without any value of a second or more counts, and then from its first reading on.
class MeterSilence {
 public:
  /// A turn begins. @param values count of the values received so far
  void Begin(std::uint64_t values, std::int32_t nowMs);
  /// A reading was taken.
  void Reading(int index, std::uint64_t values, std::int32_t nowMs);
  /// The turn has ended. @param gone the meter's port is closed: a short stretch at the end counts as well
  SilentReadings End(std::int32_t nowMs, bool gone);

 private:
  void Count();

  SilentReadings silent_;
  int stretchFirst_ = -1;
  int stretch_ = 0;
  std::uint64_t values_ = 0;
  std::int32_t lastValueMs_ = 0;
};

/// The message after the turn.
std::string SilenceText(const SilentReadings& silent);

}  // namespace lobegraph
