#include "bench/receiver/ReceiverSound.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace lobegraph {
namespace {

constexpr double kSampleStepsPerLevel = 32.0;
constexpr double kLargestSample = 32767.0;
constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr std::int64_t kFramesBetweenLevels = 32;
constexpr const char* kBeaconText = "VVV DE N0CALL ";

double Ratio(double db) { return std::pow(10.0, db / 20.0); }

}  // namespace

ReceiverSound::ReceiverSound(const ReceiverSettings& settings, double peakLevel,
                             std::function<double(double)> level)
    : settings_(settings),
      peakAmplitude_(peakLevel * kSampleStepsPerLevel),
      level_(std::move(level)),
      antenna_(ChainOf(settings.Seed)),
      reference_(ChainOf(settings.Seed + 1)) {
  if (settings.WordsPerMinute) key_.emplace(kBeaconText, *settings.WordsPerMinute);
}

ReceiverSound::Chain ReceiverSound::ChainOf(std::uint64_t seed) const {
  Chain chain;
  const double rate = settings_.SamplesPerSecond;
  const double noiseRms = peakAmplitude_ / std::numbers::sqrt2 / Ratio(settings_.SnrDb);
  if (settings_.NoiseHz)
    chain.Noise.emplace(settings_.NoiseHz->first, settings_.NoiseHz->second, noiseRms, rate, seed);
  if (settings_.AgcSeconds)
    chain.Agc.emplace(settings_.AgcSeconds->first, settings_.AgcSeconds->second, peakAmplitude_, rate);
  return chain;
}

double ReceiverSound::Chain::Next(double signal) {
  if (Noise) signal += Noise->Next();
  return Agc ? Agc->Next(signal) : signal;
}

void ReceiverSound::Fill(std::span<std::int16_t> interleaved) {
  for (std::size_t i = 0; i < interleaved.size(); i += static_cast<std::size_t>(Channels())) {
    const double source = SourceStrength() * Wave();
    const double left = antenna_.Next(AntennaAmplitude() * source);
    interleaved[i] = Sample(left);
    const bool hasReference = settings_.Right == RightChannel::Reference;
    const double right = hasReference ? reference_.Next(peakAmplitude_ / 2.0 * source) : left;
    if (!settings_.Mono)
      interleaved[i + 1] = settings_.Right == RightChannel::Silent ? std::int16_t{0} : Sample(right);
    ++frame_;
  }
}

/// Asked for every 32 frames, a straight line between: no steps that would be heard as noise.
double ReceiverSound::AntennaAmplitude() {
  const std::int64_t place = frame_ % kFramesBetweenLevels;
  if (place == 0) {
    const auto at = [this](std::int64_t frame) {
      return kSampleStepsPerLevel * level_(static_cast<double>(frame) / settings_.SamplesPerSecond);
    };
    before_ = frame_ == 0 ? at(0) : after_;
    after_ = at(frame_ + kFramesBetweenLevels);
  }
  return before_ +
         (after_ - before_) * static_cast<double>(place) / static_cast<double>(kFramesBetweenLevels);
}

double ReceiverSound::Wave() {
  const double hz = settings_.ToneHz + settings_.DriftHzPerSecond * Seconds();
  turns_ = std::fmod(turns_ + hz / settings_.SamplesPerSecond, 1.0);
  double wave = std::sin(kTurn * turns_);
  if (settings_.SecondTone)
    wave += Ratio(settings_.SecondTone->second) *
            std::sin(kTurn * std::fmod(settings_.SecondTone->first * Seconds(), 1.0));
  return wave;
}

double ReceiverSound::SourceStrength() const {
  double strength = key_ ? key_->At(Seconds()) : 1.0;
  if (settings_.Fade) {
    const double share = 0.5 - 0.5 * std::cos(kTurn * Seconds() / settings_.Fade->second);
    strength *= Ratio(-settings_.Fade->first * share);
  }
  return strength;
}

std::int16_t ReceiverSound::Sample(double value) const {
  if (settings_.ClipDb) value *= kLargestSample / peakAmplitude_ * Ratio(*settings_.ClipDb);
  return static_cast<std::int16_t>(
      std::lround(std::clamp(value + settings_.Offset, -kLargestSample - 1.0, kLargestSample)));
}

}  // namespace lobegraph
