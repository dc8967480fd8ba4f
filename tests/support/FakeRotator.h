#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "acquisition/rotator/LineCutter.h"
#include "acquisition/rotator/RotatorLines.h"
#include "acquisition/rotator/RotatorPipe.h"

namespace lobegraph::test {

/// A rotator and the process before it, in one. Time passes by Advance only.
class FakeRotator final : public RotatorPipe {
 public:
  double NowS = 100;
  double Deg = 0;  ///< where the antenna is
  double DegPerS = 6;
  double CoastS = 0;  ///< what it takes to stand after a stop
  RotatorAbilities Can{true, true, true, true, true, -180, 450};
  double ParkDeg = 0;

  bool Starts = true;
  bool Hangs = false;  ///< the process says nothing more
  double WaitsS = -1;  ///< not negative: a call is on, and the process says for how long
  bool TellsPositions = true;
  bool ObeysMoves = true;
  bool ObeysStops = true;
  bool Reversed = false;
  std::optional<RotatorFault> OpenFault, MoveFault, StopFault, PositionFault;
  std::function<double(double)> Told = [](double deg) { return deg; };  ///< what is told of a bearing

  bool Running = false;
  int Started = 0, Killed = 0, Left = 0, LeftStopping = 0;
  std::vector<RotatorOrder> Orders;  ///< all but the signs of life
  double LastAliveS = 0;
  double LongestSilenceS = 0;  ///< between two lines that were sent

  /// Sets it in motion as a control box does.
  void TurnByHand(double degPerS) {
    speed_ = degPerS;
    target_.reset();
  }
  double Speed() const { return speed_; }
  bool Moves() const { return speed_ != 0; }

  void Advance(double seconds) {
    constexpr double kStepS = 0.01;
    for (double left = seconds; left > 1e-9; left -= kStepS) Step(std::min(left, kStepS));
  }
  void Die() { Running = false; }
  /// As the process does that hears nothing from its user.
  void StopItself() {
    speed_ = 0;
    Tell(told::StoppedItself{});
  }
  void Tell(const RotatorNews& news) { told_ += TextOf(news) + "\n"; }

  bool Start() override {
    if (!Starts) return false;
    Running = true;
    Hangs = false;
    WaitsS = -1;
    open_ = false;
    told_ = "hello 1\n";
    LastAliveS = NowS;
    ++Started;
    return true;
  }
  void Send(std::string_view lines) override {
    if (!Running || Hangs) return;
    LongestSilenceS = std::max(LongestSilenceS, NowS - LastAliveS);
    LastAliveS = NowS;
    orders_.Take(lines);
    while (const auto line = orders_.Next()) Obey(OrderIn(*line).value());
  }
  std::optional<std::string> Receive() override {
    if (!Running) return std::nullopt;
    return std::exchange(told_, {});
  }
  void Kill() override {
    Running = false;
    ++Killed;
  }
  void Leave() override {
    Running = false;
    if (open_) speed_ = 0;
    ++Left;
  }
  void LeaveStopping(const RotatorChoice&) override {
    Running = false;
    speed_ = 0;
    ++LeftStopping;
  }

  /// Orders of one kind so far.
  int CountOf(RotatorOrder::Kind kind) const {
    return static_cast<int>(
        std::count_if(Orders.begin(), Orders.end(), [&](const RotatorOrder& o) { return o.What == kind; }));
  }

 private:
  void Obey(const RotatorOrder& order) {
    using Kind = RotatorOrder::Kind;
    if (order.What == Kind::Alive) return;
    Orders.push_back(order);
    if (WaitsS >= 0) return;
    switch (order.What) {
      case Kind::Open:
        if (OpenFault) return Tell(told::Failed{order.Number, *OpenFault});
        open_ = true;
        Tell(Can);
        break;
      case Kind::Every:
        everyS_ = order.Ms / 1000.0;
        nextS_ = NowS;
        return;
      case Kind::Stop:
        if (StopFault) return Tell(told::Failed{order.Number, *StopFault});
        if (ObeysStops) Brake();
        break;
      case Kind::GoTo:
      case Kind::Left:
      case Kind::Right:
      case Kind::Park:
        if (MoveFault) return Tell(told::Failed{order.Number, *MoveFault});
        if (ObeysMoves) Move(order);
        break;
      default:
        break;
    }
    Tell(told::Done{order.Number});
  }

  void Move(const RotatorOrder& order) {
    using Kind = RotatorOrder::Kind;
    const double sign = Reversed ? -1 : 1;
    brakeEndsS_ = -1;
    target_.reset();
    if (order.What == Kind::GoTo) target_ = order.Deg;
    if (order.What == Kind::Park) target_ = ParkDeg;
    if (order.What == Kind::Left) speed_ = -sign * DegPerS;
    if (order.What == Kind::Right) speed_ = sign * DegPerS;
    if (target_) speed_ = (*target_ >= Deg ? sign : -sign) * DegPerS;
  }
  void Brake() {
    target_.reset();
    if (CoastS <= 0)
      speed_ = 0;
    else if (brakeEndsS_ < 0)
      brakeEndsS_ = NowS + CoastS;
  }

  void Step(double seconds) {
    NowS += seconds;
    const double way = speed_ * seconds;
    const bool arrives = target_ && std::abs(*target_ - Deg) <= std::abs(way);
    Deg = arrives ? *target_ : Deg + way;
    if (arrives || (brakeEndsS_ >= 0 && NowS >= brakeEndsS_)) {
      speed_ = 0;
      target_.reset();
      brakeEndsS_ = -1;
    }
    if (!Running || Hangs || !open_ || everyS_ <= 0 || NowS < nextS_) return;
    nextS_ = NowS + everyS_;
    if (WaitsS >= 0) {
      WaitsS += everyS_;
      return Tell(told::Waiting{WaitsS});
    }
    if (PositionFault) return Tell(told::NoPosition{*PositionFault});
    if (TellsPositions) Tell(RotatorPosition{NowS, Told(Deg)});
  }

  LineCutter orders_{kLongestRotatorLine};
  std::string told_;
  bool open_ = false;
  double speed_ = 0;
  std::optional<double> target_;
  double brakeEndsS_ = -1;
  double everyS_ = 0;
  double nextS_ = 0;
};

}  // namespace lobegraph::test
