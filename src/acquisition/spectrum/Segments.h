#pragma once

#include <cstddef>
#include <vector>

namespace lobegraph {

/// How a stretch of sound is looked at: windows of one length, overlapping by about two thirds, the first at
/// its begin and the last at its end.
struct Segments {
  std::size_t Length = 0;           ///< samples of each window
  std::vector<std::size_t> Starts;  ///< the first sample of each
};

/// Three quarters of the stretch, at most a fifth of a second: long enough to keep noise out, short enough
/// for a tone that wanders by some hertz.
/// @param samples of the stretch, at least 1
Segments SegmentsOf(std::size_t samples, double samplesPerSecond);

/// The Hann window of a length, taken at the middle of each sample, so that it is never 0.
std::vector<float> HannWindow(std::size_t length);

/// Half the width of the Hann window's main lobe.
double MainLobeHz(std::size_t length, double samplesPerSecond);

/// How many independent looks the overlapping windows are worth: the degrees of freedom of their mean power,
/// halved. Source: P. D. Welch, "The use of fast Fourier transform for the estimation of power spectra",
/// 1967.
double IndependentLooks(const Segments& segments);

}  // namespace lobegraph
