#include "app/TransformCommands.h"

#include "data/Numbers.h"
#include "processing/Transforms.h"

namespace lobegraph {

void TransformCommands::cmdSmooth_Click() {
  plot_.EndOverlay();
  if (Guarded(parts_.Dialogs, "cmdSmooth_Click", [&] { Smooth(parts_.Shared.Record); })) plot_.ReDraw();
}

void TransformCommands::cmdReverse_Click() {
  ReadingsRecord& record = parts_.Shared.Record;
  plot_.EndOverlay();
  const bool turned = record.Rotate != 0.F;
  Reverse(record);
  parts_.View.SetText(Control::txtTrimFront, std::to_string(record.TrimFront));
  parts_.View.SetText(Control::txtTrimEnd, std::to_string(record.TrimEnd));
  if (turned) plot_.ShowRotation();
  cmdRescaleData_Click();
}

void TransformCommands::cmdDeSpike_Click() {
  Guarded(parts_.Dialogs, "cmdDeSpike_Click", [&] { DeSpikeReadings(); });
}

void TransformCommands::DeSpikeReadings() {
  const SettingsValues& settings = parts_.Shared.Settings;
  const DeSpikeOutcome outcome =
      DeSpike(parts_.Shared.Record, settings.SpikeDetectLevel, settings.PeakInputLevel);
  if (outcome.Message) parts_.Dialogs.ShowText(*outcome.Message);
  if (outcome.Done) cmdRescaleData_Click();
}

void TransformCommands::cmdRescaleData_Click() {
  plot_.EndOverlay();
  bool done = false;
  AutoOrient(
      parts_.Shared.Record, parts_.Shared.Settings.LinearMode,
      [&] {
        PlotResult plot = plot_.ReDraw();
        done = plot.PlotDone;
        return plot;
      },
      [&] { plot_.ShowRotation(); });
  if (done) parts_.View.SetText(Control::lblHint, "Save File keeps the pattern.");
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
