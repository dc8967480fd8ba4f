#include "acquisition/spectrum/Segments.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lobegraph {
namespace {

constexpr double kShareOfStretch = 0.75;
constexpr double kLongestSeconds = 0.2;
constexpr double kLargestStep = 1.0 / 3.0;  ///< from window to window, as a share of its length

/// Correlation of two windows that begin a lag apart.
double WindowCorrelation(const std::vector<float>& window, std::size_t lag) {
  double product = 0.0;
  double energy = 0.0;
  for (std::size_t i = 0; i < window.size(); ++i) {
    energy += double{window[i]} * window[i];
    if (i + lag < window.size()) product += double{window[i]} * window[i + lag];
  }
  return energy > 0.0 ? product / energy : 0.0;
}

}  // namespace

Segments SegmentsOf(std::size_t samples, double samplesPerSecond) {
  const double length =
      std::min(kShareOfStretch * static_cast<double>(samples), kLongestSeconds * samplesPerSecond);
  Segments segments;
  segments.Length = std::clamp<std::size_t>(static_cast<std::size_t>(std::lround(length)), 1, samples);
  const double room = static_cast<double>(samples - segments.Length);
  const double step = kLargestStep * static_cast<double>(segments.Length);
  const auto steps = static_cast<std::size_t>(std::ceil(room / step));
  for (std::size_t k = 0; k <= steps; ++k) {
    const double share = steps == 0 ? 0.0 : static_cast<double>(k) / static_cast<double>(steps);
    segments.Starts.push_back(static_cast<std::size_t>(std::lround(room * share)));
  }
  return segments;
}

std::vector<float> HannWindow(std::size_t length) {
  std::vector<float> window(length);
  for (std::size_t i = 0; i < length; ++i) {
    const double turn = 2.0 * std::numbers::pi * (static_cast<double>(i) + 0.5) / static_cast<double>(length);
    window[i] = static_cast<float>(0.5 - 0.5 * std::cos(turn));
  }
  return window;
}

double MainLobeHz(std::size_t length, double samplesPerSecond) {
  return 2.0 * samplesPerSecond / static_cast<double>(length);
}

double IndependentLooks(const Segments& segments) {
  const std::size_t count = segments.Starts.size();
  if (count < 2) return 1.0;
  const std::vector<float> window = HannWindow(segments.Length);
  double sum = 1.0;
  for (std::size_t apart = 1; apart < count; ++apart) {
    const std::size_t lag = segments.Starts[apart] - segments.Starts.front();
    if (lag >= segments.Length) break;
    const double correlation = WindowCorrelation(window, lag);
    sum += 2.0 * (1.0 - static_cast<double>(apart) / static_cast<double>(count)) * correlation * correlation;
  }
  return static_cast<double>(count) / sum;
}

}  // namespace lobegraph
