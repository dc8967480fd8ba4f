#include "acquisition/levels/ChannelMeter.h"

#include "acquisition/levels/LevelUnit.h"
#include "acquisition/levels/Spread.h"
#include "acquisition/tone/ToneFinder.h"

namespace lobegraph {

ChannelMeasure ChannelMeter::Measure(std::span<const float> sound) {
  ChannelMeasure measure;
  measure.SoundPower = SoundPower(sound);
  const PowerSpectrum spectrum = spectra_.Of(sound);
  measure.LobeHz = 2.0 * spectrum.MainLobeHz;
  // A turn may begin before the tone is heard: the first reading that holds one begins to follow it.
  if (!tone_.Hz())
    if (const auto line = LineIn(spectrum, kToneRange)) tone_.Begin(*line);
  tone_.Follow(spectrum, static_cast<double>(sound.size()) / spectra_.SamplesPerSecond());
  measure.ToneHz = tone_.Hz();
  measure.NoiseDensity = NoiseDensity(spectrum, band_, measure.ToneHz);
  if (measure.ToneHz) {
    MeasureTone(sound, spectrum, measure);
  } else {
    measure.SpreadDb = SpreadDbOf(PartPowers(sound, spectra_.SamplesPerSecond(), std::nullopt));
  }
  return measure;
}

void ChannelMeter::MeasureTone(std::span<const float> sound, const PowerSpectrum& spectrum,
                               ChannelMeasure& measure) {
  measure.TonePower = ::lobegraph::TonePower(spectrum, *measure.ToneHz);
  if (keyed_) return MeasureKeyed(sound, measure);
  measure.SpreadDb = SpreadDbOf(PartPowers(sound, spectra_.SamplesPerSecond(), measure.ToneHz));
}

void ChannelMeter::MeasureKeyed(std::span<const float> sound, ChannelMeasure& measure) {
  const std::vector<KeyDown> parts =
      keying_.PartsOf(sound, *measure.ToneHz, measure.NoiseDensity.value_or(0.0));
  measure.KeyUp = parts.empty();
  double power = 0.0;
  double samples = 0.0;
  std::vector<double> powers;
  for (const KeyDown& part : parts) {
    const auto down = sound.subspan(part.First, part.Count);
    power += static_cast<double>(part.Count) * ::lobegraph::TonePower(spectra_.Of(down), *measure.ToneHz);
    samples += static_cast<double>(part.Count);
    for (const double each : PartPowers(down, spectra_.SamplesPerSecond(), measure.ToneHz))
      powers.push_back(each);
  }
  if (samples > 0.0) measure.TonePower = power / samples;
  measure.SpreadDb = SpreadDbOf(powers);
}

}  // namespace lobegraph
