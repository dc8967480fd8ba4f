#pragma once

#include <array>
#include <cstddef>

namespace lobegraph {

/// Radii of the logarithmic level rings: R * 10^(-dB / scale factor).
class RingTable {
 public:
  struct Entry {
    float LevelDb;  ///< dB below the rim
    float Radius;   ///< surface units
  };

  /// @param scaleFactor value of the scale slider; a larger one spreads the low levels outwards.
  /// @throws RunTimeError 11 (Division by zero) for a scale factor of 0, 6 (Overflow) for a radius beyond
  /// singles.
  RingTable(float fullScaleRadius, int scaleFactor);

  /// @throws RunTimeError 9 (Subscript out of range) for a level that has no ring.
  float Radius(float levelDb) const;

  /// The rim, then the levels in the order of computation.
  const auto& Entries() const { return entries_; }

 private:
  static constexpr std::size_t kCount = 28;
  std::array<Entry, kCount> entries_;
};

}  // namespace lobegraph
