#pragma once

#include <pty.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <cmath>
#include <fstream>
#include <sstream>

#include "acquisition/CollectionRig.h"
#include "acquisition/meters/ExternalMeter.h"
#include "acquisition/meters/InputDevices.h"
#include "acquisition/qt/QtEventPump.h"
#include "acquisition/qt/SerialControl.h"
#include "acquisition/qt/SystemClock.h"
#include "acquisition/run/ChosenInput.h"
#include "acquisition/trigger/RotatorLine.h"
#include "acquisition/trigger/RotatorTrigger.h"
#include "settings/FileSettingsStore.h"
#include "support/ChildProcess.h"
#include "support/MeterFakes.h"
#include "support/TemporaryFolder.h"

namespace lobegraph::test {

/// A pseudo-terminal: what a program opens as a port, and the far end.
struct Terminal {
  int Master = -1, Slave = -1;
  std::string Path;
  Terminal() {
    char name[64] = {};
    if (openpty(&Master, &Slave, name, nullptr, nullptr) != 0) throw std::runtime_error("no pseudo-terminal");
    Path = name;
  }
  ~Terminal() {
    close(Slave);
    close(Master);
  }
};

/// Everything from the port or the store up to the record is real, in real time; only the window is a double.
struct MeterTurn {
  static constexpr int kCom = 5;

  TemporaryFolder Folder;
  CollectionRig Rig;
  FileSettingsStore Store{Folder.Path().string()};
  ComPorts Ports{Store};
  SystemClock Time;
  QtEventPump Window;
  SourceWatch Pump{Window, Rig.Sound, Rig.Flags, Rig.Meter, Time};
  SerialControl MSComm1{Ports}, MSCommTrigger{Ports};
  FakeDisplay Display;
  FakeD2xx Library;
  UsbModule Usb{Library, Display, Rig.Flags, Rig.Messages};
  dBMeter Meter{Rig.Meter, Rig.Settings, Display, Time};
  ExternalMeter External{Store, Meter, Rig.Meter, Display, Time};
  InputDevices Devices{
      {MSComm1, MSCommTrigger, Usb, Display, Meter, Rig.Meter, Rig.Flags, Rig.Settings, Rig.Messages}};
  RotatorLine Line{
      {Rig.Choice, MSComm1, MSCommTrigger, Usb, Rig.Flags, [this] { Time.SleepMicroseconds(200); }}};
  RotatorTrigger Trigger{Line, Rig.Flags, Pump, [] { return true; }};
  SoundLevelState Sound;
  SoundThresholds Thresholds;
  ChosenInput Input{
      {Rig.Settings, Rig.Flags, Sound, Thresholds, Rig.Meter, External, Pump, Time, Rig.Front().Tell}};
  CollectionParts Parts{Time,
                        Pump,
                        Rig.Flags,
                        Rig.Record,
                        [this] { return Input.ReadInputLevel(); },
                        [this] { return Trigger.WaitForTrigger(); },
                        Rig.Sound,
                        MSComm1,
                        Rig.Meter,
                        External,
                        Rig.Settings,
                        Rig.Front(),
                        234.0F,
                        Rig.Messages,
                        Rig.Waiting};
  CollectionEngine Engine{Parts};

  MeterTurn() {
    Rig.Choice.InputDeviceIsdBMeter = true;
    Rig.Choice.Commport = kCom;
    Rig.Settings.StartupDelay = Currency();
    Rig.Settings.DetectStartLevel = 2.0F;
  }

  ChildProcess Bench(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), LOBEGRAPH_BENCH);
    return ChildProcess(arguments, Folder.File("bench.log"), {{"XDG_CONFIG_HOME", Folder.Path().string()}});
  }
  std::string Printed() const {
    std::ostringstream text;
    text << std::ifstream(Folder.File("bench.log")).rdbuf();
    return text.str();
  }

  /// Waits for the meter's path and opens its port.
  bool OpenMeter(const char* baud) {
    if (!Until([&] { return Ports.PathOf(kCom).has_value(); }, 5000)) return false;
    Devices.OpenMeterPort(kCom, baud);
    return MSComm1.PortOpen();
  }
  bool Until(const std::function<bool()>& condition, int patienceMs) {
    QElapsedTimer waited;
    for (waited.start(); waited.elapsed() < patienceMs; QThread::msleep(2)) {
      QCoreApplication::processEvents();
      if (condition()) return true;
    }
    return condition();
  }
  RunReport Turn(int seconds) {
    Rig.Panel.RotationSeconds = seconds;
    return Engine.cmdCollectData_Click();
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const UserMessage& message : Rig.Messages.Shown) texts.push_back(message.Text);
    return texts;
  }
};

/// The cardioid that the bench turns, in dB of a meter, at full scale 60.
inline double CardioidDb(double bearingDeg, double peak) {
  const double voltage = (1 + std::cos(bearingDeg * M_PI / 180)) / 2;
  return std::max(60 + 20 * std::log10(std::max(peak * voltage, 1e-9) / 1000), 0.0);
}

/// The largest error in dB where the pattern is flatter than 0.2 dB a degree, after the best shift of at most
/// 2 degrees.
inline double WorstErrorDb(const ReadingsRecord& record, double startDeg, double degreesPerReading,
                           double peak) {
  double best = 999;
  for (double shift = -2; shift <= 2; shift += 0.1) {
    double worst = 0;
    for (int i = 0; i < 360; ++i) {
      const double bearing = startDeg + shift + (i + 0.5) * degreesPerReading;
      const double slope = std::abs(CardioidDb(bearing + 0.5, peak) - CardioidDb(bearing - 0.5, peak));
      if (slope >= 0.2) continue;
      const double measured = 60 + 20 * std::log10(std::max(record.Readings(i), 1.0F) / 1000);
      worst = std::max(worst, std::abs(measured - CardioidDb(bearing, peak)));
    }
    best = std::min(best, worst);
  }
  return best;
}

}  // namespace lobegraph::test
