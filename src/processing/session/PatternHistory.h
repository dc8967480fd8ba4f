#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "processing/session/PatternState.h"

namespace lobegraph {

/// What a user does many times in a row to reach one thing, which is then taken back at once.
enum class Repeated { No, Scale, Description };

/// The states that a pattern has gone through, so that each step can be taken back and taken again. Bounded:
/// the oldest falls off.
class PatternHistory {
 public:
  static constexpr std::size_t kKept = 100;

  /// A command has changed the pattern. What was taken back before cannot be taken again any more.
  void Note(const PatternState& before, Repeated repeated = Repeated::No);

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  /// @param present what Redo comes back to @return the state before the last change; there is one
  PatternState Undo(const PatternState& present);
  /// @param present what Undo comes back to @return the state that the last Undo left; there is one
  PatternState Redo(const PatternState& present);

 private:
  std::deque<PatternState> undo_;
  std::vector<PatternState> redo_;
  Repeated last_ = Repeated::No;
};

}  // namespace lobegraph
