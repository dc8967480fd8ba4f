#pragma once

#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <random>
#include <span>
#include <vector>

namespace lobegraph::test {

inline constexpr double kSampleRate = 44100.0;

/// A sine of an amplitude in sample steps.
inline std::vector<float> Sine(std::size_t samples, double hz, double amplitude, double rate = kSampleRate) {
  std::vector<float> sound(samples);
  for (std::size_t i = 0; i < samples; ++i)
    sound[i] = static_cast<float>(
        amplitude * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(i) / rate + 0.3));
  return sound;
}

/// White noise of an rms value over all of half the sample rate.
inline std::vector<float> WhiteNoise(std::size_t samples, double rms, std::uint64_t seed = 1) {
  std::mt19937_64 random(seed);
  std::normal_distribution<double> normal(0.0, rms);
  std::vector<float> sound(samples);
  for (float& value : sound) value = static_cast<float>(normal(random));
  return sound;
}

/// White noise whose rms within 300 to 2700 Hz is as given.
inline std::vector<float> BandNoise(std::size_t samples, double rmsInBand, std::uint64_t seed = 1,
                                    double rate = kSampleRate) {
  return WhiteNoise(samples, rmsInBand * std::sqrt(rate / 2.0 / 2400.0), seed);
}

/// Noise of a narrow filter: lines as close as the stretch can tell apart, of random strength and phase.
inline std::vector<float> FilteredNoise(std::size_t samples, double fromHz, double toHz,
                                        double rmsOfLine = 30.0) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> phase(0.0, 2.0 * std::numbers::pi);
  std::normal_distribution<double> strength(0.0, rmsOfLine);
  std::vector<float> sound(samples, 0.0F);
  for (double hz = fromHz; hz < toHz; hz += kSampleRate / static_cast<double>(samples)) {
    std::complex<double> wave = std::polar(strength(random), phase(random));
    const std::complex<double> step = std::polar(1.0, 2.0 * std::numbers::pi * hz / kSampleRate);
    for (float& value : sound) {
      value += static_cast<float>(wave.real());
      wave *= step;
    }
  }
  return sound;
}

inline std::vector<float> Mixed(std::vector<float> a, std::span<const float> b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
  return a;
}

}  // namespace lobegraph::test
