// A run borrows the plot, and a collection the record.
#include "processing/Transforms.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {

void PatternSession::BeginRun(RunKind kind) {
  beforeRun_ = state_;
  EndOverlay();
  run_ = kind;
}

void PatternSession::EndRun() {
  run_ = RunKind::None;
  if (!SamePattern(beforeRun_, state_)) history_.Note(beforeRun_);
}

Outcome PatternSession::BeginCollection(const std::string& collectedBy, const std::string& collectedDate) {
  BeginRun(RunKind::Collection);
  state_.Record.CollectedBy = collectedBy;
  state_.Record.CollectedDate = collectedDate;
  Outcome outcome;
  outcome.Add(Grid());
  ForgetTurn();
  ClearPlotFields(state_.Record, state_.DescriptionLoaded);
  ShowCleared(outcome);
  state_.DescriptionLoaded = false;
  return outcome;
}

float PatternSession::TurnForRun() {
  ReadingsRecord& record = state_.Record;
  record.Rotate = RotationFor(record, style_.Rectangular);
  return RotationOffsetOf(style_.Rectangular, record.Plot180, record.Rotate);
}

Outcome PatternSession::AbandonRun() {
  run_ = RunKind::None;
  state_ = beforeRun_;
  Outcome outcome;
  ShowRecord(outcome);
  DrawAll(outcome);
  return outcome;
}

Outcome PatternSession::BeginSweep() {
  BeginRun(RunKind::Sweep);
  beamwidthBeforeSweep_ = beamwidthDeg_;
  Outcome outcome;
  ShowCleared(outcome);
  return outcome;
}

Outcome PatternSession::EndSweep() {
  EndRun();
  beamwidthDeg_ = beamwidthBeforeSweep_;
  Outcome outcome;
  outcome.Add(Grid());
  ShowPlotFields(outcome);
  ShowFiguresAnew(outcome);
  return outcome;
}

}  // namespace lobegraph
