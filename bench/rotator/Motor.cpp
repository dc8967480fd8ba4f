#include "bench/rotator/Motor.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lobegraph {
namespace {

constexpr double kStepS = 0.001;
constexpr double kSwingPhase = 0.7;  ///< radians: the slowest place is no round bearing
constexpr auto kMostSteps = static_cast<std::size_t>((Motor::kRememberedS + Motor::kReactsS) / kStepS);

}  // namespace

Motor::Motor(const MotorSettings& settings, double nowS)
    : settings_(settings), beginsS_(nowS), steps_{settings.StartDeg} {}

void Motor::GoTo(double deg, double nowS) {
  Give({Kind::GoTo, 0, std::clamp(deg, settings_.LowestDeg, settings_.HighestDeg), 0}, nowS);
}

void Motor::Turn(bool right, double nowS) { Give({Kind::Turn, 0, 0, right ? 1 : -1}, nowS); }

void Motor::Stop(double nowS) { Give({}, nowS); }

void Motor::Give(Order order, double nowS) {
  order.FromS = nowS + kReactsS;
  orders_.push_back(order);
}

double Motor::DegAt(double timeS) {
  AdvanceTo(timeS);
  const double step = std::clamp((timeS - beginsS_) / kStepS, 0.0, static_cast<double>(steps_.size() - 1));
  return steps_[static_cast<std::size_t>(step)];
}

void Motor::AdvanceTo(double timeS) {
  // A computer that slept does not have years to catch up with.
  if (timeS - beginsS_ > 1000 * kRememberedS) beginsS_ = timeS - kRememberedS;
  while (beginsS_ + static_cast<double>(steps_.size() - 1) * kStepS < timeS) Step();
}

void Motor::Step() {
  const double now = beginsS_ + static_cast<double>(steps_.size()) * kStepS;
  while (!orders_.empty() && orders_.front().FromS <= now) {
    order_ = orders_.front();
    orders_.pop_front();
  }
  degPerS_ = Nearer(WantedDegPerS());
  Hold(steps_.back() + degPerS_ * kStepS);
  if (steps_.size() <= kMostSteps) return;
  steps_.pop_front();
  beginsS_ += kStepS;
}

/// Its full speed at this place, or less on the last piece of the way.
double Motor::WantedDegPerS() const {
  if (order_.What == Kind::Stop) return 0;
  const double here = steps_.back(), way = order_.TargetDeg - here;
  const int sense = order_.What == Kind::Turn ? order_.Sense : (way > 0 ? 1 : -1);
  const double swing = settings_.SwingShare * std::sin(here * std::numbers::pi / 180 + kSwingPhase);
  double speed = settings_.DegPerS * (1 + swing);
  if (order_.What == Kind::GoTo) {
    if (way == 0) return 0;
    // Braking evenly, this fast it still stands where it is to stand.
    if (settings_.RunDownS > 0)
      speed = std::min(speed, std::sqrt(2 * std::abs(way) * settings_.DegPerS / settings_.RunDownS));
    if (!settings_.Reversed) speed = std::min(speed, std::abs(way) / kStepS);
  }
  return (settings_.Reversed ? -sense : sense) * speed;
}

/// As near to the wanted speed as a millisecond allows.
double Motor::Nearer(double wanted) const {
  const bool faster = std::abs(wanted) > std::abs(degPerS_) && wanted * degPerS_ >= 0;
  const double seconds = faster ? settings_.RunUpS : settings_.RunDownS;
  if (seconds <= 0) return wanted;
  const double most = settings_.DegPerS / seconds * kStepS;
  return degPerS_ + std::clamp(wanted - degPerS_, -most, most);
}

void Motor::Hold(double deg) {
  const double from = steps_.back();
  double held = std::clamp(deg, settings_.LowestDeg, settings_.HighestDeg);
  const double stall = settings_.StallAtDeg.value_or(from);
  const bool stalls = settings_.StallAtDeg && (from - stall) * (held - stall) <= 0 && from != held;
  if (stalls) held = stall;
  if (held != deg) degPerS_ = 0;
  steps_.push_back(held);
}

}  // namespace lobegraph
