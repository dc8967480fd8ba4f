// How the pattern is shown, and what is read off it.
#include "data/base/Numbers.h"
#include "processing/Beamwidth.h"
#include "processing/Directivity.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {

Outcome PatternSession::Redraw() {
  return Do("ReDraw", [this](Outcome& outcome) { DrawAll(outcome); });
}

Outcome PatternSession::Place() {
  return Do("txtRotate_KeyPress", [this](Outcome& outcome) {
    if (!MayDraw()) return;
    EndOverlay();
    Draw(outcome);
  });
}

Outcome PatternSession::ToggleForm() {
  return Do("cmdLinear_Click", [this](Outcome& outcome) {
    EndOverlay();
    style_.Rectangular = !style_.Rectangular;
    if (state_.Record.Plot180) {
      if (style_.Rectangular) state_.Record.Rotate = 0.F;
      ShowNumber(outcome, PlacementPart::Rotate, style_.Rectangular ? 0 : 270);
    }
    DrawAll(outcome);
  });
}

Outcome PatternSession::ToggleLogarithmic() {
  return Do("cmdLogLin_Click", [this](Outcome& outcome) {
    EndOverlay();
    style_.Scale = style_.Logarithmic() ? PlotScale::Db50 : PlotScale::Logarithmic;
    DrawAll(outcome);
  });
}

Outcome PatternSession::PlotInDb(bool inDb) {
  return Do("chkPlotInDB_Click", [&](Outcome& outcome) {
    EndOverlay();
    style_.Scale = ScaleOf(inDb, inDb && style_.Logarithmic());
    DrawAll(outcome);
  });
}

Outcome PatternSession::CoverHalfTurn(bool plot180) {
  return Do("chk180_Click", [&](Outcome& outcome) {
    state_.Record.Plot180 = plot180;
    if (!plot180) ShowNumber(outcome, PlacementPart::Rotate, 0);
    if (!MayDraw()) return;
    EndOverlay();
    DrawAll(outcome);
  });
}

Outcome PatternSession::ShowMarks(bool marks) {
  style_.Minus3dBMarks = marks;
  return Redraw();
}

Outcome PatternSession::SetScale(int scaleSetting) {
  return Do(
      "Slider1_Change",
      [&](Outcome& outcome) {
        style_.ScaleSetting = scaleSetting;
        state_.Record.ScaleSetting = static_cast<float>(scaleSetting);
        if (run_ == RunKind::None) DrawAll(outcome);
      },
      Repeated::Scale);
}

Outcome PatternSession::TogglePolarization() {
  return Do("cmdPolarization_Click", [this](Outcome& outcome) {
    ReadingsRecord& record = state_.Record;
    record.PolarizationHorizontal = !record.PolarizationHorizontal;
    outcome.Add(show::Polarization{record.PolarizationHorizontal});
    ShowFiguresAnew(outcome);
  });
}

Outcome PatternSession::ChooseElements(const std::string& elements) {
  return Do("cboElements_Change", [&](Outcome& outcome) {
    state_.Record.Elements = elements;
    ShowFiguresAnew(outcome);
  });
}

void PatternSession::ShowFiguresAnew(Outcome& outcome) {
  const ReadingsRecord& record = state_.Record;
  Guarded(outcome, "cboElements_Change", [&](Outcome& steps) {
    ShowFigures(steps, BeamFiguresOf(beamwidthDeg_, record.Elements, record.PolarizationHorizontal));
  });
}

Outcome PatternSession::Integrate() {
  return Do("cmdIntegrate_Click", [this](Outcome& outcome) { ShowIntegratedGain(outcome); });
}

void PatternSession::ShowIntegratedGain(Outcome& outcome) {
  ReadingsRecord& record = state_.Record;
  if (!record.HasAny()) return;
  const RangeCheck check = CheckRange(record, typed_, rules_.AnyLength);
  ShowRefusal(outcome, check.Message, check.Refused);
  if (!check.Passed) return;
  const auto gain = lobegraph::IntegratedGain(record);
  if (gain) outcome.Add(show::IntegratedGain{*gain, record.Elements, record.PolarizationHorizontal});
}

}  // namespace lobegraph
