#include "acquisition/CollectionRig.h"

#include <algorithm>

namespace lobegraph {

std::string FakePanel::DateTimeText() {
  log_.emplace_back("DateTimeText");
  return DateTime;
}

void FakePanel::UncheckCalibrate() {
  Calibrate = false;
  log_.emplace_back("UncheckCalibrate");
}

void FakePanel::EnableTimer1() { log_.emplace_back("EnableTimer1"); }
void FakePanel::DisableTimer1() { log_.emplace_back("DisableTimer1"); }

void FakePanel::Lock() {
  Locked = true;
  log_.emplace_back("Lock");
}

void FakePanel::Unlock() {
  Locked = false;
  log_.emplace_back("Unlock");
}

void FakePanel::LockForSweep() {
  Locked = true;
  log_.emplace_back("LockForSweep");
}

void FakePanel::UnlockAfterSweep() {
  Locked = false;
  log_.emplace_back("UnlockAfterSweep");
}

void FakePanel::PaintCalibrate(StatusColour background, bool bold) {
  log_.push_back("PaintCalibrate " + NameOf(background) + (bold ? " bold" : ""));
}

void FakePanel::ShowManualTrigger(bool shown) {
  log_.emplace_back(shown ? "ShowManualTrigger" : "HideManualTrigger");
}

void FakePanel::ClearOverlay() { log_.emplace_back("ClearOverlay"); }

void FakePanel::ClearPlotFields() {
  log_.emplace_back("ClearPlotFields");
  record_.TrimFront = 0;
  record_.TrimEnd = 0;
  record_.Rotate = 0.0F;
  record_.ReadingCount = 0.0;
  record_.FileName.clear();
}

void FakePanel::DrawCircularGrid() { log_.emplace_back("DrawCircularGrid"); }
void FakePanel::UsePlotUserColour() { log_.emplace_back("UsePlotUserColour"); }

float FakePanel::PrepareAngularStep() {
  log_.emplace_back("PrepareAngularStep");
  return AngularStep;
}

void FakePanel::PlotPoint(float positionDeg, float radius) {
  log_.emplace_back("PlotPoint");
  Points.push_back({positionDeg, radius});
}

void FakePanel::ShowLevel(float level) {
  log_.emplace_back("ShowLevel");
  Levels.push_back(level);
}

void FakePanel::PaintLevel(StatusColour background) { log_.push_back("PaintLevel " + NameOf(background)); }
void FakePanel::ShowLevelAtRest() { log_.emplace_back("ShowLevelAtRest"); }

void FakePanel::ShowReadingNumber(const std::string& text) {
  log_.push_back("ReadingNumber " + text);
  ReadingNumber = text;
}

void FakePanel::ShowReadingsPlotted(const std::string& text) {
  log_.push_back("ReadingsPlotted " + text);
  ReadingsPlotted = text;
}

void FakePanel::ShowTrimEnd(const std::string& text) {
  log_.push_back("TrimEnd " + text);
  TrimEnd = text;
}

void FakePanel::ReadingStored(int index) {
  log_.push_back("ReadingStored " + std::to_string(index));
  Stored.push_back(index);
  if (OnStored) OnStored(index);
}

void FakePanel::ShowRecordAgain() { log_.emplace_back("ShowRecordAgain"); }

float FakeLevel::ReadInputLevel() {
  log_.emplace_back("ReadInputLevel");
  clock_.Advance(MsPerSample);
  ++Samples;
  return OnSample ? OnSample(Samples) : Level;
}

bool FakeSound::StartSoundCapture() {
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

/// A fresh value with every sample.
void CollectionRig::HearMeter() {
  Level.OnSample = [this](int) {
    ++Meter.ValuesReceived;
    return Level.Level;
  };
}

int CollectionRig::CountOf(const std::string& call) const {
  return static_cast<int>(std::count(Log.begin(), Log.end(), call));
}

int CollectionRig::PlaceOf(const std::string& call) const {
  const auto found = std::find(Log.begin(), Log.end(), call);
  return found == Log.end() ? -1 : static_cast<int>(found - Log.begin());
}

}  // namespace lobegraph
