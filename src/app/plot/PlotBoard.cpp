#include "app/plot/PlotBoard.h"

#include <cassert>

#include "render/AxisLabels.h"
#include "render/OverlayLegend.h"
#include "render/Trace.h"
#include "render/grid/CircularGrid.h"

namespace lobegraph {

void PlotBoard::DrawGrid(const show::Grid& grid) {
  const bool rectangular = grid.Style.Rectangular;
  ShowAnalysisControls(rectangular);
  ShowLabels(grid);
  lines_.Reset();
  cursor_.HideAll();
  legend_ = {};
  style_ = grid.Style;
  traces_.clear();
  axis_.Write(AxisLabels(grid.Style, plotter_.Geometry(), ReadableOn(Colours().PlotBackground)));
  const bool drawn = Guarded(parts_.Dialogs, rectangular ? "DrawRectangularGrid" : "DrawCircularGrid",
                             [&] { DrawCircularGrid(plotter_, grid.Style, Colours()); });
  parts_.View.ShowDrawing();
  if (!drawn && !rectangular) parts_.End.EndAtOnce();
}

void PlotBoard::DrawPattern(const show::Trace& trace) {
  assert(!parts_.Shared.Run.IsCollecting && "would wipe the live trace");
  DrawTrace(plotter_, trace.Plot, InkOf(Colours(), trace.Overlay ? 1 : 0), trace.Marks);
  traces_.push_back(trace);
  if (trace.Overlay) ShowLegend(trace);
  parts_.View.ShowDrawing();
}

void PlotBoard::ShowLegend(const show::Trace& over) {
  const PlotColours colours = Colours();
  const Colour text = ReadableOn(colours.PlotBackground);
  legend_ = {};
  if (over.Marks) OutlineMarks(legend_, plotter_.Mapping(), over.Plot, InkOf(colours, 1).Marks, text);
  std::vector<LegendEntry> entries;
  for (const show::Trace& trace : traces_)
    entries.push_back({NameOf(trace), InkOf(colours, trace.Overlay ? 1 : 0).Line});
  WriteLegend(legend_, entries, text);
}

std::string PlotBoard::NameOf(const show::Trace& trace) const {
  const auto& beneath = parts_.Pattern.Beneath();
  return LegendName(trace.Overlay || !beneath ? parts_.Pattern.Record() : *beneath);
}

Picture PlotBoard::Shown() const {
  Picture picture;
  picture.Style = style_;
  picture.Colours = Colours();
  for (const show::Trace& trace : traces_) {
    picture.Patterns.push_back({trace.Plot, NameOf(trace)});
    picture.Style.Minus3dBMarks = trace.Marks;
  }
  if (traces_.size() == 1 && parts_.Pattern.Record().HasDescription())
    picture.Title = parts_.Pattern.Record().Description;
  return picture;
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
