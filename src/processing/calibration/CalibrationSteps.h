#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/calibration/CalibrationTable.h"

namespace lobegraph {

/// Taking a calibration step by step: a steady signal, an attenuator in front of the receiver, a level for
/// each setting.
class CalibrationSteps {
 public:
  static constexpr std::size_t kFewestPoints = 3;

  /// @param stepDb by which the attenuator is turned each time, above 0
  explicit CalibrationSteps(double stepDb) : stepDb_(stepDb) {}

  /// What the attenuator is to be set to next, as long as nobody types another value.
  double NextDb() const;
  /// "Set the attenuator to 10 dB, then Take."
  std::string Prompt() const;

  /// What the input says at one setting.
  struct Heard {
    double Level = 1.0;    ///< as the readings would be, uncalibrated
    bool Clipped = false;  ///< samples at the end of the scale
    bool Steady = true;    ///< the level stands still
  };
  /// Takes the level heard at a setting. A setting taken before is taken anew.
  /// @return why it was refused, a sentence; empty when it was taken
  std::string Take(double attenuatorDb, const Heard& heard);
  /// Forgets the point taken last. @return false when there is none
  bool TakeBack();

  struct Step {
    double AttenuatorDb = 0.0;
    double HeardDb = 0.0;  ///< 0 at level 1000
  };
  /// In the order of the attenuator.
  const std::vector<Step>& Steps() const { return steps_; }

  /// The table, or why there is none yet. The loudest level stays as it is heard, the weaker ones become as
  /// much weaker as the attenuator says.
  CalibrationOutcome Outcome() const;

 private:
  double stepDb_;
  std::vector<Step> steps_;
  double lastDb_ = 0.0;  ///< setting of the point taken last
};

}  // namespace lobegraph
