#include "processing/Minus3dBWalk.h"

namespace lobegraph {
namespace {

constexpr float kTarget = 3.F;
constexpr float kNearest = 1.F;
constexpr float kFarthest = 4.F;
/// A first candidate this far down is no measure for a rise.
constexpr float kCandidateBelow = 2.9F;

int NextIndex(const WalkRange& range, WalkSide side, int index) {
  const int next = side == WalkSide::A ? index + 1 : index - 1;
  if (next >= range.First && next <= range.Last) return next;
  return side == WalkSide::A ? range.First : range.Last;
}

/// What a walk has seen so far.
struct Walk {
  float CandidateLevel = 0.F;
  int CandidateIndex = 0;
  bool Rising = false;

  /// @return the walk is over
  bool Examine(int index, float level) {
    if (CandidateLevel == 0.F) {
      CandidateIndex = index;
      if (level < kCandidateBelow) CandidateLevel = level;
    } else if (level <= CandidateLevel) {
      CandidateLevel = 0.F;
    } else {
      Rising = true;
    }
    if (!Rising) return false;
    if (level >= kTarget) return true;
    CandidateLevel = level;
    CandidateIndex = index;
    return false;
  }
};

}  // namespace

int WalkToMinus3dB(const WalkRange& range, WalkSide side, const std::function<float(int)>& relativeDb) {
  Walk walk;
  int index = range.Peak;
  float level = 0.F;
  for (int step = range.First; step <= range.Last; ++step) {
    index = NextIndex(range, side, index);
    level = relativeDb(index);
    const bool takesPart = level >= kNearest && level <= kFarthest;
    if (takesPart && walk.Examine(index, level)) break;
  }
  return kTarget - walk.CandidateLevel < level - kTarget ? walk.CandidateIndex : index;
}

}  // namespace lobegraph
