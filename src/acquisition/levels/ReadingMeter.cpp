#include "acquisition/levels/ReadingMeter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "acquisition/levels/LevelUnit.h"

namespace lobegraph {
namespace {

constexpr double kLowestLevel = 1.0;
constexpr int kLargestSample = 32767;
/// Rounding to whole sample steps, per hertz: the least noise that there can be.
constexpr double kRoundingDensity = 1.0 / 12.0 / 22050.0;

/// What noise peaks to within 5 ms, over its rms: 2.2, that is 4 dB above a sine of the same power.
constexpr double kPeakOfNoise = 2.5;

float Single(double value) { return static_cast<float>(value); }

std::vector<float> Channel(const SoundStretch& sound, std::size_t which) {
  std::vector<float> samples(sound.Samples.size() / 2);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = sound.Samples[2 * i + which];
  return samples;
}

std::vector<float> MeanOfBoth(const SoundStretch& sound) {
  std::vector<float> samples(sound.Samples.size() / 2);
  for (std::size_t i = 0; i < samples.size(); ++i)
    samples[i] = 0.5F * static_cast<float>(sound.Samples[2 * i] + sound.Samples[2 * i + 1]);
  return samples;
}

void Describe(const ChannelMeasure& measure, ReadingDetail& detail) {
  if (measure.SpreadDb) detail.SpreadDb = Single(*measure.SpreadDb);
  if (measure.NoiseDensity) detail.NoiseLevel = LevelOfPower(*measure.NoiseDensity * measure.LobeHz);
  if (measure.ToneHz) {
    detail.ToneHz = Single(*measure.ToneHz);
    detail.ToneLevel = LevelOfPower(measure.TonePower);
  }
}

}  // namespace

ReadingMeter::ReadingMeter(const LevelChoice& choice, double samplesPerSecond)
    : choice_(choice), rate_(samplesPerSecond), main_(samplesPerSecond, choice.Keyed) {
  if (choice.FixedHz)
    main_.Tone().Fix(*choice.FixedHz);
  else if (choice.LastHz)
    main_.Tone().Begin(*choice.LastHz);
  if (choice.Channel == SoundChannel::Quotient) reference_.emplace(samplesPerSecond, choice.Keyed);
}

MeasuredReading ReadingMeter::Measure(const SoundStretch& sound) {
  MeasuredReading reading;
  reading.First = sound.First;
  if (sound.Frames() == 0) return reading;
  ReadingDetail& detail = reading.Detail;
  detail.Samples = static_cast<std::int32_t>(sound.Frames());
  detail.Missing = sound.Missing;
  detail.Clipped = ClippedIn(sound);
  const ChannelMeasure measure = main_.Measure(MainSamples(sound));
  Describe(measure, detail);
  const bool byTone = choice_.Method == LevelMethod::Tone || choice_.Method == LevelMethod::ToneOverNoise;
  detail.KeyUp = byTone && measure.KeyUp;
  detail.NoTone = byTone && !measure.ToneHz;
  detail.ToneLeft = byTone && main_.Tone().HasLeft();
  if (measure.NoiseDensity) detail.FloorLevel = FloorOf(measure);
  const double value = Value(measure);
  reading.Level = Single(std::max(kLowestLevel, reference_ ? QuotientOf(value, sound, detail) : value));
  return reading;
}

double ReadingMeter::Value(const ChannelMeasure& measure) const {
  const double noise = std::max(measure.NoiseDensity.value_or(0.0), kRoundingDensity);
  const double tone = measure.ToneHz ? measure.TonePower : noise * measure.LobeHz;
  switch (choice_.Method) {
    case LevelMethod::Tone:
      return LevelOfPower(tone);
    case LevelMethod::ToneOverNoise:
      return LevelOfRatio(PowerDb(tone, noise), choice_.FullScaleDbHz);
    case LevelMethod::Peaks:
    case LevelMethod::AllOfTheSound:
      break;
  }
  return LevelOfPower(measure.SoundPower);
}

/// The level that the receiver's noise alone would give.
float ReadingMeter::FloorOf(const ChannelMeasure& measure) const {
  const double inLobe = *measure.NoiseDensity * measure.LobeHz;
  const double inBand = *measure.NoiseDensity * main_.ReceiverBand().WidthHz();
  switch (choice_.Method) {
    case LevelMethod::Tone:
      return LevelOfPower(inLobe);
    case LevelMethod::ToneOverNoise:
      return LevelOfRatio(PowerDb(measure.LobeHz), choice_.FullScaleDbHz);
    case LevelMethod::AllOfTheSound:
      return LevelOfPower(inBand);
    case LevelMethod::Peaks:
      break;
  }
  return LevelOfPower(inBand * kPeakOfNoise);
}

/// What the fixed antenna hears more or less than in the first reading is the source's doing. A reference
/// that is not heard at all divides nothing.
double ReadingMeter::QuotientOf(double value, const SoundStretch& sound, ReadingDetail& detail) {
  const double reference = Value(reference_->Measure(ReferenceSamples(sound)));
  detail.ReferenceLevel = Single(reference);
  if (reference < kLowestLevel) return value;
  if (!firstReference_) firstReference_ = reference;
  return value * *firstReference_ / reference;
}

std::int32_t ReadingMeter::ClippedIn(const SoundStretch& sound) const {
  const bool left = choice_.Channel != SoundChannel::Right;
  const bool right = choice_.Channel != SoundChannel::Left;
  std::int32_t clipped = 0;
  for (std::size_t i = 0; i + 1 < sound.Samples.size(); i += 2) {
    const bool atEnd = (left && std::abs(int{sound.Samples[i]}) >= kLargestSample) ||
                       (right && std::abs(int{sound.Samples[i + 1]}) >= kLargestSample);
    clipped += atEnd ? 1 : 0;
  }
  return clipped;
}

std::vector<float> ReadingMeter::MainSamples(const SoundStretch& sound) const {
  switch (choice_.Channel) {
    case SoundChannel::Left:
    case SoundChannel::Quotient:
      return Channel(sound, 0);
    case SoundChannel::Right:
      return Channel(sound, 1);
    case SoundChannel::Sum:
      break;
  }
  return MeanOfBoth(sound);
}

std::vector<float> ReadingMeter::ReferenceSamples(const SoundStretch& sound) const {
  return Channel(sound, 1);
}

}  // namespace lobegraph
