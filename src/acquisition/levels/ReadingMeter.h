#pragma once

#include <optional>
#include <span>
#include <vector>

#include "acquisition/levels/ChannelMeter.h"
#include "acquisition/levels/LevelChoice.h"
#include "acquisition/levels/ReadingCutter.h"
#include "data/record/ReadingDetail.h"

namespace lobegraph {

/// A reading's level by the chosen method, and what is known of it besides.
struct MeasuredReading {
  float Level = 1.0F;  ///< 1 or more; held below the peak input level by whoever stores it
  ReadingDetail Detail;
  std::int64_t First = 0;  ///< count of the frames captured before it
};

/// Makes levels of sound by a choice. For "Peaks" it measures every sample too, since what is known of a
/// reading does not depend on the method.
class ReadingMeter {
 public:
  ReadingMeter(const LevelChoice& choice, double samplesPerSecond);

  /// A stretch of no frames has level 1 and no details.
  MeasuredReading Measure(const SoundStretch& sound);

  /// The channel of the antenna under test.
  ChannelMeter& Main() { return main_; }
  const ChannelMeter& Main() const { return main_; }
  /// That of the fixed antenna; none unless the choice is the quotient.
  std::optional<ChannelMeter>& Reference() { return reference_; }
  const LevelChoice& Choice() const { return choice_; }
  double SamplesPerSecond() const { return rate_; }

  /// The samples that the main channel, or the reference, is measured from.
  std::vector<float> MainSamples(const SoundStretch& sound) const;
  std::vector<float> ReferenceSamples(const SoundStretch& sound) const;

  /// The reference's level from here on counts as that of an unchanged source.
  void ForgetReference() { firstReference_.reset(); }

 private:
  double Value(const ChannelMeasure& measure) const;
  float FloorOf(const ChannelMeasure& measure) const;
  double QuotientOf(double value, const SoundStretch& sound, ReadingDetail& detail);
  std::int32_t ClippedIn(const SoundStretch& sound) const;

  LevelChoice choice_;
  double rate_;
  ChannelMeter main_;
  std::optional<ChannelMeter> reference_;
  std::optional<double> firstReference_;
};

}  // namespace lobegraph
