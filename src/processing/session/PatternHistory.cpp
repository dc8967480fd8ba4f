#include "processing/session/PatternHistory.h"

#include <utility>

namespace lobegraph {

void PatternHistory::Note(const PatternState& before, Repeated repeated) {
  redo_.clear();
  const bool goesOn = repeated != Repeated::No && repeated == last_ && !undo_.empty();
  last_ = repeated;
  if (goesOn) return;
  undo_.push_back(before);
  if (undo_.size() > kKept) undo_.pop_front();
}

PatternState PatternHistory::Undo(const PatternState& present) {
  last_ = Repeated::No;
  PatternState former = std::move(undo_.back());
  undo_.pop_back();
  redo_.push_back(present);
  return former;
}

PatternState PatternHistory::Redo(const PatternState& present) {
  last_ = Repeated::No;
  PatternState next = std::move(redo_.back());
  redo_.pop_back();
  undo_.push_back(present);
  return next;
}

}  // namespace lobegraph
