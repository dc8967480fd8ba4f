#pragma once

#include <string>

#include "bench/Turn.h"

namespace lobegraph {

/// What the bench can be.
enum class BenchKind { Sound, Tarven, Roska, Program, Rotator };

/// dB value of a level as a meter sees it: full scale (level 1000) is 60 dB, the bottom of the range 0.
double MeterDbOf(double level);

/// What a serial meter sends for a level: tenths of a dB in its own frame.
std::string MeterText(BenchKind kind, double level);

/// What the external meter program publishes for a level: dBm, 0 at full scale.
std::string ProgramReading(double level);

/// A turn in steps, each announced by a pulse: the level stands still from the step's begin, a meter settles,
/// then comes the pulse, and the level holds on until its samples are taken.
class SteppedTurn {
 public:
  static constexpr int kStepsPerTurn = 360;

  explicit SteppedTurn(const TurnSettings& settings)
      : silence_(settings.SilenceSeconds), step_(settings.SecondsPerTurn / kStepsPerTurn) {}

  /// The moment whose level holds at a time.
  double HeldSince(double seconds) const;
  /// Level of the pulse line.
  bool PulseHigh(double seconds) const;
  /// The next moment of the turn. On a busy machine the rotator turns slower; it never passes over a pulse.
  /// @param elapsed seconds of real time since the moment before
  double Next(double seconds, double elapsed) const;

 private:
  double silence_;
  double step_;
};

}  // namespace lobegraph
