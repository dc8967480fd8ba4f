#pragma once

#include <cstdint>
#include <optional>

namespace lobegraph {

/// What is known of one reading besides its level. Levels are in the readings' unit: a full-scale sine is
/// 1024.
struct ReadingDetail {
  std::int32_t Samples = 0;             ///< of sound, of each channel; 0: of a meter
  std::int32_t Clipped = 0;             ///< of them at the end of the scale
  std::int32_t Missing = 0;             ///< of them lost on the way: silence stands in their place
  std::optional<float> SpreadDb;        ///< standard deviation of the levels of its parts
  std::optional<float> ToneHz;          ///< where the tone was measured
  std::optional<float> ToneLevel;       ///< of the tone, whatever the reading's level is made of
  std::optional<float> NoiseLevel;      ///< of the noise beside the tone, in the tone's bandwidth
  std::optional<float> FloorLevel;      ///< the level that the noise alone would give
  std::optional<float> ReferenceLevel;  ///< of the second channel, where that hears a fixed antenna
  bool KeyUp = false;                   ///< no key-down was heard: the level is filled from its neighbours
  bool ToneLeft = false;                ///< the tone had drifted out of reach: the level is too low
  bool NoTone = false;                  ///< no tone was known yet: the level is that of the noise

  bool operator==(const ReadingDetail&) const = default;
};

}  // namespace lobegraph
