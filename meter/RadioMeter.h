#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "data/calibration/CalibrationTable.h"
#include "meter/RadioLink.h"
#include "meter/Strength.h"
#include "settings/PublishedReading.h"

namespace lobegraph {

/// What the command line asks for.
struct MeterOptions {
  std::string Host = "127.0.0.1";
  int Port = 4532;
  int IntervalMs = 20;
  int LimitMs = 1000;
  std::optional<double>
      ReferenceDb;          ///< reported strength that becomes the strongest; none: it is looked for
  double FindSeconds = 60;  ///< how long it is looked for
  std::string CalibrationFile;
};

/// Publishes the strength that a radio's daemon reports. A daemon that goes and comes back is asked again; as
/// long as there is no answer nothing counts as published. What could not be published, or taken back, is
/// said.
class RadioMeter {
 public:
  /// @param ended asked at every step; a true answer ends Run
  RadioMeter(const MeterOptions& options, CalibrationTable calibration, SettingsStore& store,
             std::ostream& shown, std::function<bool()> ended);
  void Run();

 private:
  using Time = std::chrono::steady_clock;
  void Step();
  void Take(double reportedDb);
  void Publish(const std::string& text, double reportedDb, double trueDb);
  void End();
  void Look(double trueDb);
  void Say(const std::string& text);
  void SayOnce(const std::string& text);

  const MeterOptions& options_;
  CalibrationTable calibration_;
  PublishedReading published_;
  std::ostream& shown_;
  std::function<bool()> ended_;
  std::unique_ptr<RadioLink> link_;
  std::optional<double> referenceDb_;  ///< true strength
  std::optional<double> strongestDb_;  ///< so far, while it is looked for
  Time::time_point lookedSince_;
  Time::time_point lastShown_;
  std::string lastProblem_;
};

}  // namespace lobegraph
