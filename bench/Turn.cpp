#include "bench/Turn.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lobegraph {
namespace {

constexpr double kTurnDeg = 360;
constexpr int kSlotsPerTurn = 360;
constexpr double kNoiseSlotSeconds = 0.01;
constexpr double kFullScaleLevel = 1000;

}  // namespace

Turn::Turn(const TurnSettings& settings, VoltagePattern voltage)
    : settings_(settings), voltage_(std::move(voltage)), random_(settings.Seed) {}

bool Turn::Over(double seconds) const { return settings_.Turns && Turned(seconds) >= *settings_.Turns; }

int Turn::TurnsDone(double seconds) const { return static_cast<int>(std::max(Turned(seconds), 0.0)); }

double Turn::BearingDeg(double seconds) const {
  const double turned = Follows() ? directionDeg_(seconds)
                                  : settings_.StartBearingDeg + kTurnDeg * std::max(Turned(seconds), 0.0);
  const double bearing = std::fmod(turned, kTurnDeg);
  return bearing < 0 ? bearing + kTurnDeg : bearing;
}

double Turn::TrueLevel(double seconds) const {
  if (Silent(seconds) || Over(seconds)) return 0;
  return settings_.PeakLevel * voltage_(BearingDeg(seconds));
}

double Turn::Level(double seconds) {
  double level = TrueLevel(seconds);
  if (Silent(seconds) || Over(seconds)) return level;
  level *= NoiseFactor(seconds);
  if (InSpike(seconds)) level += level + kSpikeLevels > kFullScaleLevel ? -kSpikeLevels : kSpikeLevels;
  return std::clamp(level, 0.0, kHighestLevel);
}

double Turn::NoiseFactor(double seconds) {
  const auto slot = static_cast<std::int64_t>(seconds / kNoiseSlotSeconds);
  if (settings_.NoiseDb > 0 && slot != std::exchange(noiseSlot_, slot))
    noiseFactor_ = std::pow(10, std::normal_distribution<>(0, settings_.NoiseDb)(random_) / 20);
  return noiseFactor_;
}

bool Turn::InSpike(double seconds) {
  const int turn = TurnsDone(seconds);
  if (turn != std::exchange(spikesTurn_, turn)) DrawSpikes();
  return spikes_.contains(static_cast<int>((Turned(seconds) - turn) * kSlotsPerTurn));
}

void Turn::DrawSpikes() {
  spikes_.clear();
  std::uniform_int_distribution<> anySlot(0, kSlotsPerTurn - 1);
  const auto wanted = static_cast<std::size_t>(std::clamp(settings_.SpikesPerTurn, 0, kMostSpikes));
  while (spikes_.size() < wanted) {
    const int slot = anySlot(random_);
    if (!spikes_.contains(slot - 1) && !spikes_.contains(slot + 1)) spikes_.insert(slot);
  }
}

}  // namespace lobegraph
