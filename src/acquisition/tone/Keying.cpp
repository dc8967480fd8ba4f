#include "acquisition/tone/Keying.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "acquisition/tone/ToneParts.h"

namespace lobegraph {
namespace {

constexpr double kLongestPartSeconds = 0.02;
constexpr double kShortestPartSeconds = 0.006;
constexpr double kPartsOfReading = 4.0;
constexpr double kDownBelowTop = 0.25;    ///< -6 dB: further below the strongest part the key is up
constexpr double kDownAboveNoise = 10.0;  ///< 10 dB: what noise alone hardly ever reaches
constexpr std::size_t kFewestStrokes = 3;
constexpr std::size_t kMostStrokes = 4096;
constexpr double kSecondsPerDot = 1.2;  ///< times words a minute; a dot is a 50th of the word PARIS
constexpr double kTurnTimesSpeed = 60.0 * 12.0;

struct Parts {
  std::size_t Length = 0;
  std::size_t Step = 0;
  double NoiseBandwidthHz = 0.0;
  std::vector<double> Power;
};

Parts SplitInParts(std::span<const float> reading, double toneHz, double rate) {
  Parts parts;
  const double seconds = std::clamp(static_cast<double>(reading.size()) / rate / kPartsOfReading,
                                    kShortestPartSeconds, kLongestPartSeconds);
  parts.Step = std::max<std::size_t>(1, static_cast<std::size_t>(std::lround(seconds * rate / 2.0)));
  parts.Length = 2 * parts.Step;
  const ToneParts measure(parts.Length, toneHz, rate);
  parts.NoiseBandwidthHz = measure.NoiseBandwidthHz();
  for (std::size_t at = 0; at + parts.Length <= reading.size(); at += parts.Step)
    parts.Power.push_back(measure.PowerOf(reading.subspan(at, parts.Length)));
  return parts;
}

/// Parts from and up to, the latter not included.
struct Run {
  std::size_t From = 0;
  std::size_t To = 0;
};

std::vector<Run> RunsOf(const std::vector<bool>& down) {
  std::vector<Run> runs;
  for (std::size_t part = 0; part < down.size(); ++part) {
    if (!down[part]) continue;
    if (part == 0 || !down[part - 1]) runs.push_back({part, part});
    runs.back().To = part + 1;
  }
  return runs;
}

}  // namespace

std::vector<KeyDown> Keying::PartsOf(std::span<const float> reading, double toneHz, double noiseDensity) {
  const Parts parts = SplitInParts(reading, toneHz, rate_);
  if (parts.Power.empty()) return {};
  const std::vector<bool> down = Split(parts.Power, noiseDensity * parts.NoiseBandwidthHz);
  std::vector<KeyDown> found;
  for (const Run& run : RunsOf(down)) {
    // The window of a part beside a change reaches into the pause.
    const std::size_t from = run.From == 0 && wasDown_ ? 0 : run.From + 1;
    const std::size_t to = run.To - 1;
    if (to > from) found.push_back({from * parts.Step, (to - 1 - from) * parts.Step + parts.Length});
  }
  const double partSeconds =
      static_cast<double>(reading.size()) / rate_ / static_cast<double>(parts.Power.size());
  for (const bool isDown : down) Note(isDown, partSeconds);
  wasDown_ = down.back();
  return found;
}

/// A reading that holds the last moment of a stroke is seen as weak beside the reading before it.
std::vector<bool> Keying::Split(const std::vector<double>& power, double noisePower) {
  const double top = std::ranges::max(power);
  const double before = wasDown_ ? lastTop_ : 0.0;
  const double limit = std::max(kDownAboveNoise * noisePower, kDownBelowTop * std::max(top, before));
  lastTop_ = top;
  std::vector<bool> down;
  for (const double part : power) down.push_back(part > limit);
  return down;
}

void Keying::Note(bool down, double seconds) {
  if (down) {
    strokeSeconds_ += seconds;
    return;
  }
  if (strokeSeconds_ > 0.0 && strokeWhole_ && strokes_.size() < kMostStrokes)
    strokes_.push_back(strokeSeconds_);
  strokeSeconds_ = 0.0;
  strokeWhole_ = true;
}

std::optional<double> Keying::WordsPerMinute() const {
  if (strokes_.size() < kFewestStrokes) return std::nullopt;
  std::vector<double> sorted = strokes_;
  std::ranges::sort(sorted);
  const double dash = 2.0 * sorted[sorted.size() / 4];
  const auto end = std::ranges::lower_bound(sorted, dash);
  const double dots = std::accumulate(sorted.begin(), end, 0.0);
  return kSecondsPerDot * static_cast<double>(end - sorted.begin()) / dots;
}

double ShortestKeyedTurn(double wordsPerMinute) { return kTurnTimesSpeed / wordsPerMinute; }

}  // namespace lobegraph
