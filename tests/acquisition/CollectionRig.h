#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "acquisition/run/CalibrateSweep.h"
#include "acquisition/run/CollectionEngine.h"
#include "support/FakeClock.h"
#include "support/MeterFakes.h"
#include "support/RecordingStore.h"

namespace lobegraph {

/// All that the doubles of one run were asked to do, in order.
using CallLog = std::vector<std::string>;

using test::NameOf;

/// The window as the user left it. What it is told goes to the log; values stay to be looked at.
class FakePanel {
 public:
  FakePanel(CallLog& log, ReadingsRecord& record) : log_(log), record_(record) {}

  bool AutoStart = false;
  bool AutoStop = false;
  bool Triggered = false;
  bool PlotInDB = true;
  bool Calibrate = false;
  int Scale = 35;
  int RotationSeconds = 36;
  bool Locked = false;

  struct Point {
    float PositionDeg;
    float Radius;
  };
  std::vector<Point> Points;
  std::vector<float> Levels;
  std::vector<int> Stored;
  std::vector<run_event::ReadingStored> Details;
  int ReadingsTaken = -1;
  int LowReadings = -1;
  std::function<void(int)> OnStored;

  RunControls Controls() const;
  void Show(const RunEvent& event);

 private:
  void On(const run_event::TurnBegins&);
  void On(const run_event::SourceRuns&);
  void On(const run_event::SourceNamed& source);
  void On(const run_event::AwaitsMeter& meter);
  void On(const run_event::ManualTrigger& trigger);
  void On(const run_event::LevelColour& level);
  void On(const run_event::ReadingStored& reading);
  void On(const run_event::ReadingPlotted& reading);
  void On(const run_event::SourceRests&);
  void On(const run_event::TurnEnds& turn);
  void On(const run_event::TurnUnlocked&);
  void On(const run_event::TurnAbandoned&);
  void On(const run_event::SweepBegins&);
  void On(const run_event::SweepRound&);
  void On(const run_event::SweepPoint& point);
  void On(const run_event::SweepEnds&);
  void On(const run_event::CalibrateOff&);
  void ClearFields();

  CallLog& log_;
  ReadingsRecord& record_;
};

/// A source that gives what the test says and lasts as long as the test says.
class FakeLevel {
 public:
  FakeLevel(CallLog& log, FakeClock& clock) : log_(log), clock_(clock) {}
  float Level = 300.0F;
  std::int32_t MsPerSample = 1;
  int Samples = 0;
  std::function<float(int)> OnSample;  ///< number of the sample, from 1

  float ReadInputLevel();

 private:
  CallLog& log_;
  FakeClock& clock_;
};

struct FakeTrigger {
  int Waits = 0;
  std::function<bool(int)> OnWait = [](int) { return true; };
};

class FakeSound final : public SoundCapture {
 public:
  explicit FakeSound(CallLog& log) : log_(log) {}
  std::string Failure;
  bool Starts = true;
  std::function<void()> OnStart;

  SourceMoves Moves = SourceMoves::AreFailures;
  std::string Name = "Test input";

  bool StartSoundCapture(SourceMoves moves) override;
  void StopSoundCapture() override { log_.emplace_back("StopSoundCapture"); }
  std::string SoundFailure() override { return Failure; }
  std::string SoundSourceName() const override { return Name; }

 private:
  CallLog& log_;
};

class FakeMessages final : public UserMessages {
 public:
  explicit FakeMessages(CallLog& log) : log_(log) {}
  std::vector<UserMessage> Shown;
  std::function<void()> OnShow;
  void Show(const UserMessage& message) override;

 private:
  CallLog& log_;
};

/// An engine and a sweep among doubles. A sample lasts 1 ms; 36 s a turn are 100 ms a reading.
struct CollectionRig {
  CallLog Log;
  FakeClock Time;
  FakePump Window;
  RunFlags Flags;
  ReadingsRecord Record;
  FakeLevel Level{Log, Time};
  FakeTrigger Trigger;
  FakeSound Sound{Log};
  test::FakeSCom Port{Log, "meter"};
  test::FakeDisplay MeterForm;
  MeterState Meter;
  RecordingStore Store;
  SettingsValues Settings;
  InputChoice& Choice = Settings.Input;
  FakePanel Panel{Log, Record};
  FakeMessages Messages{Log};
  DeviceMessages Waiting{Flags, Messages};
  SourceWatch Pump{Window, Sound, Flags, Meter, Time};
  dBMeter Scale{Meter, Settings, MeterForm, Time};
  ExternalMeter Program{Store, Scale, Meter, MeterForm, Time};
  CollectionParts Parts{Time,
                        Pump,
                        Flags,
                        Record,
                        [this] { return Level.ReadInputLevel(); },
                        [this] { return Trigger.OnWait(++Trigger.Waits); },
                        Sound,
                        Port,
                        Meter,
                        Program,
                        Settings,
                        Front(),
                        234.0F,
                        Messages,
                        Waiting};
  CollectionEngine Engine{Parts};
  CalibrateSweep Sweep{Parts, Engine};

  CollectionRig();
  RunFront Front() {
    return {[this] { return Panel.Controls(); }, [this](const RunEvent& event) { Panel.Show(event); }};
  }
  RunReport Collect() { return Engine.cmdCollectData_Click(); }
  /// A record that holds a pattern of that many readings, each 50.
  void HoldPattern(int readings);
  /// Presses halt when that reading has been stored.
  void HaltAfter(int index);
  void UseSerialMeter();
  void UseExternalMeter(const std::string& active);

  void HearMeter();
  /// A value from the meter.
  void Speak();

  bool Called(const std::string& call) const { return CountOf(call) > 0; }
  int CountOf(const std::string& call) const;
  /// Place of the first such call in the log, -1 when it was never made.
  int PlaceOf(const std::string& call) const;
};

}  // namespace lobegraph
