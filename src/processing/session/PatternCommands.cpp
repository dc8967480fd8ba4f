#include "processing/session/PatternCommands.h"

#include "data/base/Numbers.h"
#include "processing/Transforms.h"

namespace lobegraph {

void PlotPattern(ReadingsRecord& record, PatternFront& front, PlotResult& plot) {
  plot = BeginPlot(record, front.Boxes(), front.Options());
  ShowRefusal(plot, front);
  if (!plot.FieldsShown) return;
  front.ShowPlotFields();
  CompletePlot(record, front.Options(), plot);
  front.ShowPlot(plot);
}

void ShowRefusal(const PlotResult& plot, PatternFront& front) {
  for (const std::string& message : plot.Messages) front.ShowMessage(message);
  if (plot.ResetBox) front.SetBox(*plot.ResetBox, "0");
}

void ShowRotation(const ReadingsRecord& record, PatternFront& front) {
  front.SetBox(PlotBox::Rotate, FixedText(record.Rotate, 0));
}

void ReversePattern(ReadingsRecord& record, PatternFront& front) {
  const bool turned = record.Rotate != 0.F;
  Reverse(record);
  front.SetBox(PlotBox::TrimFront, std::to_string(record.TrimFront));
  front.SetBox(PlotBox::TrimEnd, std::to_string(record.TrimEnd));
  if (turned) ShowRotation(record, front);
}

bool DeSpikePattern(ReadingsRecord& record, std::int16_t spikeDetectLevel, PatternFront& front) {
  const DeSpikeOutcome outcome = DeSpike(record, spikeDetectLevel, front.Options().PeakInputLevel);
  if (outcome.Message) front.ShowMessage(*outcome.Message);
  return outcome.Done;
}

bool OrientPattern(ReadingsRecord& record, PatternFront& front) {
  if (record.NumReadings < 2) return false;
  const PlotResult plot = front.ReDraw();
  if (front.Options().LinearMode || !plot.PlotDone) return plot.PlotDone;
  if (!record.Plot180) record.Rotate = OrientationOf(record, plot);
  ShowRotation(record, front);
  return front.ReDraw().PlotDone;
}

}  // namespace lobegraph
