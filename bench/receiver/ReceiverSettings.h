#pragma once

#include <cstdint>
#include <optional>
#include <utility>

namespace lobegraph {

/// What the right channel carries.
enum class RightChannel {
  Same,       ///< as the left one
  Silent,     ///< nothing
  Reference,  ///< a fixed antenna's receiver, which hears the same source
};

/// A receiver between antenna and sound card: what it makes of a clean signal.
struct ReceiverSettings {
  double ToneHz = 1102.5;
  double DriftHzPerSecond = 0.0;
  std::optional<double> WordsPerMinute = {};  ///< of a keyed beacon; none: a steady carrier
  /// The band that the receiver lets through; none: no noise.
  std::optional<std::pair<double, double>> NoiseHz = {};
  double SnrDb =
      40.0;  ///< tone in the antenna's main direction over the noise, power by power within the band
  std::optional<std::pair<double, double>> AgcSeconds = {};  ///< attack and decay; none: AGC off
  std::optional<double> ClipDb = {};  ///< how far the main direction is above full scale
  std::optional<std::pair<double, double>> SecondTone = {};  ///< hertz, dB over the first
  std::optional<std::pair<double, double>> Fade = {};  ///< the source fades by dB, once in so many seconds
  double Offset = 0.0;                                 ///< of the sound card, sample steps
  RightChannel Right = RightChannel::Same;
  bool Mono = false;  ///< one channel only
  int SamplesPerSecond = 44100;
  std::uint64_t Seed = 1;

  bool operator==(const ReceiverSettings&) const = default;
};

}  // namespace lobegraph
