#include "acquisition/sound/SoundLevel.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

namespace lobegraph {
namespace {

constexpr float kSampleStepsPerLevel = 32;
constexpr float kLowBelowPeak = 120;
constexpr float kOverloadBelowPeak = 60;
constexpr float kLowestLevel = 1;

std::int16_t AbsoluteSample(std::int16_t sample) {
  const bool hasNoOpposite = sample == std::numeric_limits<std::int16_t>::min();
  return hasNoOpposite ? std::numeric_limits<std::int16_t>::max()
                       : static_cast<std::int16_t>(std::abs(sample));
}

}  // namespace

void AnalyseSoundBlock(std::span<const std::byte> block, SoundLevelState& state) {
  std::vector<std::int16_t> samples(block.size() / sizeof(std::int16_t));
  const std::size_t bytesLookedAt = samples.size();
  if (bytesLookedAt > 0) std::memcpy(samples.data(), block.data(), bytesLookedAt);
  for (const std::int16_t sample : samples)
    state.SoundPeak = std::max(state.SoundPeak, AbsoluteSample(sample));
  state.SoundLevel = static_cast<float>(state.SoundPeak) / kSampleStepsPerLevel;
  state.SoundPeak = 0;
}

SoundThresholds SoundThresholds::FromPeak(float peakInputLevel) {
  return {peakInputLevel - kLowBelowPeak, peakInputLevel - kOverloadBelowPeak};
}

SoundColour SoundThresholds::ColourOf(float level) const {
  if (level < Low) return SoundColour::TooWeak;
  return level < Overload ? SoundColour::Good : SoundColour::Overload;
}

SoundReading ReadSoundLevel(SoundLevelState& state, bool inputReady, float peakInputLevel,
                            const SoundThresholds& thresholds, Clock& clock) {
  clock.SleepToNextTick();
  if (!inputReady) return {kLowestLevel, std::nullopt};
  state.SoundLevel = std::min(state.SoundLevel, peakInputLevel);
  return {std::max(state.SoundLevel, kLowestLevel), thresholds.ColourOf(state.SoundLevel)};
}

}  // namespace lobegraph
