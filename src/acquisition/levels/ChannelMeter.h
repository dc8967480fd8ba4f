#pragma once

#include <optional>
#include <span>
#include <vector>

#include "acquisition/spectrum/PowerSpectrum.h"
#include "acquisition/tone/Keying.h"
#include "acquisition/tone/ToneFollower.h"
#include "acquisition/tone/ToneLevel.h"

namespace lobegraph {

/// What one channel's sound of a reading holds. Powers are mean squares in sample steps squared.
struct ChannelMeasure {
  double SoundPower = 0.0;             ///< of every sample
  std::optional<double> ToneHz;        ///< where the tone was measured; none: no tone is known
  double TonePower = 0.0;              ///< within its main lobe; of key-down parts only where it is keyed
  double LobeHz = 0.0;                 ///< the tone's bandwidth: the width of the main lobe
  std::optional<double> NoiseDensity;  ///< of the receiver's noise, in 1 Hz
  std::optional<double> SpreadDb;      ///< standard deviation of the parts' levels
  bool KeyUp = false;                  ///< the key is not heard to be down
};

/// Measures one channel, reading after reading, and keeps to its tone.
class ChannelMeter {
 public:
  /// @param keyed the tone is that of a keyed beacon
  ChannelMeter(double samplesPerSecond, bool keyed)
      : spectra_(samplesPerSecond), keyed_(keyed), keying_(samplesPerSecond) {}

  /// @param sound at least one sample
  ChannelMeasure Measure(std::span<const float> sound);

  ToneFollower& Tone() { return tone_; }
  const ToneFollower& Tone() const { return tone_; }
  SpectrumMaker& Spectra() { return spectra_; }
  void SetReceiverBand(const Band& band) { band_ = band; }
  const Band& ReceiverBand() const { return band_; }
  std::optional<double> WordsPerMinute() const { return keying_.WordsPerMinute(); }

 private:
  void MeasureTone(std::span<const float> sound, const PowerSpectrum& spectrum, ChannelMeasure& measure);
  void MeasureKeyed(std::span<const float> sound, ChannelMeasure& measure);

  SpectrumMaker spectra_;
  bool keyed_;
  Keying keying_;
  ToneFollower tone_;
  Band band_ = kUsualReceiverBand;
};

}  // namespace lobegraph
