#pragma once

namespace lobegraph {

/// Natural logarithm of x divided by that of 10. @throws RunTimeError 5 for x <= 0.
double Log10(double x);

/// level / reference. @throws RunTimeError 11 for a reference of 0, 6 for 0 by 0.
float CheckedRatio(float level, float reference);

/// dB below a reference: 20 Log10(reference / level), kept as a single (20 Log10(1000) is 60, not 59.99).
/// @throws RunTimeError 11 for a level of 0, 6 for 0 by 0, 5 when the ratio is not positive.
float DecibelsBelow(float reference, float level);

}  // namespace lobegraph
