#include "app/plot/PlotCommands.h"

#include <algorithm>

#include "app/plot/FigureNotes.h"
#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "processing/Beamwidth.h"
#include "processing/Directivity.h"
#include "processing/Transforms.h"

namespace lobegraph {
namespace {

/// A file may hold any scale; the slider takes the nearest that it has.
constexpr float kBeyondTheSlider = 1000.F;

Control BoxOf(PlotBox box) {
  switch (box) {
    case PlotBox::Rotate:
      return Control::txtRotate;
    case PlotBox::TrimFront:
      return Control::txtTrimFront;
    default:
      return Control::txtTrimEnd;
  }
}

}  // namespace

PlotResult PlotCommands::ReDraw() {
  PlotResult plot;
  if (!MayDraw()) return plot;
  if (!parts_.Shared.Overlay) board_.DrawCircularGrid();
  Guarded(parts_.Dialogs, "ReDraw", [&] { PlotPattern(parts_.Shared.Record, *this, plot); });
  return plot;
}

void PlotCommands::ShowPlot(const PlotResult& plot) {
  Globals& shared = parts_.Shared;
  board_.DrawPattern(shared.Record, plot, shared.Overlay, parts_.View.Checked(Control::chkShow3dB));
  shared.BeamwidthDeg = plot.BeamwidthDeg;
  ShowFigures(plot.txtAngle, plot.txtGain);
}

void PlotCommands::RedrawAll() {
  Globals& shared = parts_.Shared;
  if (!MayDraw()) return;
  const bool drawable = shared.Record.Held() && !shared.HalfLoaded;
  if (shared.Beneath)
    DrawBeneath(*shared.Beneath);
  else if (!drawable)
    board_.DrawCircularGrid();
  if (!drawable) return;
  shared.Overlay = shared.Beneath.has_value();
  ReDraw();
  shared.Overlay = false;
}

void PlotCommands::DrawBeneath(ReadingsRecord beneath) {
  board_.DrawCircularGrid();
  const PlotTexts texts{SingleText(beneath.Rotate), std::to_string(beneath.TrimFront),
                        std::to_string(beneath.TrimEnd)};
  try {
    const PlotResult plot = PreparePlot(beneath, texts, board_.Options());
    board_.DrawPattern(beneath, plot, false, parts_.View.Checked(Control::chkShow3dB));
  } catch (const RunTimeError&) {
    // It was shown with its message when it was drawn first; the pattern over it is what the user works on.
  }
}

void PlotCommands::txtRotate_Enter() {
  if (!MayDraw()) return;
  EndOverlay();
  ReDraw();
}

void PlotCommands::cmdLinear_Click() {
  Globals& shared = parts_.Shared;
  EndOverlay();
  shared.Settings.LinearMode = !shared.Settings.LinearMode;
  if (shared.Record.Plot180) {
    if (shared.Settings.LinearMode) shared.Record.Rotate = 0.F;
    parts_.View.SetText(Control::txtRotate, shared.Settings.LinearMode ? "0" : "270");
  }
  RedrawAll();
}

void PlotCommands::cmdLogLin_Click() {
  EndOverlay();
  parts_.Shared.Settings.ShowLogScale = !parts_.Shared.Settings.ShowLogScale;
  RedrawAll();
}

void PlotCommands::chkPlotInDB_Click() {
  const bool inDb = parts_.View.Checked(Control::chkPlotInDB);
  EndOverlay();
  if (!inDb) parts_.Shared.Settings.ShowLogScale = false;
  parts_.View.SetEnabled(Control::cmdLogLin, inDb);
  RedrawAll();
}

void PlotCommands::chk180_Click() {
  Globals& shared = parts_.Shared;
  shared.Record.Plot180 = parts_.View.Checked(Control::chk180);
  if (!shared.Record.Plot180) parts_.View.SetText(Control::txtRotate, "0");
  if (!MayDraw()) return;
  EndOverlay();
  RedrawAll();
}

void PlotCommands::chkShow3dB_Click() { RedrawAll(); }

void PlotCommands::Slider1_Change() {
  parts_.Shared.Record.ScaleSetting = static_cast<float>(parts_.View.Value(Control::Slider1));
  if (!parts_.Shared.Run.Running()) RedrawAll();
}

void PlotCommands::cmdPolarization_Click() {
  ReadingsRecord& record = parts_.Shared.Record;
  parts_.Shared.Overlay = false;
  record.PolarizationHorizontal = !record.PolarizationHorizontal;
  ShowPolarization();
  cboElements_Change();
}

void PlotCommands::cboElements_Change() {
  ReadingsRecord& record = parts_.Shared.Record;
  record.Elements = parts_.View.Text(Control::cboElements);
  Guarded(parts_.Dialogs, "cboElements_Change", [&] {
    const Figures figures =
        FiguresOf(parts_.Shared.BeamwidthDeg, record.Elements, record.PolarizationHorizontal);
    ShowFigures(figures.txtAngle, figures.txtGain);
  });
}

void PlotCommands::cmdIntegrate_Click() {
  ReadingsRecord& record = parts_.Shared.Record;
  Guarded(parts_.Dialogs, "cmdIntegrate_Click", [&] {
    const RangeCheck check = CheckRange(record, Boxes(), parts_.View.Checked(Control::chkCalibrate));
    PlotResult refusal;
    if (check.Message) refusal.Messages.push_back(*check.Message);
    refusal.ResetBox = check.ResetBox;
    ShowRefusal(refusal, *this);
    if (!check.Passed) return;
    const auto gain = IntegratedGain(record);
    if (!gain) return;
    parts_.View.SetText(Control::txtGain, GainText(*gain));
    parts_.View.SetToolTip(Control::txtGain,
                           IntegratedGainNote(record.Elements, record.PolarizationHorizontal));
  });
}

void PlotCommands::ClearPlotFields() {
  Globals& shared = parts_.Shared;
  lobegraph::ClearPlotFields(shared.Record, shared.DescriptionLoaded);
  for (const Control box : {Control::txtTrimEnd, Control::txtTrimFront, Control::txtRotate})
    parts_.View.SetText(box, "0");
  parts_.View.SetText(Control::txtFileName, "");
  if (shared.DescriptionLoaded) {
    parts_.View.SetText(Control::txtDescription, "");
    parts_.View.SetText(Control::lblFileDescription, "");
    shared.DescriptionLoaded = false;
  }
  shared.BeamwidthDeg = 0.F;
  ShowFigures("Angle", "Gain");
}

void PlotCommands::ShowRecord() {
  const ReadingsRecord& record = parts_.Shared.Record;
  ShowPlotFields();
  parts_.View.SetText(Control::txtFileName, record.FileName);
  parts_.View.SetText(Control::cboElements, record.Elements);
  parts_.View.SetChecked(Control::chk180, record.Plot180);
  parts_.View.SetValue(Control::Slider1, ToInt32(std::clamp(record.ScaleSetting, 0.F, kBeyondTheSlider)));
  parts_.Shared.Record.ScaleSetting = static_cast<float>(parts_.View.Value(Control::Slider1));
  parts_.View.SetText(Control::lblCollectedBy, record.CollectedBy);
  parts_.View.SetText(Control::lblCollectedDate, record.CollectedDate);
  ShowPolarization();
}

void PlotCommands::ShowPlotFields() {
  const ReadingsRecord& record = parts_.Shared.Record;
  parts_.View.SetText(Control::txtRotate, SingleText(record.Rotate));
  parts_.View.SetText(Control::txtFileName, record.FileName);
  parts_.View.SetText(Control::txtReadingsPlotted, std::to_string(record.ReadingsPlotted));
  parts_.View.SetText(Control::txtTrimFront, std::to_string(record.TrimFront));
  parts_.View.SetText(Control::txtTrimEnd, std::to_string(record.TrimEnd));
  parts_.View.SetText(Control::txtDescription, record.Description);
  parts_.View.SetText(Control::lblFileDescription, record.Description);
}

void PlotCommands::ShowPolarization() {
  const bool horizontal = parts_.Shared.Record.PolarizationHorizontal;
  parts_.View.SetText(Control::cmdPolarization, horizontal ? "Hori&zontal" : "Vertic&al");
}

void PlotCommands::EndOverlay() {
  parts_.Shared.Overlay = false;
  parts_.Shared.Beneath.reset();
}

void PlotCommands::ShowFigures(const std::string& txtAngle, const std::string& txtGain) {
  parts_.View.SetText(Control::txtAngle, txtAngle);
  parts_.View.SetText(Control::txtGain, txtGain);
  const ReadingsRecord& record = parts_.Shared.Record;
  parts_.View.SetToolTip(Control::txtAngle, AngleNote(txtAngle));
  parts_.View.SetToolTip(Control::txtGain, GainNote(txtGain, record.Elements, record.PolarizationHorizontal));
}

void PlotCommands::SetBox(PlotBox box, const std::string& text) { parts_.View.SetText(BoxOf(box), text); }

PlotTexts PlotCommands::Boxes() const {
  return {parts_.View.Text(Control::txtRotate), parts_.View.Text(Control::txtTrimFront),
          parts_.View.Text(Control::txtTrimEnd)};
}

}  // namespace lobegraph
