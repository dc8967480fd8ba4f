#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "bench/receiver/BandNoise.h"
#include "bench/receiver/Morse.h"
#include "bench/receiver/ReceiverAgc.h"
#include "bench/receiver/ReceiverSettings.h"

namespace lobegraph {

/// What a receiver sends to the sound card while the antenna turns.
class ReceiverSound {
 public:
  /// @param level 0 to 1023 by seconds since the first sample; time never goes back
  /// @param peakLevel level in the antenna's main direction
  ReceiverSound(const ReceiverSettings& settings, double peakLevel,
                std::function<double(double seconds)> level);

  int Channels() const { return settings_.Mono ? 1 : 2; }
  int SamplesPerSecond() const { return settings_.SamplesPerSecond; }
  /// The next samples, channels in turn.
  void Fill(std::span<std::int16_t> interleaved);
  /// Seconds of sound made so far.
  double Seconds() const { return static_cast<double>(frame_) / settings_.SamplesPerSecond; }

 private:
  /// One receiver with its own noise and gain.
  struct Chain {
    std::optional<BandNoise> Noise;
    std::optional<ReceiverAgc> Agc;
    double Next(double signal);
  };
  Chain ChainOf(std::uint64_t seed) const;
  double AntennaAmplitude();
  double Wave();
  double SourceStrength() const;
  std::int16_t Sample(double value) const;

  ReceiverSettings settings_;
  double peakAmplitude_;
  std::function<double(double)> level_;
  std::optional<MorseKey> key_;
  Chain antenna_;
  Chain reference_;
  std::int64_t frame_ = 0;
  double turns_ = 0.0;   ///< phase of the tone
  double before_ = 0.0;  ///< amplitudes between which the present one lies
  double after_ = 0.0;
};

}  // namespace lobegraph
