#pragma once

#include <optional>
#include <span>
#include <vector>

#include "acquisition/tone/Keying.h"

namespace lobegraph {

/// Parts of some 20 ms, at least two and at most sixteen, in which a stretch of sound is looked at for its
/// spread.
std::size_t PartsOf(std::size_t samples, double samplesPerSecond);

/// Powers of the parts of a sound: of the tone where one is given, else of every sample.
std::vector<double> PartPowers(std::span<const float> sound, double samplesPerSecond,
                               std::optional<double> toneHz);

/// Standard deviation (of a sample: by one less than the parts) of the powers in dB; none for fewer than two
/// parts or for silence.
std::optional<double> SpreadDbOf(const std::vector<double>& powers);

}  // namespace lobegraph
