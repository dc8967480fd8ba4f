#pragma once

#include <optional>

#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// A pattern as one command finds it and leaves it to the next.
struct PatternState {
  ReadingsRecord Record;
  /// The pattern beneath an overlay, drawn first so that the pair survives everything that draws again.
  std::optional<ReadingsRecord> Beneath;
  /// A damaged file left a part of its readings: shown in numbers and texts, and not drawn until a command of
  /// the user's has been able to.
  bool HalfLoaded = false;
  /// The description came from a file, so a new pattern clears it.
  bool DescriptionLoaded = false;

  bool operator==(const PatternState&) const = default;
};

/// Whether nothing that a user could miss has changed: what a drawing computes anew does not count, nor where
/// the pattern was saved.
bool SamePattern(const PatternState& a, const PatternState& b);

}  // namespace lobegraph
