#include "processing/session/PatternSession.h"

#include <utility>

#include "processing/Directivity.h"

namespace lobegraph {

void PatternSession::SetStyle(const PlotStyle& style) {
  style_ = style;
  state_.Record.ScaleSetting = static_cast<float>(style.ScaleSetting);
}

std::optional<double> PatternSession::IntegratedGain() const {
  ReadingsRecord record = state_.Record;
  try {
    if (!CheckRange(record, typed_, rules_.AnyLength).Passed) return std::nullopt;
    return lobegraph::IntegratedGain(record);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

show::Grid PatternSession::Grid() const {
  return {style_, state_.Record.CollectedBy, state_.Record.CollectedDate};
}

Outcome PatternSession::Do(const char* procedure, const Command& command, Repeated repeated) {
  const PatternState before = state_;
  Outcome outcome;
  Guarded(outcome, procedure, command);
  if (run_ == RunKind::None && !SamePattern(before, state_)) history_.Note(before, repeated);
  return outcome;
}

void PatternSession::Describe(const std::string& text) {
  const auto describe = [&](Outcome&) {
    state_.Record.Description = text;
    state_.DescriptionLoaded = false;
  };
  Do("txtDescription_Change", describe, Repeated::Description);
}

Outcome PatternSession::Undo() {
  if (run_ != RunKind::None || !history_.CanUndo()) return {};
  return GoTo(history_.Undo(state_));
}

Outcome PatternSession::Redo() {
  if (run_ != RunKind::None || !history_.CanRedo()) return {};
  return GoTo(history_.Redo(state_));
}

Outcome PatternSession::GoTo(PatternState state) {
  state_ = std::move(state);
  Outcome outcome;
  ShowRecord(outcome);
  beamwidthDeg_ = 0.F;
  ShowFigures(outcome, {});
  DrawAll(outcome);
  return outcome;
}

void PatternSession::Guarded(Outcome& outcome, const char* procedure, const Command& command) {
  try {
    command(outcome);
  } catch (const RunTimeError& error) {
    lastFault_ = error;
    outcome.Add(show::Fault{error, procedure});
  }
}

/// The pattern on its grid, or over what is drawn: checks with their messages, trace, -3 dB points, figures.
void PatternSession::Draw(Outcome& outcome, bool over) {
  plot_ = {};
  lastFault_.reset();
  if (!MayDraw()) return;
  if (!over) outcome.Add(Grid());
  Guarded(outcome, "ReDraw", [&](Outcome& steps) { PlotRecord(steps, over); });
  outcome.Plotted = plot_.PlotDone;
}

void PatternSession::PlotRecord(Outcome& outcome, bool over) {
  ReadingsRecord& record = state_.Record;
  if (!record.HasAny()) return;
  plot_ = BeginPlot(record, typed_, style_, rules_);
  ShowRefusal(outcome, plot_.Message, plot_.Refused);
  if (!plot_.FieldsSettled) return;
  ShowPlotFields(outcome);
  CompletePlot(record, style_, rules_, plot_);
  state_.HalfLoaded = false;  // what could be drawn once is drawn like any other pattern from now on
  outcome.Add(show::Trace{plot_, over, style_.Minus3dBMarks});
  beamwidthDeg_ = plot_.BeamwidthDeg;
  ShowFigures(outcome, plot_.Figures);
}

void PatternSession::DrawAll(Outcome& outcome) {
  if (run_ == RunKind::Collection) return;
  const bool drawable = Drawable() && MayDraw();
  if (state_.Beneath)
    DrawBeneath(outcome);
  else if (!drawable)
    outcome.Add(Grid());
  if (drawable) Draw(outcome, state_.Beneath.has_value());
}

void PatternSession::DrawBeneath(Outcome& outcome) {
  outcome.Add(Grid());
  ReadingsRecord beneath = *state_.Beneath;
  try {
    const PlotResult plot = PreparePlot(beneath, PlacementOf(beneath), style_, rules_);
    outcome.Add(show::Trace{plot, false, style_.Minus3dBMarks});
  } catch (const RunTimeError&) {
    // It was shown with its message when it was drawn first; the pattern over it is what the user works on.
  }
}

void PatternSession::ShowPlotFields(Outcome& outcome) {
  const ReadingsRecord& record = state_.Record;
  typed_ = PlacementOf(record);
  outcome.Add(show::PlotFields{record.Rotate, record.TrimFront, record.TrimEnd, record.ReadingsPlotted,
                               record.FileName, record.Description});
}

void PatternSession::ShowRecord(Outcome& outcome) {
  ReadingsRecord& record = state_.Record;
  ShowPlotFields(outcome);
  style_.ScaleSetting = NearestScaleSetting(record.ScaleSetting);
  record.ScaleSetting = static_cast<float>(style_.ScaleSetting);
  outcome.Add(show::Details{record.Elements, record.Plot180, style_.ScaleSetting, record.CollectedBy,
                            record.CollectedDate, record.PolarizationHorizontal});
}

/// What the record says goes from the window.
void PatternSession::ShowCleared(Outcome& outcome) {
  typed_ = {};
  outcome.Add(show::Cleared{state_.DescriptionLoaded});
  beamwidthDeg_ = 0.F;
  ShowFigures(outcome, {});
}

void PatternSession::ShowNumber(Outcome& outcome, PlacementPart part, double value) {
  double Placement::*const parts[] = {&Placement::Rotate, &Placement::TrimFront, &Placement::TrimEnd};
  typed_.*parts[static_cast<std::size_t>(part)] = value;
  outcome.Add(show::PlacementNumber{part, value});
}

void PatternSession::ShowRefusal(Outcome& outcome, const std::optional<std::string>& message,
                                 const std::optional<PlacementPart>& part) {
  if (message) outcome.Add(show::Message{*message});
  if (part) ShowNumber(outcome, *part, 0);
}

void PatternSession::ShowFigures(Outcome& outcome, const BeamFigures& figures) {
  figures_ = figures;
  outcome.Add(show::Figures{figures, state_.Record.Elements, state_.Record.PolarizationHorizontal});
}

}  // namespace lobegraph
