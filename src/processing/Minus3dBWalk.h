#pragma once

#include <functional>

namespace lobegraph {

/// The plotted readings and the strongest one, as indexes into the readings.
struct WalkRange {
  int First = 0;
  int Last = 0;
  int Peak = 0;  ///< may lie outside First to Last when it is a former set's
};

/// A walks forward from the peak, B backward; both wrap at the ends of the range.
enum class WalkSide { A, B };

/// The -3 dB walk: from the peak outward over at most the whole range, looking only at readings 1 to 4 dB
/// down, until the level has risen past 3 dB from a candidate above it; the nearer of the two is the point
/// (ties go to the one at or past 3 dB). Deliberate: a reading that does not rise forgets the candidate's
/// level but not that the level rose before, and a walk that ends nowhere yields the last reading examined,
/// which is the peak.
/// @param relativeDb dB below the peak of a reading; called once for each reading examined
int WalkToMinus3dB(const WalkRange& range, WalkSide side, const std::function<float(int)>& relativeDb);

}  // namespace lobegraph
