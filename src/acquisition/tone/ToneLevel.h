#pragma once

#include <optional>

#include "acquisition/spectrum/PowerSpectrum.h"

namespace lobegraph {

/// What a receiver for speech lets through, where nothing better is known.
inline constexpr Band kUsualReceiverBand{300.0, 2700.0};

/// Where a tone spreads to: its main lobe.
Band LobeAround(const PowerSpectrum& spectrum, double toneHz);

/// Mean square of a tone (amplitude squared, halved), noise within its main lobe included.
double TonePower(const PowerSpectrum& spectrum, double toneHz);

/// Mean square per hertz of the noise in a band: the median of its lines, scaled to the mean of noise, so
/// that other tones in the band do not count. The lines of the tone itself are left out.
/// @return none when too few lines are left to tell
std::optional<double> NoiseDensity(const PowerSpectrum& spectrum, const Band& band,
                                   std::optional<double> toneHz);

/// Median of the power of noise as a share of its mean, for a number of independent looks.
/// Source: E. B. Wilson and M. M. Hilferty, "The distribution of chi-square", 1931; within 0.06 dB.
double MedianShare(double looks);

}  // namespace lobegraph
