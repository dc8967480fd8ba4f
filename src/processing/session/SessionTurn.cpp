// The log of the turn that the readings are from.
#include "data/turns/TurnDigest.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {

void PatternSession::KnowTurn(TurnLog log) {
  state_.Changes = CommandsOf(log, state_.Record);
  state_.ChangesOfOriginals = state_.Changes;
  state_.Turn = std::make_shared<const TurnLog>(std::move(log));
}

std::optional<TurnLog> PatternSession::TurnToSave() const {
  if (!state_.Turn) return std::nullopt;
  TurnLog log = *state_.Turn;
  NoteSaved(log, state_.Record, state_.Changes);
  return log;
}

void PatternSession::ForgetTurn() {
  state_.Turn.reset();
  state_.Changes.clear();
  state_.ChangesOfOriginals.clear();
}

Outcome PatternSession::Change(const char* procedure, const char* change, const Command& command) {
  return Do(procedure, [&](Outcome& outcome) {
    const ReadingsRecord before = state_.Record;
    Guarded(outcome, procedure, command);
    const ReadingsRecord& now = state_.Record;
    if (before.Readings == now.Readings && before.NumReadings == now.NumReadings) return;
    state_.Changes += (state_.Changes.empty() ? "" : ", ") + std::string(change);
  });
}

}  // namespace lobegraph
