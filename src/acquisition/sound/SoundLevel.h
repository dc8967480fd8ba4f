#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "acquisition/core/Clock.h"

namespace lobegraph {

/// The level that the sound card delivers, shared by the capture callback and the level read. Both run on the
/// window's thread, the callback only inside yields, so between two yields every read sees the same level.
struct SoundLevelState {
  std::int16_t SoundPeak = 0;       ///< largest absolute sample of the block being analysed; 0 between blocks
  float SoundLevel = 0;             ///< SoundPeak / 32 of the last block, 0 to 1023.97; kept between captures
  bool SoundCaptureActive = false;  ///< the capture buffer runs
};

/// Reduces one block of 16-bit samples (channels interleaved) to its level.
/// Deliberate: only as many bytes as the block has samples are looked at, that is the first half of the block
/// (5 ms of each 10 ms). Levels of existing patterns and thresholds in use were measured so and must stay
/// comparable.
void AnalyseSoundBlock(std::span<const std::byte> block, SoundLevelState& state);

/// What the user is told about the input level by the colour of its box.
enum class SoundColour { TooWeak, Good, Overload };

/// Where the colours change, in level units. Taken from the peak input level once, at start-up.
struct SoundThresholds {
  float Low = 880;       ///< below it: too weak
  float Overload = 940;  ///< at or above it: near overload

  static SoundThresholds FromPeak(float peakInputLevel);
  SoundColour ColourOf(float level) const;
};

struct SoundReading {
  float Level = 1;                    ///< 1 to the peak input level
  std::optional<SoundColour> Colour;  ///< none while the input is not ready: the box keeps its colour
};

/// The level of the sound card: SoundLevel held between 1 and peakInputLevel (the shared value itself is
/// brought down to the peak). Returns on the next millisecond tick, asleep until then: a reading is the sum
/// of all levels read until its deadline, and a sum of millions of them would lose digits and keep a
/// processor busy.
SoundReading ReadSoundLevel(SoundLevelState& state, bool inputReady, float peakInputLevel,
                            const SoundThresholds& thresholds, Clock& clock);

}  // namespace lobegraph
