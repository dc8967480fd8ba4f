#include "acquisition/levels/Spread.h"

#include <algorithm>
#include <cmath>

#include "acquisition/levels/LevelUnit.h"
#include "acquisition/tone/ToneParts.h"

namespace lobegraph {
namespace {

constexpr double kPartSeconds = 0.02;
constexpr std::size_t kFewest = 2;
constexpr std::size_t kMost = 16;
/// Mean square of rounding to whole sample steps: what is quieter is silence.
constexpr double kQuietest = 1.0 / 12.0;

}  // namespace

std::size_t PartsOf(std::size_t samples, double samplesPerSecond) {
  const double parts = std::round(static_cast<double>(samples) / samplesPerSecond / kPartSeconds);
  return std::clamp(static_cast<std::size_t>(parts), kFewest, kMost);
}

std::vector<double> PartPowers(std::span<const float> sound, double samplesPerSecond,
                               std::optional<double> toneHz) {
  const std::size_t parts = PartsOf(sound.size(), samplesPerSecond);
  const std::size_t length = sound.size() / parts;
  std::vector<double> powers;
  if (length == 0) return powers;
  std::optional<ToneParts> tone;
  if (toneHz) tone.emplace(length, *toneHz, samplesPerSecond);
  for (std::size_t part = 0; part < parts; ++part) {
    const auto samples = sound.subspan(part * length, length);
    powers.push_back(tone ? tone->PowerOf(samples) : SoundPower(samples));
  }
  return powers;
}

std::optional<double> SpreadDbOf(const std::vector<double>& powers) {
  if (powers.size() < 2 || std::ranges::max(powers) < kQuietest) return std::nullopt;
  double sum = 0.0;
  double squares = 0.0;
  for (const double power : powers) {
    const double db = PowerDb(std::max(power, kQuietest));
    sum += db;
    squares += db * db;
  }
  const auto count = static_cast<double>(powers.size());
  return std::sqrt(std::max(0.0, (squares - sum * sum / count) / (count - 1.0)));
}

}  // namespace lobegraph
