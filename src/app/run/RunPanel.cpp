#include "app/run/RunPanel.h"

#include <variant>

#include "acquisition/meters/LevelSource.h"
#include "app/run/RunHints.h"
#include "app/run/TurnFacts.h"

namespace lobegraph {

Colour ShadeOf(StatusColour colour) {
  switch (colour) {
    case StatusColour::Yellow:
      return status_colour::kYellow;
    case StatusColour::Green:
      return status_colour::kGreen;
    case StatusColour::LightRed:
      return status_colour::kLightRed;
    case StatusColour::Red:
      return status_colour::kRed;
    default:
      return status_colour::kLightYellow;
  }
}

RunControls RunPanel::Controls() const {
  const ControlView& view = parts_.View;
  return {.AutoStart = view.Checked(Control::chkAutoStart),
          .AutoStop = view.Checked(Control::chkAutoStop),
          .Triggered = view.Checked(Control::chkTrigger),
          .PlotInDb = view.Checked(Control::chkPlotInDB),
          .Calibrate = view.Checked(Control::chkCalibrate),
          .PlotScale = view.Value(Control::Slider1),
          .RotationSeconds = view.Value(Control::Slider2)};
}

void RunPanel::Show(const RunEvent& event) {
  std::visit([this](const auto& what) { On(what); }, event);
}

void RunPanel::On(const run_event::TurnBegins&) {
  const std::string now = DateTimeText();
  display_.Run([&](PatternSession& pattern) { return pattern.BeginCollection(parts_.Shared.UserName, now); });
  board_.StartLiveTrace(0.F);
  Lock();
  board_.UsePlotUserColour();
}

std::string RunPanel::DateTimeText() {
  parts_.View.SetText(Control::lblDateTime, parts_.System.TimeAndDate());
  return parts_.View.Text(Control::lblDateTime);
}

void RunPanel::Lock() {
  const RunControls controls = Controls();
  rotationSeconds_ = controls.RotationSeconds;
  BeginHint(StartHint(controls.AutoStart, controls.Triggered, trigger_.Ready(), rotationSeconds_));
  Enable(LockedInCollection(), false);
  parts_.View.SetEnabled(Control::cmdHaltInput, true);
  parts_.View.SetFocus(Control::cmdHaltInput);
}

void RunPanel::On(const run_event::SourceNamed& source) {
  parts_.View.SetText(Control::lblSource, source.Name);
}

void RunPanel::On(const run_event::AwaitsMeter& meter) {
  const char* waiting = parts_.Shared.Run.IsSweeping ? kSweepAwaitsMeterHint : kAwaitsMeterHint;
  parts_.View.SetText(Control::lblHint, meter.Waits ? waiting : runHint_);
}

void RunPanel::On(const run_event::SourceRuns&) {
  board_.StartLiveTrace(parts_.Pattern.TurnForRun());
  keeper_.Begin(TurnStartOf(parts_.Shared, Controls(), parts_.View.Text(Control::lblSource)));
}

void RunPanel::On(const run_event::ManualTrigger& trigger) {
  parts_.View.SetVisible(Control::cmdTrigger, trigger.Offered);
}

void RunPanel::On(const run_event::ReadingStored& reading) {
  ShowLevel(reading.Level);
  parts_.Pattern.ReadingStored();
  keeper_.Store(parts_.Pattern.Record(), ReadingTakenOf(reading));
  parts_.View.SetText(Control::lblHint,
                      ProgressHint(reading.Index + 1, Controls().Triggered, rotationSeconds_));
}

void RunPanel::On(const run_event::ReadingPlotted& reading) {
  board_.PlotPoint(reading.PositionDeg, reading.Radius);
  parts_.View.SetText(Control::txtReadingNumber, std::to_string(reading.Index + 1));
}

void RunPanel::On(const run_event::TurnEnds& turn) {
  const std::string count = std::to_string(turn.ReadingsTaken);
  parts_.View.SetText(Control::txtReadingNumber, count);
  parts_.View.SetText(Control::txtReadingsPlotted, count);
  parts_.View.SetText(Control::txtTrimEnd, std::to_string(turn.LowReadings));
  parts_.Pattern.EndRun();
}

void RunPanel::On(const run_event::TurnUnlocked&) {
  Enable(LockedInCollection(), true);
  parts_.View.SetEnabled(Control::cmdHaltInput, false);
  parts_.View.SetFocus(Control::cmdRescaleData);
  PaintCalibrate(StatusColour::LightYellow, false);
}

void RunPanel::On(const run_event::TurnAbandoned&) {
  parts_.View.SetText(Control::lblHint, hintBefore_);
  display_.Run(&PatternSession::AbandonRun);
}

void RunPanel::On(const run_event::SweepBegins&) {
  display_.Run(&PatternSession::BeginSweep);
  BeginHint(CalibrateHint(!SourceOf(parts_.Shared.Settings.Input).IsMeter()));
  Enable(LockedInSweep(), false);
  board_.UsePlotUserColour();
  PaintCalibrate(StatusColour::LightRed, true);
}

void RunPanel::On(const run_event::SweepPoint& point) {
  ShowLevel(point.Level);
  board_.UsePlotUserColour();
  board_.PlotPoint(point.PositionDeg, point.Radius);
}

void RunPanel::On(const run_event::SweepEnds&) {
  Enable(LockedInSweep(), true);
  parts_.View.SetText(Control::lblHint, kCalibratedHint);
  PaintCalibrate(StatusColour::LightYellow, false);
  ShowLevelAtRest();
  display_.Run(&PatternSession::EndSweep);
}

void RunPanel::BeginHint(const std::string& hint) {
  hintBefore_ = parts_.View.Text(Control::lblHint);
  runHint_ = hint;
  parts_.View.SetText(Control::lblHint, hint);
}

void RunPanel::Enable(std::span<const Control> controls, bool enabled) {
  for (const Control control : controls) parts_.View.SetEnabled(control, enabled);
  if (parts_.frmEditLbg != nullptr) parts_.frmEditLbg->AllowUpdate(enabled);
  // A linear plot has no logarithmic scale to switch to.
  if (enabled && !Controls().PlotInDb) parts_.View.SetEnabled(Control::cmdLogLin, false);
}

void RunPanel::PaintCalibrate(StatusColour background, bool bold) {
  parts_.View.SetBackground(Control::chkCalibrate, ShadeOf(background));
  parts_.View.SetBold(Control::chkCalibrate, bold);
}

void RunPanel::DrawEmptyGrid() {
  board_.DrawGrid(parts_.Pattern.Grid());
  board_.StartLiveTrace(0.F);
}

void RunPanel::ShowLevel(float level) {
  parts_.View.SetText(Control::txtChan1, parts_.System.OneDecimal(level));
}

void RunPanel::PaintLevel(StatusColour background) {
  if (levelShade_ == background) return;
  levelShade_ = background;
  parts_.View.SetBackground(Control::txtChan1, ShadeOf(background));
}

void RunPanel::ShowLevelAtRest() {
  PaintLevel(StatusColour::Yellow);
  parts_.View.SetText(Control::txtChan1, "0.0");
}

}  // namespace lobegraph
