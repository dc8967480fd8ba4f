#pragma once

#include <optional>

#include "acquisition/rotator/RotatorTypes.h"

namespace lobegraph {

/// What sets an antenna in motion.
struct DriveOrder {
  enum class Kind { Left, Right, GoTo, Park };

  Kind What = Kind::Right;
  double TargetDeg = 0;  ///< of GoTo, as the rotator counts bearings
};

/// Why an antenna that was told to move has to be stopped, or why it is not safe after a stop.
enum class DriveAlarm { DoesNotMove, MovesWrongWay, LeavesLimits, NoAnswers, DoesNotStop };

/// Looks after an antenna from the order to move until it stands: decides by the positions alone. Bearings
/// that run over north are followed. Times are seconds of the monotonic clock.
class RotatorWatchdog {
 public:
  static constexpr double kMotionlessS = 5;
  static constexpr double kNoAnswersS = 3;
  static constexpr double kStandsS = 2;        ///< an unchanged bearing for so long is a standing antenna
  static constexpr double kMostCoastS = 5;     ///< what an antenna may take to stand after a stop
  static constexpr double kTurnsRoundS = 1.5;  ///< what it may take to change its sense after an order
  static constexpr double kWrongWayDeg = 5;
  static constexpr double kBeyondLimitDeg = 5;
  static constexpr double kMotionDeg = 0.25;  ///< less is no motion
  static constexpr double kArrivedDeg = 1.5;
  static constexpr double kNearEnoughDeg = 5;  ///< of an antenna that stands there

  /// An order was given. @param at where the antenna points, when that is known
  void Begin(const DriveOrder& order, const RotatorAbilities& can, std::optional<double> at, double nowS);
  /// A stop was given.
  void Stop(double nowS);
  /// Nothing is looked after any more.
  void End() { phase_ = Phase::Idle; }

  void Heard(const RotatorPosition& position, double nowS);
  /// Each alarm once.
  std::optional<DriveAlarm> Check(double nowS);

  /// An order is on that has neither arrived nor been stopped.
  bool Driving() const { return phase_ == Phase::Driving; }
  /// A stop was given and the antenna is not known to stand.
  bool Stopping() const { return phase_ == Phase::Stopping; }
  const DriveOrder& Order() const { return order_; }

 private:
  enum class Phase { Idle, Driving, Stopping };

  void Reset(double nowS);
  void SetSenses();
  void NoteProgress(double deg, double nowS);
  std::optional<DriveAlarm> CheckStop(double nowS);
  std::optional<DriveAlarm> AlarmOf(double nowS) const;
  bool Stands(double nowS) const;
  bool Arrived(double nowS) const;
  bool WrongWay(double nowS) const;
  bool OutOfLimits() const;

  Phase phase_ = Phase::Idle;
  DriveOrder order_;
  RotatorAbilities can_;
  bool withinLimits_ = false;  ///< a rotator that counts otherwise than its limits cannot be held to them
  double begunS_ = 0;
  double heardS_ = 0;        ///< the last position
  double movedS_ = 0;        ///< the last motion
  double longestStepS_ = 0;  ///< between two motions
  bool moved_ = false;
  bool rightWay_ = true, leftWay_ = true;  ///< the senses that lead there
  std::optional<double> told_;             ///< as the rotator counts
  double deg_ = 0;                         ///< the same without a jump at north
  double rightmost_ = 0, leftmost_ = 0;    ///< where motion was seen: an unsteady last digit is none
  double rightTurn_ = 0, leftTurn_ = 0;    ///< farthest right and left since the sense counts
};

}  // namespace lobegraph
