#include "acquisition/run/LiveReading.h"

#include <cmath>

#include "data/base/RunTimeError.h"
#include "processing/Decibels.h"
#include "processing/RadiusRule.h"

namespace lobegraph {
namespace {

constexpr float kMeterFullScaleDb = 60.0F;

float Ratio(float level, float reference) {
  if (reference == 0.0F) throw RunTimeError(level == 0.0F ? fault::kOverflow : fault::kDivisionByZero);
  return level / reference;
}

}  // namespace

void SampleMean::Add(float sample) {
  sum_ += sample;
  count_ += 1.0F;
  const double from = sample - runningMean_;
  runningMean_ += from / count_;
  squares_ += from * (sample - runningMean_);
}

std::optional<double> SampleMean::Spread() const {
  if (count_ < 2.0F) return std::nullopt;
  return std::sqrt(squares_ / (count_ - 1.0));
}

float StoredLevel(float mean, float peakInputLevel) {
  const float level = mean > peakInputLevel ? peakInputLevel : mean;
  return level < 1.0F ? 0.0F : level;
}

float LiveDownDb(const CollectionParts& parts, float level) {
  if (!parts.FromSoundCard()) return kMeterFullScaleDb - parts.Meter.MeterDb;
  return level == 0.0F ? kSilenceDownDb : DecibelsBelow(parts.Settings.PeakInputLevel, level);
}

float LiveRadius(const CollectionParts& parts, float level, float downDb, int plotScale) {
  const PlotScale scale = ScaleOf(parts.Window.Controls().PlotInDb, parts.Settings.ShowLogScale);
  const float ratio = scale == PlotScale::Linear ? Ratio(level, parts.Settings.PeakInputLevel) : 0.0F;
  return PlotRadius(scale, parts.FullScaleRadius, ratio, downDb, static_cast<float>(plotScale));
}

}  // namespace lobegraph
