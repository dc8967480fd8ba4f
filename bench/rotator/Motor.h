#pragma once

#include <deque>
#include <optional>

namespace lobegraph {

/// How a rotator turns.
struct MotorSettings {
  double DegPerS = 6;
  double RunUpS = 0;      ///< from rest to its speed
  double RunDownS = 0;    ///< from its speed to rest
  double SwingShare = 0;  ///< by which the speed swings once a turn
  double StartDeg = 0;
  double ParkDeg = 0;
  double LowestDeg = 0;  ///< it stands there at the latest
  double HighestDeg = 360;
  std::optional<double> StallAtDeg = {};  ///< it comes no farther than there
  bool Reversed = false;                  ///< it turns the other way than it is told
};

/// An antenna on a motor, in steps of a millisecond. Times are seconds of one clock that goes forward.
class Motor {
 public:
  /// What the motor takes to obey: what sounds until then is played ahead, and stays true.
  static constexpr double kReactsS = 0.15;
  static constexpr double kRememberedS = 5;

  Motor(const MotorSettings& settings, double nowS);

  void GoTo(double deg, double nowS);
  void Turn(bool right, double nowS);
  void Stop(double nowS);
  void Park(double nowS) { GoTo(settings_.ParkDeg, nowS); }

  /// Where the antenna is at a time, from kRememberedS ago to kReactsS ahead of the present; the nearest
  /// known beyond that.
  double DegAt(double timeS);

 private:
  enum class Kind { Stop, Turn, GoTo };
  struct Order {
    Kind What = Kind::Stop;
    double FromS = 0;
    double TargetDeg = 0;
    int Sense = 0;
  };

  void Give(Order order, double nowS);
  void AdvanceTo(double timeS);
  void Step();
  double WantedDegPerS() const;
  double Nearer(double wanted) const;
  void Hold(double deg);

  MotorSettings settings_;
  std::deque<Order> orders_;  ///< to come
  Order order_;               ///< obeyed now
  double beginsS_;            ///< time of the first step remembered
  std::deque<double> steps_;  ///< bearings, a millisecond apart
  double degPerS_ = 0;
};

}  // namespace lobegraph
