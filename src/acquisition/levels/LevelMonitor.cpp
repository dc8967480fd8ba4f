#include "acquisition/levels/LevelMonitor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "acquisition/levels/LevelUnit.h"
#include "acquisition/tone/ReceiverBand.h"
#include "acquisition/tone/ToneFinder.h"

namespace lobegraph {
namespace {

constexpr double kLongestLookSeconds = 0.1;
constexpr double kShortestLookSeconds = 0.02;
constexpr double kSearchSeconds = 0.75;
constexpr double kSearchEverySeconds = 0.25;
constexpr double kHoldKeySeconds = 2.0;  ///< a pause between words ends before
constexpr double kHistorySeconds = 1.0;

bool SilentIn(const SoundStretch& sound, std::size_t channel) {
  for (std::size_t i = channel; i < sound.Samples.size(); i += 2)
    if (sound.Samples[i] != 0) return false;
  return true;
}

}  // namespace

LevelMonitor::LevelMonitor(ReadingMeter& meter, double readingSeconds) : meter_(meter) {
  const double look = std::clamp(readingSeconds, kShortestLookSeconds, kLongestLookSeconds);
  lookFrames_ = std::llround(look * meter.SamplesPerSecond());
  searchFrames_ = std::llround(kSearchSeconds * meter.SamplesPerSecond());
  nextLook_ = lookFrames_;
  nextSearch_ = searchFrames_;
  status_.ToneHz = meter.Main().Tone().Hz();
}

std::int64_t LevelMonitor::HistoryFrames(double samplesPerSecond) {
  return std::llround(kHistorySeconds * samplesPerSecond);
}

void LevelMonitor::Look(const ReadingCutter& sound) {
  if (sound.Heard() >= nextSearch_) {
    Search(sound.Newest(searchFrames_));
    nextSearch_ = sound.Heard() + std::llround(kSearchEverySeconds * meter_.SamplesPerSecond());
  }
  if (sound.Heard() < nextLook_) return;
  Measure(sound.Newest(lookFrames_));
  nextLook_ = sound.Heard() + lookFrames_;
}

void LevelMonitor::Measure(const SoundStretch& sound) {
  const MeasuredReading look = meter_.Measure(sound);
  if (!look.Detail.KeyUp) lastKeyDown_ = sound.End();
  const double upSeconds = static_cast<double>(sound.End() - lastKeyDown_) / meter_.SamplesPerSecond();
  if (upSeconds == 0.0 || upSeconds > kHoldKeySeconds) Reading(look);
}

void LevelMonitor::Reading(const MeasuredReading& reading) {
  status_.Heard = true;
  status_.Level = reading.Level;
  status_.Clips = reading.Detail.Clipped > 0;
  status_.ToneHz = meter_.Main().Tone().Hz();
  status_.ToneHasLeft = meter_.Main().Tone().HasLeft();
  status_.WordsPerMinute = meter_.Main().WordsPerMinute();
}

void LevelMonitor::Search(const SoundStretch& sound) {
  status_.LeftSilent = SilentIn(sound, 0);
  status_.RightSilent = SilentIn(sound, 1);
  status_.Silent = status_.LeftSilent && status_.RightSilent;
  auto spectrum =
      std::make_shared<const PowerSpectrum>(meter_.Main().Spectra().Of(meter_.MainSamples(sound)));
  FindToneOf(meter_.Main(), *spectrum, true);
  status_.Spectrum = std::move(spectrum);
  if (meter_.Reference()) {
    ChannelMeter& reference = *meter_.Reference();
    FindToneOf(reference, reference.Spectra().Of(meter_.ReferenceSamples(sound)), false);
  }
}

void LevelMonitor::FindToneOf(ChannelMeter& channel, const PowerSpectrum& spectrum, bool isMain) {
  ToneFollower& tone = channel.Tone();
  const ToneSearch found = FindTone(spectrum, tone.Hz());
  if (found.Hz && !tone.Fixed()) tone.Begin(*found.Hz);
  channel.SetReceiverBand(FindReceiverBand(spectrum, tone.Hz()));
  if (!isMain) return;
  status_.ToneHz = tone.Hz();
  status_.ToneStandsOut = found.Hz.has_value();
  status_.OtherToneHz = found.OtherHz;
  status_.ReceiverBand = channel.ReceiverBand();
  status_.RatioDbHz.reset();
  const auto noise = NoiseDensity(spectrum, channel.ReceiverBand(), tone.Hz());
  if (tone.Hz() && noise && *noise > 0.0)
    status_.RatioDbHz = PowerDb(TonePower(spectrum, *tone.Hz()), *noise);
}

}  // namespace lobegraph
