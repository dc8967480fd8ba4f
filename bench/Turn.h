#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <set>
#include <utility>

#include "bench/Antenna.h"

namespace lobegraph {

/// How an antenna turns in front of the source, and what disturbs it.
struct TurnSettings {
  double SecondsPerTurn = 60;
  double StartBearingDeg = 180;
  double PeakLevel = 900;  ///< level in the antenna's main direction, 0 to 1023
  double NoiseDb = 0;      ///< rms of the level's fluctuation, drawn anew every 10 ms
  int SpikesPerTurn = 0;   ///< bursts of one 360th of a turn, kSpikeLevels up (down where there is no room)
  std::uint64_t Seed = 1;  ///< the same seed, the same noise and spikes
  double SilenceSeconds = 0;  ///< before the first turn
  std::optional<int> Turns;   ///< none: goes on until it is stopped
};

/// Level over time. Seconds count from the start of the silence before the first turn.
class Turn {
 public:
  static constexpr double kSpikeLevels = 200;
  static constexpr double kHighestLevel = 32767.0 / 32;  ///< what 16-bit samples can carry
  static constexpr int kMostSpikes = 90;                 ///< so that no two are neighbours

  Turn(const TurnSettings& settings, VoltagePattern voltage);

  /// Turned by somebody else from now on. @param directionDeg of the signal from the antenna, by seconds
  void Follow(std::function<double(double seconds)> directionDeg) { directionDeg_ = std::move(directionDeg); }
  bool Follows() const { return directionDeg_ != nullptr; }

  /// Before the first turn nothing is heard.
  bool Silent(double seconds) const { return seconds < settings_.SilenceSeconds; }
  /// All turns are done.
  bool Over(double seconds) const;
  /// Whole turns done: 0 in the first.
  int TurnsDone(double seconds) const;
  /// Of the antenna from the signal, or, when it follows, of the signal from the antenna: 0 to below 360.
  double BearingDeg(double seconds) const;
  /// What the antenna gives, undisturbed.
  double TrueLevel(double seconds) const;
  /// What is heard, with noise and spikes, 0 to kHighestLevel. Time must not go back.
  double Level(double seconds);

 private:
  double Turned(double seconds) const {
    return (seconds - settings_.SilenceSeconds) / settings_.SecondsPerTurn;
  }
  double NoiseFactor(double seconds);
  bool InSpike(double seconds);
  void DrawSpikes();

  TurnSettings settings_;
  VoltagePattern voltage_;
  std::function<double(double)> directionDeg_;
  std::mt19937_64 random_;
  std::int64_t noiseSlot_ = -1;
  double noiseFactor_ = 1;
  int spikesTurn_ = -1;
  std::set<int> spikes_;  ///< 360ths of the present turn that are disturbed
};

}  // namespace lobegraph
