#pragma once

#include <optional>

#include "acquisition/spectrum/PowerSpectrum.h"

namespace lobegraph {

/// Where the receiver's tone is looked for.
inline constexpr Band kToneRange{200.0, 3500.0};
/// A line is a tone when the power of its lobe stands so far above the noise right beside it.
inline constexpr double kStandsOutDb = 10.0;
/// Two tones are of equal strength when they differ by less.
inline constexpr double kEqualTonesDb = 3.0;

/// What a search for the tone has found.
struct ToneSearch {
  std::optional<double> Hz;       ///< the tone; none: nothing stands out
  std::optional<double> OtherHz;  ///< a second one of equal strength
};

/// The strongest line of kToneRange; of two of equal strength the one nearer to the last.
/// @param spectrum of a quarter of a second or more, to resolve lines
ToneSearch FindTone(const PowerSpectrum& spectrum, std::optional<double> lastHz);

/// The strongest line that peaks within a band and stands out, to a fraction of a line.
std::optional<double> LineIn(const PowerSpectrum& spectrum, const Band& band);

}  // namespace lobegraph
