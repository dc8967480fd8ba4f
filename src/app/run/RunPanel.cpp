#include "app/run/RunPanel.h"

#include "acquisition/meters/LevelSource.h"
#include "app/run/RunHints.h"
#include "processing/PlotRange.h"

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

std::string RunPanel::DateTimeText() {
  parts_.View.SetText(Control::lblDateTime, parts_.System.TimeAndDate());
  return parts_.View.Text(Control::lblDateTime);
}

void RunPanel::Lock() {
  rotationSeconds_ = Slider2();
  BeginHint(StartHint(chkAutoStart(), chkTrigger(), rotationSeconds_));
  Enable(LockedInCollection(), false);
  parts_.View.SetEnabled(Control::cmdHaltInput, true);
  parts_.View.SetFocus(Control::cmdHaltInput);
  copy_.Begin(TimeForFileName());
}

void RunPanel::Unlock() {
  Enable(LockedInCollection(), true);
  parts_.View.SetEnabled(Control::cmdHaltInput, false);
  parts_.View.SetFocus(Control::cmdRescaleData);
}

void RunPanel::LockForSweep() {
  BeginHint(CalibrateHint(!SourceOf(parts_.Shared.Settings.Input).IsMeter()));
  Enable(LockedInSweep(), false);
}

void RunPanel::UnlockAfterSweep() {
  Enable(LockedInSweep(), true);
  parts_.View.SetText(Control::lblHint, kCalibratedHint);
}

void RunPanel::BeginHint(const std::string& hint) {
  hintBefore_ = parts_.View.Text(Control::lblHint);
  parts_.View.SetText(Control::lblHint, hint);
}

void RunPanel::Enable(std::span<const Control> controls, bool enabled) {
  for (const Control control : controls) parts_.View.SetEnabled(control, enabled);
  if (parts_.frmEditLbg != nullptr) parts_.frmEditLbg->AllowUpdate(enabled);
  // A linear plot has no logarithmic scale to switch to.
  if (enabled && !chkPlotInDB()) parts_.View.SetEnabled(Control::cmdLogLin, false);
}

void RunPanel::PaintCalibrate(StatusColour background, bool bold) {
  parts_.View.SetBackground(Control::chkCalibrate, ShadeOf(background));
  parts_.View.SetBold(Control::chkCalibrate, bold);
}

void RunPanel::ClearPlotFields() {
  descriptionWasLoaded_ = parts_.Shared.DescriptionLoaded;
  plot_.ClearPlotFields();
}

void RunPanel::DrawCircularGrid() {
  board_.DrawCircularGrid();
  board_.StartLiveTrace(0.F);
}

float RunPanel::PrepareAngularStep() {
  constexpr std::int16_t kWholeTurn = 360;
  Globals& shared = parts_.Shared;
  shared.Record.Rotate = RotationFor(shared.Record, shared.Settings.LinearMode);
  board_.StartLiveTrace();
  if (!SourceOf(shared.Settings.Input).IsMeter())
    parts_.View.SetText(Control::lblSource, sound_.SoundSourceName());
  return DegreesBetween(kWholeTurn, shared.Record.Plot180);
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

void RunPanel::ShowReadingsPlotted(const std::string& text) {
  parts_.View.SetText(Control::txtReadingsPlotted, text);
}

void RunPanel::ReadingStored(int index) {
  parts_.Shared.HalfLoaded = false;
  copy_.Store(parts_.Shared.Record, index);
  parts_.View.SetText(Control::lblHint, ProgressHint(index + 1, chkTrigger(), rotationSeconds_));
}

void RunPanel::ShowRecordAgain() {
  parts_.View.SetText(Control::lblHint, hintBefore_);
  parts_.Shared.DescriptionLoaded = descriptionWasLoaded_;
  plot_.ShowRecord();
  plot_.RedrawAll();
}

}  // namespace lobegraph
