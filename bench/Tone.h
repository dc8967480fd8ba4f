#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace lobegraph {

/// A tone whose largest sample tells a level exactly: 1102.5 Hz at 44.1 kHz, so every period of 40 samples
/// hits both peaks. The level is asked for once a period, where the wave crosses zero: no click. Level x 32
/// is the amplitude.
class Tone {
 public:
  static constexpr int kSamplesPerSecond = 44100;
  static constexpr int kChannels = 2;
  static constexpr int kFramesPerPeriod = 40;

  /// @param level 0 to 1023 by seconds since the first sample
  explicit Tone(std::function<double(double seconds)> level);

  /// The next samples, left and right in turn, the same on both.
  void Fill(std::span<std::int16_t> interleaved);
  /// Seconds of audio made so far.
  double Seconds() const { return static_cast<double>(frame_) / kSamplesPerSecond; }

 private:
  std::int16_t NextSample();

  std::function<double(double)> level_;
  std::int64_t frame_ = 0;
  double amplitude_ = 0;
};

}  // namespace lobegraph
