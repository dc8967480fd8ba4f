#pragma once

#include <memory>
#include <optional>
#include <string>

#include "data/record/ReadingsRecord.h"
#include "data/turns/TurnLog.h"

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

  /// What is known of the turn; null: nothing.
  std::shared_ptr<const TurnLog> Turn;
  /// What was done to the readings since the turn ("smoothed, reversed"), and to the copy that Original
  /// returns to.
  std::string Changes;
  std::string ChangesOfOriginals;

  bool operator==(const PatternState&) const = default;
};

/// Whether nothing that a user could miss has changed: what a drawing computes anew does not count, nor where
/// the pattern was saved.
bool SamePattern(const PatternState& a, const PatternState& b);

}  // namespace lobegraph
