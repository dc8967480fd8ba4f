#include "bench/Meter.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr double kFullScaleDb = 60;
constexpr double kFullScaleLevel = 1000;
// Places within a step: the pulse comes when a meter's mean of three has settled, and early enough for its
// five samples to end within the step.
constexpr double kPulseBegin = 0.25;
constexpr double kPulseEnd = 0.45;
constexpr double kLongestJump = 0.15;
// Into the step by a hair, so that rounding never gives the step before.
constexpr double kIntoTheStep = 1e-6;

}  // namespace

double MeterDbOf(double level) {
  if (level <= 0) return 0;
  return std::clamp(kFullScaleDb + 20 * std::log10(level / kFullScaleLevel), 0.0, kFullScaleDb);
}

std::string MeterText(BenchKind kind, double level) {
  const std::string tenths = FixedText(std::round(MeterDbOf(level) * 10), 0);
  return kind == BenchKind::Roska ? tenths + ";" : "\r" + tenths + " ";
}

std::string ProgramReading(double level) { return FixedText(MeterDbOf(level) - kFullScaleDb, 2); }

double SteppedTurn::HeldSince(double seconds) const {
  if (seconds < silence_) return seconds;
  return silence_ + (std::floor((seconds - silence_) / step_) + kIntoTheStep) * step_;
}

bool SteppedTurn::PulseHigh(double seconds) const {
  const double place = (seconds - HeldSince(seconds)) / step_;
  return seconds >= silence_ && place >= kPulseBegin && place < kPulseEnd;
}

double SteppedTurn::Next(double seconds, double elapsed) const {
  return seconds + std::min(elapsed, kLongestJump * step_);
}

}  // namespace lobegraph
