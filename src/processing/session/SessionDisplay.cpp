// How the pattern is shown, and what is read off it.
#include "data/base/Numbers.h"
#include "processing/Beamwidth.h"
#include "processing/Directivity.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {

Outcome PatternSession::Redraw() {
  Outcome outcome;
  DrawAll(outcome);
  return outcome;
}

Outcome PatternSession::Place() {
  Outcome outcome;
  if (!MayDraw()) return outcome;
  EndOverlay();
  Draw(outcome);
  return outcome;
}

Outcome PatternSession::ToggleForm() {
  Outcome outcome;
  EndOverlay();
  style_.Rectangular = !style_.Rectangular;
  if (state_.Record.Plot180) {
    if (style_.Rectangular) state_.Record.Rotate = 0.F;
    ShowNumber(outcome, PlacementPart::Rotate, style_.Rectangular ? 0 : 270);
  }
  DrawAll(outcome);
  return outcome;
}

Outcome PatternSession::ToggleLogarithmic() {
  Outcome outcome;
  EndOverlay();
  style_.Scale = style_.Logarithmic() ? PlotScale::Db50 : PlotScale::Logarithmic;
  DrawAll(outcome);
  return outcome;
}

Outcome PatternSession::PlotInDb(bool inDb) {
  Outcome outcome;
  EndOverlay();
  style_.Scale = ScaleOf(inDb, inDb && style_.Logarithmic());
  DrawAll(outcome);
  return outcome;
}

Outcome PatternSession::CoverHalfTurn(bool plot180) {
  Outcome outcome;
  state_.Record.Plot180 = plot180;
  if (!plot180) ShowNumber(outcome, PlacementPart::Rotate, 0);
  if (!MayDraw()) return outcome;
  EndOverlay();
  DrawAll(outcome);
  return outcome;
}

Outcome PatternSession::ShowMarks(bool marks) {
  style_.Minus3dBMarks = marks;
  return Redraw();
}

Outcome PatternSession::SetScale(int scaleSetting) {
  style_.ScaleSetting = scaleSetting;
  state_.Record.ScaleSetting = static_cast<float>(scaleSetting);
  return run_ == RunKind::None ? Redraw() : Outcome{};
}

Outcome PatternSession::TogglePolarization() {
  ReadingsRecord& record = state_.Record;
  record.PolarizationHorizontal = !record.PolarizationHorizontal;
  Outcome outcome;
  outcome.Add(show::Polarization{record.PolarizationHorizontal});
  ShowFiguresAnew(outcome);
  return outcome;
}

Outcome PatternSession::ChooseElements(const std::string& elements) {
  state_.Record.Elements = elements;
  Outcome outcome;
  ShowFiguresAnew(outcome);
  return outcome;
}

void PatternSession::ShowFiguresAnew(Outcome& outcome) {
  const ReadingsRecord& record = state_.Record;
  Guarded(outcome, "cboElements_Change", [&] {
    ShowFigures(outcome, BeamFiguresOf(beamwidthDeg_, record.Elements, record.PolarizationHorizontal));
  });
}

Outcome PatternSession::Integrate() {
  Outcome outcome;
  Guarded(outcome, "cmdIntegrate_Click", [&] {
    ReadingsRecord& record = state_.Record;
    const RangeCheck check = CheckRange(record, typed_, rules_.AnyLength);
    ShowRefusal(outcome, check.Message, check.Refused);
    if (!check.Passed) return;
    const auto gain = lobegraph::IntegratedGain(record);
    if (gain) outcome.Add(show::IntegratedGain{*gain, record.Elements, record.PolarizationHorizontal});
  });
  return outcome;
}

}  // namespace lobegraph
