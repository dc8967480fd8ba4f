#include "app/plot/AnalysisCommands.h"

namespace lobegraph {
namespace {

constexpr const char* kHint = "Drag with the left or the right button, or Up and Down keys.";

Control LevelBox(AnalysisSide side) {
  return side == AnalysisSide::Upper ? Control::txtLeftY : Control::txtRightY;
}

}  // namespace

void AnalysisCommands::cmdPatternAnalysis_Click() {
  bool& shown = parts_.Shared.AnalysisShown;
  shown = !shown;
  for (const Control control : AnalysisControls()) parts_.View.SetVisible(control, shown);
  if (shown) parts_.View.SetText(Control::lblHint, kHint);
}

void AnalysisCommands::cmdClearLeftY_Click() { Clear(AnalysisSide::Upper, Control::txtLeftY); }
void AnalysisCommands::cmdClearRightY_Click() { Clear(AnalysisSide::Lower, Control::txtRightY); }

void AnalysisCommands::Clear(AnalysisSide side, Control box) {
  lines_.Clear(side);
  parts_.View.SetText(box, "");
  parts_.View.ShowDrawing();
}

void AnalysisCommands::MouseDown(unsigned buttons, SurfacePoint at) {
  if (!Acts()) return;
  lines_.Press(buttons, at);
  parts_.View.ShowDrawing();
}

bool AnalysisCommands::MouseMove(SurfacePoint at) {
  if (!Acts()) return false;
  const bool inside = lines_.Inside(at);
  for (const Control box : {Control::txtX, Control::txtY}) parts_.View.SetVisible(box, inside);
  if (!inside) return false;
  lines_.Move(at);
  ShowLevel(Control::txtY, lines_.HeightAt(at));
  parts_.View.SetText(Control::txtX, AngleText(at.X, lines_.Area()));
  parts_.View.ShowDrawing();
  return true;
}

void AnalysisCommands::MouseUp(unsigned button, SurfacePoint at) {
  if (!Acts()) return;
  const auto kept = lines_.Release(button, at);
  for (const AnalysisSide side : {AnalysisSide::Upper, AnalysisSide::Lower})
    if (kept.at(static_cast<std::size_t>(side)))
      parts_.View.SetText(LevelBox(side), parts_.View.Text(Control::txtY));
}

void AnalysisCommands::Step(AnalysisSide side, int units) {
  if (!Acts()) return;
  ShowLevel(LevelBox(side), lines_.Step(side, units));
  parts_.View.ShowDrawing();
}

bool AnalysisCommands::Acts() const {
  const Globals& shared = parts_.Shared;
  return !shared.Run.Running() && parts_.Pattern.Style().Rectangular && shared.AnalysisShown;
}

void AnalysisCommands::ShowLevel(Control box, float height) {
  const PlotStyle& style = parts_.Pattern.Style();
  const auto level = lines_.LevelAt(height, style);
  if (!level) return;
  parts_.View.SetText(box, *level);
  parts_.View.SetText(Control::lblLeftButtonValue, LineCaption(AnalysisSide::Upper, style));
  parts_.View.SetText(Control::lblRightButtonValue, LineCaption(AnalysisSide::Lower, style));
}

}  // namespace lobegraph
