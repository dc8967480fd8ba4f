#pragma once

#include <string>

namespace lobegraph {

/// Which rotator, and where it is reached.
struct RotatorChoice {
  int Model = 0;     ///< hamlib's number; 0: none is chosen
  std::string Port;  ///< a device's path or HOST:PORT; empty for a model that needs neither
  int Baud = 0;      ///< of a serial port; 0: what the model usually has

  bool operator==(const RotatorChoice&) const = default;
};

/// A model that can be chosen.
struct RotatorModel {
  enum class Reached { Directly, Serial, Network, Otherwise };

  int Number = 0;
  Reached By = Reached::Otherwise;
  std::string Maker;
  std::string Name;

  bool operator==(const RotatorModel&) const = default;
};

/// What a rotator can do, and how far it goes.
struct RotatorAbilities {
  bool Position = false;
  bool GoTo = false;
  bool Turn = false;
  bool Stop = false;
  bool Park = false;
  double LowestDeg = 0;  ///< bearings as the rotator counts them: -180 to 450 is one with overlap
  double HighestDeg = 360;

  bool operator==(const RotatorAbilities&) const = default;
};

/// Where the antenna pointed, and when.
struct RotatorPosition {
  double TimeS = 0;  ///< the system's monotonic clock, seconds: the middle of question and answer
  double Deg = 0;    ///< as the rotator told it, clockwise from north

  bool operator==(const RotatorPosition&) const = default;
};

/// Seen from above: right is clockwise.
enum class TurnSense { Left, Right };

}  // namespace lobegraph
