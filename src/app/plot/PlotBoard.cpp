#include "app/plot/PlotBoard.h"

#include <cassert>

#include "render/CircularGrid.h"
#include "render/Trace.h"

namespace lobegraph {

void PlotBoard::DrawCircularGrid() {
  ShowAnalysisControls();
  ShowLabels();
  if (!parts_.Shared.Overlay) lines_.Reset();
  const bool linear = parts_.Shared.Settings.LinearMode;
  const bool drawn = Guarded(parts_.Dialogs, linear ? "DrawRectangularGrid" : "DrawCircularGrid",
                             [&] { lobegraph::DrawCircularGrid(plotter_, Grid()); });
  parts_.View.ShowDrawing();
  if (!drawn && !linear) parts_.End.EndAtOnce();
}

void PlotBoard::DrawPattern(const ReadingsRecord& record, const PlotResult& plot, bool overlay,
                            bool show3dB) {
  assert(!parts_.Shared.Run.IsCollecting && "would wipe the live trace");
  const SettingsValues& settings = parts_.Shared.Settings;
  DrawTrace(plotter_, plot,
            {.RotationOffset = RotationOffsetOf(settings.LinearMode, record.Plot180, record.Rotate),
             .Overlay = overlay,
             .chkShow3dB = show3dB,
             .PlotLineColour = Colour::FromStored(settings.PlotLineColour),
             .PlotLineOverlayColour = Colour::FromStored(settings.PlotLineOverlayColour),
             .PlotUserColour = Colour::FromStored(settings.PlotUserColour),
             .PlotUserOverlayColour = Colour::FromStored(settings.PlotUserOverlayColour)});
  parts_.View.ShowDrawing();
}

void PlotBoard::StartLiveTrace() {
  const ReadingsRecord& record = parts_.Shared.Record;
  StartLiveTrace(RotationOffsetOf(parts_.Shared.Settings.LinearMode, record.Plot180, record.Rotate));
}

void PlotBoard::StartLiveTrace(float rotationOffset) {
  StartTrace(plotter_, Colour::FromStored(parts_.Shared.Settings.PlotUserColour), rotationOffset);
}

void PlotBoard::UsePlotUserColour() {
  plotter_.Pen().TraceColour = Colour::FromStored(parts_.Shared.Settings.PlotUserColour);
}

void PlotBoard::PlotPoint(float positionDeg, float radius) {
  DrawTracePoint(plotter_, positionDeg, radius);
  parts_.View.ShowDrawing();
}

PlotOptions PlotBoard::Options() const {
  const SettingsValues& settings = parts_.Shared.Settings;
  return {.LinearMode = settings.LinearMode,
          .ShowLogScale = settings.ShowLogScale,
          .chkPlotInDB = parts_.View.Checked(Control::chkPlotInDB),
          .chkCalibrate = parts_.View.Checked(Control::chkCalibrate),
          .PeakInputLevel = settings.PeakInputLevel,
          .ScaleSetting = static_cast<float>(parts_.View.Value(Control::Slider1)),
          .FullScaleRadius = plotter_.Geometry().R};
}

void PlotBoard::ShowLabels() {
  parts_.View.SetText(Control::lblDateTime, parts_.System.TimeAndDate());
  parts_.View.SetText(Control::lblCollectedBy, parts_.Shared.Record.CollectedBy);
  parts_.View.SetText(Control::lblCollectedDate, parts_.Shared.Record.CollectedDate);
}

void PlotBoard::ShowAnalysisControls() {
  const bool linear = parts_.Shared.Settings.LinearMode;
  // The rectangular drawing leaves them alone while a second pattern is drawn over the first.
  if (linear && parts_.Shared.Overlay) return;
  parts_.View.SetVisible(Control::cmdPatternAnalysis, linear);
  for (const Control control : AnalysisControls())
    parts_.View.SetVisible(control, linear && parts_.Shared.AnalysisShown);
}

GridOptions PlotBoard::Grid() const {
  const SettingsValues& settings = parts_.Shared.Settings;
  return {.LinearMode = settings.LinearMode,
          .ShowLogScale = settings.ShowLogScale,
          .chkPlotInDB = parts_.View.Checked(Control::chkPlotInDB),
          .Slider1 = static_cast<std::int16_t>(parts_.View.Value(Control::Slider1)),
          .Overlay = parts_.Shared.Overlay,
          .PlotGridColour = Colour::FromStored(settings.PlotGridColour),
          .PlotUserColour = Colour::FromStored(settings.PlotUserColour)};
}

}  // namespace lobegraph
