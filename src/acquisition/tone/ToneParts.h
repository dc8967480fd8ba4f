#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace lobegraph {

/// The power of a tone in short parts of a sound, each seen through a Hann window of its own length.
class ToneParts {
 public:
  /// @param samples of each part
  ToneParts(std::size_t samples, double toneHz, double samplesPerSecond);

  /// Mean square of the tone (amplitude squared, halved) in one part.
  /// @param part as many samples as given above
  double PowerOf(std::span<const float> part) const;
  /// Hertz of noise that come along with the tone.
  double NoiseBandwidthHz() const { return bandwidthHz_; }

 private:
  std::vector<float> cosine_;  ///< window times wave
  std::vector<float> sine_;
  double weight_ = 0.0;  ///< sum of the window
  double bandwidthHz_ = 0.0;
};

}  // namespace lobegraph
