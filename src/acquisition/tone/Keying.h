#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace lobegraph {

/// A stretch of samples in which the key is down all the time.
struct KeyDown {
  std::size_t First = 0;
  std::size_t Count = 0;

  bool operator==(const KeyDown&) const = default;
};

/// Hears the key of a beacon: splits the short-time power at its tone into two states, reading after reading.
class Keying {
 public:
  explicit Keying(double samplesPerSecond) : rate_(samplesPerSecond) {}

  /// The parts of a reading in which the key is surely down; the parts around a change are left out. Empty
  /// when there are none: the key is up, or nothing is heard.
  /// @param toneHz where the tone is
  /// @param noiseDensity mean square per hertz of the noise beside it
  std::vector<KeyDown> PartsOf(std::span<const float> reading, double toneHz, double noiseDensity);

  /// Speed by the shortest strokes heard so far, in words a minute (PARIS); none before three strokes.
  std::optional<double> WordsPerMinute() const;

 private:
  std::vector<bool> Split(const std::vector<double>& power, double noisePower);
  void Note(bool down, double seconds);

  double rate_;
  bool wasDown_ = false;        ///< at the end of the reading before
  double lastTop_ = 0.0;        ///< strongest part of the reading before
  double strokeSeconds_ = 0.0;  ///< how long the key is down by now; 0: up, or since an unknown time
  bool strokeWhole_ = false;    ///< its begin was heard
  std::vector<double> strokes_;
};

/// The shortest turn, seconds, in which each pause of a beacon is filled from near enough: 60 s at 12 words a
/// minute.
double ShortestKeyedTurn(double wordsPerMinute);

}  // namespace lobegraph
