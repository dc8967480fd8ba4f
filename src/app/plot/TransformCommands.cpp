#include "app/plot/TransformCommands.h"

#include "processing/Transforms.h"

namespace lobegraph {

void TransformCommands::cmdSmooth_Click() {
  plot_.EndOverlay();
  if (Guarded(parts_.Dialogs, "cmdSmooth_Click", [&] { Smooth(parts_.Shared.Record); })) plot_.ReDraw();
}

void TransformCommands::cmdReverse_Click() {
  plot_.EndOverlay();
  ReversePattern(parts_.Shared.Record, plot_);
  cmdRescaleData_Click();
}

void TransformCommands::cmdDeSpike_Click() {
  Guarded(parts_.Dialogs, "cmdDeSpike_Click", [&] {
    if (DeSpikePattern(parts_.Shared.Record, parts_.Shared.Settings.SpikeDetectLevel, plot_))
      cmdRescaleData_Click();
  });
}

void TransformCommands::cmdRescaleData_Click() {
  plot_.EndOverlay();
  if (OrientPattern(parts_.Shared.Record, plot_))
    parts_.View.SetText(Control::lblHint, "Save File keeps the pattern.");
}

void TransformCommands::cmdOriginalData_Click() {
  if (!parts_.Shared.Record.Held()) return;
  plot_.EndOverlay();
  Guarded(parts_.Dialogs, "cmdOriginalData_Click", [&] { ShowOriginal(); });
}

void TransformCommands::ShowOriginal() {
  ReadingsRecord& record = parts_.Shared.Record;
  parts_.Shared.HalfLoaded = false;
  board_.DrawCircularGrid();
  record.ScaleSetting = static_cast<float>(parts_.View.Value(Control::Slider1));
  parts_.Shared.BeamwidthDeg = 0.F;
  const PlotResult plot = PlotOriginal(record, board_.Options());
  plot_.ShowRecord();
  plot_.ShowFigures(plot.txtAngle, plot.txtGain);
  board_.DrawPattern(record, plot, false, false);
}

}  // namespace lobegraph
