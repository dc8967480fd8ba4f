#include "acquisition/run/CalibrateSweep.h"

#include <exception>
#include <utility>

#include "acquisition/run/LiveReading.h"
#include "acquisition/run/SourceCheck.h"

namespace lobegraph {

using namespace run_event;

namespace {

constexpr float kLastCounter = 359.0F;
constexpr int kSamplesPerPoint = 3;
constexpr int kSamplePauseMs = 5;

}  // namespace

bool CalibrateSweep::chkCalibrate_Click() {
  if (!parts_.Window.Controls().Calibrate) return false;
  if (SourceReady()) return true;
  parts_.Window.Tell(CalibrateOff{});
  return false;
}

bool CalibrateSweep::SourceReady() { return InputReady() && MeterReady(); }

bool CalibrateSweep::InputReady() {
  if (parts_.Flags.InputReady || CaptureStarts()) return true;
  if (!parts_.Flags.CloseRequested) parts_.Messages.Show({kNoInputMessage});
  return false;
}

/// A sweep counts as running while it waits for the first block, so that nothing else starts meanwhile.
bool CalibrateSweep::CaptureStarts() {
  RunFlags& flags = parts_.Flags;
  if (flags.Running() || !parts_.FromSoundCard()) return false;
  flags.IsSweeping = true;
  flags.InputReady = parts_.Sound.StartSoundCapture(SourceMoves::AreFollowed);
  flags.IsSweeping = false;
  if (!flags.InputReady) flags.CollectRequested = false;
  return flags.InputReady;
}

bool CalibrateSweep::MeterReady() {
  const LevelSource& source = parts_.Source();
  if (!source.CalibrateCommand.empty() && !SendCommand(source.CalibrateCommand)) return false;
  return source.Comes != Intake::Polled || ExternalMeterReady(parts_);
}

bool CalibrateSweep::SendCommand(std::string_view command) {
  if (!parts_.MSComm1.PortOpen()) {
    parts_.Messages.Show({kMeterPortMessage});
    return false;
  }
  parts_.MSComm1.Send(command);
  return true;
}

RunReport CalibrateSweep::Timer1_Timer() {
  RunFlags& flags = parts_.Flags;
  if (flags.Running() || flags.CloseRequested) return {};
  std::exception_ptr fault;
  try {
    Begin();
    Sweep();
  } catch (...) {
    fault = std::current_exception();
    parts_.Window.Tell(CalibrateOff{});
    flags.CollectRequested = false;
  }
  End();
  if (fault) std::rethrow_exception(fault);
  if (flags.CloseRequested || !std::exchange(flags.CollectRequested, false)) return {};
  parts_.Window.Tell(CalibrateOff{});
  return engine_.cmdCollectData_Click();
}

void CalibrateSweep::Begin() {
  parts_.Flags.IsSweeping = true;
  sourceName_.clear();
  parts_.Flags.ManualTriggerPressed = false;
  plotScale_ = parts_.Window.Controls().PlotScale;
  parts_.Window.Tell(SweepBegins{});
}

void CalibrateSweep::Sweep() {
  if (!parts_.FromSoundCard()) {
    AwaitMeter(parts_, [this] { return GoesOn(); });
  } else if (!StartSound()) {
    return;
  }
  do {
    SweepOnce();
  } while (GoesOn());
  if (parts_.Pump.Lost()) parts_.Window.Tell(CalibrateOff{});
}

bool CalibrateSweep::StartSound() {
  if (parts_.Sound.StartSoundCapture(SourceMoves::AreFollowed)) {
    parts_.Pump.Begin();
    NameSource();
    return true;
  }
  failure_ = parts_.Sound.SoundFailure();
  parts_.Window.Tell(CalibrateOff{});
  return false;
}

/// The user may set another source in the middle of it.
void CalibrateSweep::NameSource() {
  const std::string name = parts_.Sound.SoundSourceName();
  if (std::exchange(sourceName_, name) != name) parts_.Window.Tell(SourceNamed{name});
}

bool CalibrateSweep::GoesOn() const {
  const RunFlags& flags = parts_.Flags;
  return parts_.Window.Controls().Calibrate && !flags.CollectRequested && !flags.CloseRequested &&
         !parts_.Pump.Lost();
}

void CalibrateSweep::SweepOnce() {
  parts_.Window.Tell(SweepRound{});
  for (float counter = 0.0F; counter <= kLastCounter && GoesOn(); counter += 1.0F) {
    TellPoint(counter);
    parts_.Pump.ProcessPendingEvents();
  }
}

void CalibrateSweep::TellPoint(float counter) {
  if (parts_.FromSoundCard()) NameSource();
  const float level = AverageLevel();
  const float radius = LiveRadius(parts_, level, LiveDownDb(parts_, level), plotScale_);
  parts_.Window.Tell(SweepPoint{level, counter, radius});
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
  const std::string lost = parts_.Pump.End();
  const std::string failure = lost.empty() ? std::exchange(failure_, {}) : lost;
  if (parts_.FromSoundCard()) parts_.Sound.StopSoundCapture();
  parts_.Flags.IsSweeping = false;
  if (parts_.Flags.CloseRequested) return;
  parts_.Window.Tell(SweepEnds{});
  if (!failure.empty()) parts_.Messages.Show({failure, kSoundErrorTitle, true});
  parts_.Waiting.ShowWaiting();
}

}  // namespace lobegraph
