#include "app/plot/PlotBoard.h"

#include <cassert>

#include "render/AxisLabels.h"
#include "render/Trace.h"
#include "render/grid/CircularGrid.h"

namespace lobegraph {

void PlotBoard::DrawGrid(const show::Grid& grid) {
  const bool rectangular = grid.Style.Rectangular;
  ShowAnalysisControls(rectangular);
  ShowLabels(grid);
  lines_.Reset();
  axis_.Write(AxisLabels(grid.Style, plotter_.Geometry(), ReadableOn(Colours().PlotBackground)));
  const bool drawn = Guarded(parts_.Dialogs, rectangular ? "DrawRectangularGrid" : "DrawCircularGrid",
                             [&] { DrawCircularGrid(plotter_, grid.Style, Colours()); });
  parts_.View.ShowDrawing();
  if (!drawn && !rectangular) parts_.End.EndAtOnce();
}

void PlotBoard::DrawPattern(const show::Trace& trace) {
  assert(!parts_.Shared.Run.IsCollecting && "would wipe the live trace");
  DrawTrace(plotter_, trace.Plot, InkOf(Colours(), trace.Overlay ? 1 : 0), trace.Marks);
  parts_.View.ShowDrawing();
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

void PlotBoard::ShowLabels(const show::Grid& grid) {
  parts_.View.SetText(Control::lblDateTime, parts_.System.TimeAndDate());
  parts_.View.SetText(Control::lblCollectedBy, grid.CollectedBy);
  parts_.View.SetText(Control::lblCollectedDate, grid.CollectedDate);
}

void PlotBoard::ShowAnalysisControls(bool rectangular) {
  parts_.View.SetVisible(Control::cmdPatternAnalysis, rectangular);
  for (const Control control : AnalysisControls())
    parts_.View.SetVisible(control, rectangular && parts_.Shared.AnalysisShown);
}

PlotColours PlotBoard::Colours() const {
  const SettingsValues& settings = parts_.Shared.Settings;
  const Colour background = Colour::FromStored(settings.PlotBackground);
  PlotColours colours = kept_.value_or(
      PlotColours{.PlotGridColour = Colour::FromStored(settings.PlotGridColour),
                  .PlotLineColour = Colour::FromStored(settings.PlotLineColour),
                  .PlotLineOverlayColour = Colour::FromStored(settings.PlotLineOverlayColour),
                  .PlotUserColour = Colour::FromStored(settings.PlotUserColour),
                  .PlotUserOverlayColour = Colour::FromStored(settings.PlotUserOverlayColour)});
  colours.PlotBackground = background;
  return colours;
}

}  // namespace lobegraph
