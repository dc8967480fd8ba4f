#include "acquisition/levels/LevelChoice.h"

#include <algorithm>

namespace lobegraph {

const LevelMethodRow& LevelMethodOf(std::string_view stored) {
  const auto* found = std::ranges::find(kLevelMethods, stored, &LevelMethodRow::Stored);
  return found == kLevelMethods.end() ? kLevelMethods.front() : *found;
}

const SoundChannelRow& SoundChannelOf(std::string_view stored) {
  const auto* found = std::ranges::find(kSoundChannels, stored, &SoundChannelRow::Stored);
  return found == kSoundChannels.end() ? RowOf(SoundChannel::Sum) : *found;
}

const LevelMethodRow& RowOf(LevelMethod method) {
  return *std::ranges::find(kLevelMethods, method, &LevelMethodRow::Method);
}

const SoundChannelRow& RowOf(SoundChannel channel) {
  return *std::ranges::find(kSoundChannels, channel, &SoundChannelRow::Channel);
}

}  // namespace lobegraph
