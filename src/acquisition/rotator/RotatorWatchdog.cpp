#include "acquisition/rotator/RotatorWatchdog.h"

#include <algorithm>
#include <cmath>

#include "processing/bearing/Angles.h"

namespace lobegraph {
namespace {

/// A coarse bearing of a slow rotator stands still for several of its usual steps before it is believed.
constexpr double kStepsPatience = 3;

}  // namespace

void RotatorWatchdog::Begin(const DriveOrder& order, const RotatorAbilities& can, std::optional<double> at,
                            double nowS) {
  phase_ = Phase::Driving;
  order_ = order;
  can_ = can;
  told_ = at;
  deg_ = at.value_or(0);
  withinLimits_ = at && *at >= can.LowestDeg && *at <= can.HighestDeg;
  Reset(nowS);
  SetSenses();
}

void RotatorWatchdog::Stop(double nowS) {
  phase_ = Phase::Stopping;
  Reset(nowS);
}

void RotatorWatchdog::Reset(double nowS) {
  begunS_ = heardS_ = movedS_ = nowS;
  longestStepS_ = 0;
  moved_ = false;
  rightmost_ = leftmost_ = rightTurn_ = leftTurn_ = deg_;
}

/// The way that the rotator's own count leads, and the short way: a mast without a stop at north may take it.
void RotatorWatchdog::SetSenses() {
  using Kind = DriveOrder::Kind;
  rightWay_ = leftWay_ = true;
  if (order_.What == Kind::Left) rightWay_ = false;
  if (order_.What == Kind::Right) leftWay_ = false;
  if (order_.What != Kind::GoTo || !told_) return;
  const double way = order_.TargetDeg - *told_, shortWay = ShortWay(*told_, order_.TargetDeg);
  rightWay_ = way >= 0 || shortWay >= 0;
  leftWay_ = way <= 0 || shortWay <= 0;
}

void RotatorWatchdog::Heard(const RotatorPosition& position, double nowS) {
  heardS_ = nowS;
  const bool first = !told_;
  told_ = position.Deg;
  if (first) {
    rightmost_ = leftmost_ = deg_ = position.Deg;
    SetSenses();
  }
  NoteProgress(InTurnNearest(position.Deg, deg_), nowS);
}

void RotatorWatchdog::NoteProgress(double deg, double nowS) {
  deg_ = deg;
  if (nowS - begunS_ <= kTurnsRoundS) rightTurn_ = leftTurn_ = deg;
  rightTurn_ = std::max(rightTurn_, deg);
  leftTurn_ = std::min(leftTurn_, deg);
  if (deg < rightmost_ + kMotionDeg && deg > leftmost_ - kMotionDeg) return;
  rightmost_ = std::max(rightmost_, deg);
  leftmost_ = std::min(leftmost_, deg);
  if (moved_) longestStepS_ = std::max(longestStepS_, nowS - movedS_);
  moved_ = true;
  movedS_ = nowS;
}

std::optional<DriveAlarm> RotatorWatchdog::Check(double nowS) {
  if (phase_ == Phase::Stopping) return CheckStop(nowS);
  if (phase_ == Phase::Idle) return std::nullopt;
  const std::optional<DriveAlarm> alarm = AlarmOf(nowS);
  if (alarm || Arrived(nowS)) End();
  return alarm;
}

std::optional<DriveAlarm> RotatorWatchdog::CheckStop(double nowS) {
  const bool answers = nowS - heardS_ <= kNoAnswersS;
  if (answers && nowS - movedS_ < kStandsS) {
    if (nowS - begunS_ <= kMostCoastS) return std::nullopt;
    End();
    return DriveAlarm::DoesNotStop;
  }
  if (answers) End();
  return std::nullopt;
}

std::optional<DriveAlarm> RotatorWatchdog::AlarmOf(double nowS) const {
  if (nowS - heardS_ > kNoAnswersS) return DriveAlarm::NoAnswers;
  if (OutOfLimits()) return DriveAlarm::LeavesLimits;
  if (WrongWay(nowS)) return DriveAlarm::MovesWrongWay;
  const double patienceS = std::max(kMotionlessS, kStepsPatience * longestStepS_);
  const bool parks = order_.What == DriveOrder::Kind::Park;  // perhaps it is parked already
  if (nowS - movedS_ > patienceS && !parks && !Arrived(nowS)) return DriveAlarm::DoesNotMove;
  return std::nullopt;
}

bool RotatorWatchdog::Stands(double nowS) const {
  return nowS - movedS_ >= std::max(kStandsS, kStepsPatience * longestStepS_);
}

/// A target is reached within the rotator's own coarseness; a parked antenna is one that stands again.
bool RotatorWatchdog::Arrived(double nowS) const {
  if (order_.What == DriveOrder::Kind::Park) return Stands(nowS) && (moved_ || nowS - begunS_ > kMotionlessS);
  if (order_.What != DriveOrder::Kind::GoTo || !told_) return false;
  const double missing = std::abs(*told_ - order_.TargetDeg);
  if (missing <= kArrivedDeg) return true;
  if (!Stands(nowS)) return false;
  // A rotator that counts 0 to 360 stands at 0 when it was sent to 360.
  const bool settled = moved_ || nowS - begunS_ > kMotionlessS;
  return missing <= kNearEnoughDeg ||
         (settled && std::abs(ShortWay(*told_, order_.TargetDeg)) <= kNearEnoughDeg);
}

bool RotatorWatchdog::WrongWay(double nowS) const {
  if (nowS - begunS_ <= kTurnsRoundS) return false;
  const bool wentLeft = rightTurn_ - deg_ > kWrongWayDeg, wentRight = deg_ - leftTurn_ > kWrongWayDeg;
  return (wentLeft && !leftWay_) || (wentRight && !rightWay_);
}

bool RotatorWatchdog::OutOfLimits() const {
  return withinLimits_ && told_ &&
         (*told_ < can_.LowestDeg - kBeyondLimitDeg || *told_ > can_.HighestDeg + kBeyondLimitDeg);
}

}  // namespace lobegraph
