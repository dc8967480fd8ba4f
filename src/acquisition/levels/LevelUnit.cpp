#include "acquisition/levels/LevelUnit.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

constexpr double kSampleStepsPerLevel = 32.0;
constexpr double kFullScaleLevel = 1000.0;
constexpr double kGreenBelowPeak = 90.0;
constexpr double kFarthestDb = 300.0;

}  // namespace

float LevelOfPower(double meanSquare) {
  return static_cast<float>(std::sqrt(2.0 * std::max(meanSquare, 0.0)) / kSampleStepsPerLevel);
}

double PowerOfLevel(double level) {
  const double amplitude = level * kSampleStepsPerLevel;
  return amplitude * amplitude / 2.0;
}

double SoundPower(std::span<const float> samples) {
  if (samples.empty()) return 0.0;
  double sum = 0.0;
  for (const float sample : samples) sum += sample;
  const double mean = sum / static_cast<double>(samples.size());
  double squares = 0.0;
  for (const float sample : samples) squares += (sample - mean) * (sample - mean);
  return squares / static_cast<double>(samples.size());
}

double PowerDb(double power, double reference) {
  if (!(power > 0.0)) return -kFarthestDb;
  if (!(reference > 0.0)) return kFarthestDb;
  return std::clamp(10.0 * std::log10(power / reference), -kFarthestDb, kFarthestDb);
}

float LevelOfRatio(double dbHz, double fullScaleDbHz) {
  return static_cast<float>(kFullScaleLevel * std::pow(10.0, (dbHz - fullScaleDbHz) / 20.0));
}

double FullScaleFor(double dbHz, double peakInputLevel) {
  const double level = std::max(peakInputLevel - kGreenBelowPeak, 1.0);
  return dbHz - 20.0 * std::log10(level / kFullScaleLevel);
}

}  // namespace lobegraph
