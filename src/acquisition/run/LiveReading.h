#pragma once

#include <optional>

#include "acquisition/run/CollectionParts.h"

namespace lobegraph {

/// The mean of a reading's samples, kept in singles, and how far they lie from each other.
class SampleMean {
 public:
  void Add(float sample);
  /// At least one sample was added.
  float Mean() const { return sum_ / count_; }
  int Count() const { return static_cast<int>(count_); }
  /// The standard deviation of the samples; none of a single one.
  std::optional<double> Spread() const;

 private:
  float count_ = 0.0F;
  float sum_ = 0.0F;
  double runningMean_ = 0.0;  ///< both as Welford, Technometrics 4 (1962) 419, has them
  double squares_ = 0.0;
};

/// What is stored of a mean: at most the peak input level, and 0 below 1.
float StoredLevel(float mean, float peakInputLevel);

/// dB down of a silent reading on the sound card: finite, so that a silent stretch ends no turn, and far
/// enough down to be drawn at the centre on every scale.
inline constexpr float kSilenceDownDb = 999.0F;

/// dB below full scale: what the meter says, or from the peak input level for the sound card.
/// @throws RunTimeError 5 when level or peak input level is not positive (a level of 0 is silence)
float LiveDownDb(const CollectionParts& parts, float level);

/// Radius of a live point, surface units.
/// @param plotScale value of the scale slider when the run began
/// @throws RunTimeError 6 or 11 on the linear scale when the peak input level is 0
float LiveRadius(const CollectionParts& parts, float level, float downDb, int plotScale);

}  // namespace lobegraph
