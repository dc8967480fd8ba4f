#include "acquisition/run/CalibrateSweep.h"

#include <exception>
#include <utility>

#include "acquisition/run/LiveReading.h"
#include "acquisition/run/SourceCheck.h"

namespace lobegraph {
namespace {

constexpr float kLastCounter = 359.0F;
constexpr int kSamplesPerPoint = 3;
constexpr int kSamplePauseMs = 5;

}  // namespace

void CalibrateSweep::chkCalibrate_Click() {
  CollectionPanel& panel = parts_.Panel;
  if (!panel.chkCalibrate()) return;
  if (!parts_.Flags.InputReady) {
    parts_.Messages.Show({kNoInputMessage});
    panel.UncheckCalibrate();
    return;
  }
  if (MeterReady()) panel.EnableTimer1();
}

/// Deliberate: a closed port of a meter that takes a command unticks the box and yet lets the sweep start; it
/// ends at its first point and leaves the empty grid, which shows that no level comes in.
bool CalibrateSweep::MeterReady() {
  const LevelSource& source = parts_.Source();
  if (!source.CalibrateCommand.empty()) SendCommand(source.CalibrateCommand);
  if (source.Comes != Intake::Polled || ExternalMeterReady(parts_)) return true;
  parts_.Panel.UncheckCalibrate();
  return false;
}

void CalibrateSweep::SendCommand(std::string_view command) {
  if (parts_.MSComm1.PortOpen()) return parts_.MSComm1.Send(command);
  parts_.Messages.Show({kMeterPortMessage});
  parts_.Panel.UncheckCalibrate();
}

RunReport CalibrateSweep::Timer1_Timer() {
  RunFlags& flags = parts_.Flags;
  parts_.Panel.DisableTimer1();
  if (flags.Running() || flags.CloseRequested) return {};
  std::exception_ptr fault;
  countBefore_ = parts_.Record.ReadingCount;
  try {
    Begin();
    Sweep();
  } catch (...) {
    fault = std::current_exception();
    parts_.Panel.UncheckCalibrate();
    flags.CollectRequested = false;
  }
  End();
  if (fault) std::rethrow_exception(fault);
  if (flags.CloseRequested || !std::exchange(flags.CollectRequested, false)) return {};
  parts_.Panel.UncheckCalibrate();
  return engine_.cmdCollectData_Click();
}

void CalibrateSweep::Begin() {
  CollectionPanel& panel = parts_.Panel;
  parts_.Flags.IsSweeping = true;
  parts_.Flags.ManualTriggerPressed = false;
  panel.ClearOverlay();
  panel.ClearPlotFields();
  panel.LockForSweep();
  panel.UsePlotUserColour();
  plotScale_ = panel.Slider1();
  panel.PaintCalibrate(StatusColour::LightRed, true);
}

void CalibrateSweep::Sweep() {
  if (parts_.FromSoundCard()) {
    if (!parts_.Sound.StartSoundCapture()) {
      failure_ = parts_.Sound.SoundFailure();
      parts_.Panel.UncheckCalibrate();
      return;
    }
    parts_.Pump.Begin();
  }
  do {
    SweepOnce();
  } while (GoesOn());
  if (parts_.Pump.Lost()) parts_.Panel.UncheckCalibrate();
}

bool CalibrateSweep::GoesOn() const {
  const RunFlags& flags = parts_.Flags;
  return parts_.Panel.chkCalibrate() && !flags.CollectRequested && !flags.CloseRequested &&
         !parts_.Pump.Lost();
}

void CalibrateSweep::SweepOnce() {
  parts_.Panel.DrawCircularGrid();
  for (float counter = 0.0F; counter <= kLastCounter && GoesOn(); counter += 1.0F) {
    ShowPoint(counter);
    parts_.Pump.ProcessPendingEvents();
  }
}

void CalibrateSweep::ShowPoint(float counter) {
  CollectionPanel& panel = parts_.Panel;
  const float level = AverageLevel();
  panel.ShowLevel(level);
  const float downDb = LiveDownDb(parts_, level);
  const float radius = LiveRadius(parts_, level, downDb, plotScale_);
  panel.UsePlotUserColour();
  panel.PlotPoint(counter, radius);
}

float CalibrateSweep::AverageLevel() {
  SampleMean mean;
  for (int sample = 0; sample < kSamplesPerPoint; ++sample) {
    mean.Add(parts_.ReadInputLevel());
    Pause(parts_.Pump, parts_.Time, kSamplePauseMs);
  }
  return mean.Mean();
}

void CalibrateSweep::End() {
  CollectionPanel& panel = parts_.Panel;
  const std::string lost = parts_.Pump.End();
  const std::string failure = lost.empty() ? std::exchange(failure_, {}) : lost;
  if (parts_.FromSoundCard()) parts_.Sound.StopSoundCapture();
  parts_.Flags.IsSweeping = false;
  if (parts_.Flags.CloseRequested) return;
  panel.UnlockAfterSweep();
  panel.PaintCalibrate(StatusColour::LightYellow, false);
  panel.ShowLevelAtRest();
  parts_.Record.ReadingCount = countBefore_;
  panel.DrawCircularGrid();
  if (!failure.empty()) parts_.Messages.Show({failure, kSoundErrorTitle, true});
  parts_.Waiting.ShowWaiting();
}

}  // namespace lobegraph
