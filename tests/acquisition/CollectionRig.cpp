#include "acquisition/CollectionRig.h"

#include <algorithm>
#include <variant>

namespace lobegraph {

RunControls FakePanel::Controls() const {
  return {.AutoStart = AutoStart,
          .AutoStop = AutoStop,
          .Triggered = Triggered,
          .PlotInDb = PlotInDB,
          .Calibrate = Calibrate,
          .PlotScale = Scale,
          .RotationSeconds = RotationSeconds};
}

void FakePanel::Show(const RunEvent& event) {
  std::visit([this](const auto& what) { On(what); }, event);
}

/// What begins a turn clears of the record.
void FakePanel::ClearFields() {
  record_.TrimFront = 0;
  record_.TrimEnd = 0;
  record_.Rotate = 0.0F;
  record_.ReadingCount = 0.0;
  record_.FileName.clear();
}

void FakePanel::On(const run_event::TurnBegins&) {
  log_.emplace_back("TurnBegins");
  Locked = true;
  ClearFields();
}
void FakePanel::On(const run_event::SourceRuns&) { log_.emplace_back("SourceRuns"); }
void FakePanel::On(const run_event::SourceNamed& source) { log_.push_back("source " + source.Name); }
void FakePanel::On(const run_event::AwaitsMeter& meter) {
  log_.emplace_back(meter.Waits ? "awaits the meter" : "the meter speaks");
}
void FakePanel::On(const run_event::ManualTrigger& trigger) {
  log_.emplace_back(trigger.Offered ? "manual trigger offered" : "manual trigger gone");
}
void FakePanel::On(const run_event::LevelColour& level) { log_.push_back("level " + NameOf(level.Colour)); }
void FakePanel::On(const run_event::ReadingStored& reading) {
  log_.push_back("ReadingStored " + std::to_string(reading.Index));
  Levels.push_back(reading.Level);
  Stored.push_back(reading.Index);
  Details.push_back(reading);
  if (OnStored) OnStored(reading.Index);
}
void FakePanel::On(const run_event::ReadingPlotted& reading) {
  log_.push_back("ReadingPlotted " + std::to_string(reading.Index));
  Points.push_back({reading.PositionDeg, reading.Radius});
}
void FakePanel::On(const run_event::SourceRests&) { log_.emplace_back("SourceRests"); }
void FakePanel::On(const run_event::TurnEnds& turn) {
  log_.push_back("TurnEnds " + std::to_string(turn.ReadingsTaken) + " " + std::to_string(turn.LowReadings));
  ReadingsTaken = turn.ReadingsTaken;
  LowReadings = turn.LowReadings;
}
void FakePanel::On(const run_event::TurnUnlocked&) {
  log_.emplace_back("TurnUnlocked");
  Locked = false;
}
void FakePanel::On(const run_event::TurnAbandoned&) { log_.emplace_back("TurnAbandoned"); }
void FakePanel::On(const run_event::SweepBegins&) {
  log_.emplace_back("SweepBegins");
  Locked = true;
}
void FakePanel::On(const run_event::SweepRound&) { log_.emplace_back("SweepRound"); }
void FakePanel::On(const run_event::SweepPoint& point) {
  log_.emplace_back("SweepPoint");
  Levels.push_back(point.Level);
  Points.push_back({point.PositionDeg, point.Radius});
}
void FakePanel::On(const run_event::SweepEnds&) {
  log_.emplace_back("SweepEnds");
  Locked = false;
}
void FakePanel::On(const run_event::CalibrateOff&) {
  log_.emplace_back("CalibrateOff");
  Calibrate = false;
}

float FakeLevel::ReadInputLevel() {
  log_.emplace_back("ReadInputLevel");
  clock_.Advance(MsPerSample);
  ++Samples;
  return OnSample ? OnSample(Samples) : Level;
}

bool FakeSound::StartSoundCapture(SourceMoves moves) {
  Moves = moves;
  log_.emplace_back("StartSoundCapture");
  if (OnStart) OnStart();
  return Starts;
}

void FakeMessages::Show(const UserMessage& message) {
  log_.push_back("Message " + message.Text);
  Shown.push_back(message);
  if (OnShow) OnShow();
}

CollectionRig::CollectionRig() {
  Flags.InputReady = true;
  Settings.DetectStartLevel = 7.0F;
  Settings.DetectStopLevel = 7.0F;
  Settings.DetectStopNumberOfReadings = 5;
  Settings.PeakInputLevel = 1000.0F;
  Settings.ShowLogScale = true;
  MeterForm.OnChange = [this](const std::string& change) { Log.push_back(change); };
}

void CollectionRig::HoldPattern(int readings) {
  for (int index = 0; index < readings; ++index) Record.Readings(index) = 50.0F;
  Record.NumReadings = static_cast<std::int16_t>(readings - 1);
  Record.ReadingCount = readings;
  Record.TrimFront = 3;
  Record.TrimEnd = 4;
  Record.Rotate = 90.0F;
  Record.FileName = "beam.lbg";
  Record.CollectedBy = "Before";
  Record.SaveReadings();
}

void CollectionRig::HaltAfter(int index) {
  Panel.OnStored = [this, index](int stored) {
    if (stored == index) Engine.cmdHaltInput_Click();
  };
}

void CollectionRig::UseSerialMeter() {
  Choice.InputDeviceIsdBMeter = true;
  Port.IsOpen = true;
  HearMeter();
}

void CollectionRig::UseExternalMeter(const std::string& active) {
  Choice.InputDeviceIsdBMeter = true;
  Choice.GaugeBridge = true;
  Store.Put("Active", active, "GaugeBridge");
  HearMeter();
}

/// A fresh value with every sample; enough for a mean were there before.
void CollectionRig::HearMeter() {
  Meter.HistoryLength = Meter.MeterHistory.size();
  Level.OnSample = [this](int) {
    Speak();
    return Level.Level;
  };
}

void CollectionRig::Speak() {
  Meter.HistoryLength = std::min(Meter.HistoryLength + 1, Meter.MeterHistory.size());
  ++Meter.ValuesReceived;
  ++Meter.Life.Signs;
  ++Meter.Life.Changes;
}

int CollectionRig::CountOf(const std::string& call) const {
  return static_cast<int>(std::count(Log.begin(), Log.end(), call));
}

int CollectionRig::PlaceOf(const std::string& call) const {
  const auto found = std::find(Log.begin(), Log.end(), call);
  return found == Log.end() ? -1 : static_cast<int>(found - Log.begin());
}

}  // namespace lobegraph
