// The commands that change the readings. The originals stay in the saved copy.
#include "processing/Transforms.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {
namespace {

constexpr int kFewestToOrient = 2;

}  // namespace

Outcome PatternSession::Smooth() {
  return Change("cmdSmooth_Click", "smoothed", [this](Outcome& outcome) {
    EndOverlay();
    if (state_.Record.HasReadings()) lobegraph::Smooth(state_.Record);
    Draw(outcome);
  });
}

Outcome PatternSession::Reverse() {
  return Change("cmdReverse_Click", "reversed", [this](Outcome& outcome) {
    EndOverlay();
    ReadingsRecord& record = state_.Record;
    const bool turned = record.Rotate != 0.F;
    lobegraph::Reverse(record);
    ShowNumber(outcome, PlacementPart::TrimFront, record.TrimFront);
    ShowNumber(outcome, PlacementPart::TrimEnd, record.TrimEnd);
    if (turned) ShowNumber(outcome, PlacementPart::Rotate, record.Rotate);
    TurnToTop(outcome);
  });
}

Outcome PatternSession::DeSpike() {
  return Change("cmdDeSpike_Click", "despiked", [this](Outcome& outcome) {
    const DeSpikeOutcome done =
        lobegraph::DeSpike(state_.Record, rules_.SpikeDetectLevel, rules_.PeakInputLevel);
    if (done.Message) outcome.Add(show::Message{*done.Message});
    if (done.Done) TurnToTop(outcome);
  });
}

Outcome PatternSession::Orient() {
  return Do("cmdRescaleData_Click", [this](Outcome& outcome) { TurnToTop(outcome); });
}

/// Redraw, turn the record (unless it is a 180-degree set) and redraw. In the rectangular drawing it only
/// redraws; below three readings it does nothing.
void PatternSession::TurnToTop(Outcome& outcome) {
  EndOverlay();
  ReadingsRecord& record = state_.Record;
  if (record.NumReadings < kFewestToOrient) return;
  Draw(outcome);
  if (style_.Rectangular || !plot_.PlotDone) return;
  if (!record.Plot180) record.Rotate = OrientationOf(record, plot_);
  ShowNumber(outcome, PlacementPart::Rotate, record.Rotate);
  Draw(outcome);
}

Outcome PatternSession::Original() {
  return Do("cmdOriginalData_Click", [this](Outcome& outcome) {
    if (!state_.Record.HasSavedReadings) return;
    EndOverlay();
    state_.Changes = state_.ChangesOfOriginals;
    PlotOriginals(outcome);
  });
}

void PatternSession::PlotOriginals(Outcome& outcome) {
  ReadingsRecord& record = state_.Record;
  state_.HalfLoaded = false;
  outcome.Add(Grid());
  record.ScaleSetting = static_cast<float>(style_.ScaleSetting);
  beamwidthDeg_ = 0.F;
  plot_ = {};
  plot_ = PlotOriginal(record, style_, rules_);
  ShowRecord(outcome);
  ShowFigures(outcome, {});
  outcome.Add(show::Trace{plot_, false, false});
}

Outcome PatternSession::Update(const ReadingArray& readings) {
  return Change("cmdUpdate_Click", "edited", [&](Outcome& outcome) {
    state_.Record.TakeUp(readings);
    state_.HalfLoaded = false;
    EndOverlay();
    Draw(outcome);
  });
}

}  // namespace lobegraph
