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

/// The window as the user left it. Writes go to the log; values stay to be looked at.
class FakePanel final : public CollectionPanel {
 public:
  FakePanel(CallLog& log, ReadingsRecord& record) : log_(log), record_(record) {}

  bool AutoStart = false;
  bool AutoStop = false;
  bool Triggered = false;
  bool PlotInDB = true;
  bool Calibrate = false;
  int Scale = 35;
  int RotationSeconds = 36;
  float AngularStep = 1.0F;
  bool Locked = false;
  std::string DateTime = "12:00 01/02/2030";
  std::string Operator = "K1AB";

  struct Point {
    float PositionDeg;
    float Radius;
  };
  std::vector<Point> Points;
  std::vector<float> Levels;
  std::vector<int> Stored;
  std::string ReadingNumber;
  std::string ReadingsPlotted;
  std::string TrimEnd;
  std::function<void(int)> OnStored;

  bool chkAutoStart() const override { return AutoStart; }
  bool chkAutoStop() const override { return AutoStop; }
  bool chkTrigger() const override { return Triggered; }
  bool chkPlotInDB() const override { return PlotInDB; }
  bool chkCalibrate() const override { return Calibrate; }
  int Slider1() const override { return Scale; }
  int Slider2() const override { return RotationSeconds; }
  std::string OperatorName() const override { return Operator; }
  float FullScaleRadius() const override { return 234.0F; }
  std::string DateTimeText() override;
  void UncheckCalibrate() override;
  void EnableTimer1() override;
  void DisableTimer1() override;
  void Lock() override;
  void Unlock() override;
  void LockForSweep() override;
  void UnlockAfterSweep() override;
  void PaintCalibrate(StatusColour background, bool bold) override;
  void ShowManualTrigger(bool shown) override;
  void ClearOverlay() override;
  void ClearPlotFields() override;
  void DrawCircularGrid() override;
  void UsePlotUserColour() override;
  float PrepareAngularStep() override;
  void PlotPoint(float positionDeg, float radius) override;
  void ShowLevel(float level) override;
  void PaintLevel(StatusColour background) override;
  void ShowLevelAtRest() override;
  void ShowReadingNumber(const std::string& text) override;
  void ShowReadingsPlotted(const std::string& text) override;
  void ShowTrimEnd(const std::string& text) override;
  void ReadingStored(int index) override;
  void ShowRecordAgain() override;

 private:
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

  bool StartSoundCapture() override;
  void StopSoundCapture() override { log_.emplace_back("StopSoundCapture"); }
  std::string SoundFailure() override { return Failure; }
  std::string SoundSourceName() const override { return "Test input"; }

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
  SourceWatch Pump{Window, Sound, Flags};
  CollectionParts Parts{Time,
                        Pump,
                        Flags,
                        Record,
                        [this] { return Level.ReadInputLevel(); },
                        [this] { return Trigger.OnWait(++Trigger.Waits); },
                        Sound,
                        Port,
                        MeterForm,
                        Meter,
                        Store,
                        Settings,
                        Panel,
                        Messages,
                        Waiting};
  CollectionEngine Engine{Parts};
  CalibrateSweep Sweep{Parts, Engine};

  CollectionRig();
  RunReport Collect() { return Engine.cmdCollectData_Click(); }
  /// A record that holds a pattern of that many readings, each 50.
  void HoldPattern(int readings);
  /// Presses halt when that reading has been stored.
  void HaltAfter(int index);
  void UseSerialMeter();
  void UseExternalMeter(const std::string& active);

  void HearMeter();

  bool Called(const std::string& call) const { return CountOf(call) > 0; }
  int CountOf(const std::string& call) const;
  /// Place of the first such call in the log, -1 when it was never made.
  int PlaceOf(const std::string& call) const;
};

}  // namespace lobegraph
